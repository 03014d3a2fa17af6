#include "viewer/layers/MeshLayer.h"

#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMaterialBinding.h>
#include <Inventor/nodes/SoPointSet.h>

#include "host/model/Project.h"
#include "nodes/meshes/TarnOIPointMeshSeparator.h"
#include "tests/support/NodesBelow.h"
#include "tests/support/TarnTest.h"
#include "viewer/layers/SceneContext.h"

#include <algorithm>
#include <memory>
#include <vector>

using Color = CommandLine::Color;

class MeshLayerTest : public TarnTest {
protected:
  // Four points of heights 0, 1, 2 and 4; in red, green, blue and white where they are coloured.
  tarn::PointMesh& addMesh(const char* name, bool coloured) {
    tarn::PointMesh& mesh = project.AddPointMesh();
    mesh.SetName(tarn::VString(name));
    mesh.Allocate(4, coloured);
    const float points[] = {1, 2, 0, 11, 2, 1, 1, 12, 2, 11, 12, 4};
    std::ranges::copy(points, mesh.GetPointStorage().begin());
    const unsigned char bgr[] = {0, 0, 255, 0, 255, 0, 255, 0, 0, 255, 255, 255};
    if (coloured) std::ranges::copy(bgr, mesh.GetColourStorage().begin());
    return mesh;
  }
  tarn::PointMesh& addSurface(const char* name, bool coloured) {
    tarn::PointMesh& mesh = addMesh(name, coloured);
    EXPECT_TRUE(mesh.SetTriangles({{0, 1, 2}, {1, 3, 2}}));
    return mesh;
  }

  MeshLayer& show(std::optional<Color> color) {
    layer = std::make_unique<MeshLayer>(project, color, context);
    return *layer;
  }

  TarnOIPointMeshSeparator* nodeOf(tarn::PointMesh& mesh) const {
    return static_cast<TarnOIPointMeshSeparator*>(context.objects.atKey(&mesh));
  }

  // The last material ahead of the mesh's shape, from the layer on; null when it is bound
  // overall.
  SoMaterial* colorsOf(tarn::PointMesh& mesh) const {
    SoSearchAction search;
    search.setNode(nodeOf(mesh));
    search.apply(layer->root());
    SoPath* path = search.getPath();
    SoMaterial* material = nullptr;
    int binding = SoMaterialBinding::OVERALL;
    const auto look = [&](SoNode* node) {
      if (node->isOfType(SoMaterial::getClassTypeId())) material = static_cast<SoMaterial*>(node);
      if (node->isOfType(SoMaterialBinding::getClassTypeId())) {
        binding = static_cast<SoMaterialBinding*>(node)->value.getValue();
      }
    };
    for (int i = 0; i < path->getLength(); ++i) {
      auto* group = static_cast<SoGroup*>(path->getNode(i));
      const int end = i + 1 < path->getLength() ? path->getIndex(i + 1) : group->getNumChildren();
      for (int child = 0; child < end; ++child) look(group->getChild(child));
    }
    return binding == SoMaterialBinding::OVERALL ? nullptr : material;
  }

  template <typename Node>
  static int count(SoNode* root) {
    return static_cast<int>(nodesBelow<Node>(root).size());
  }

  tarn::Project project;
  SceneContext context{{}};
  std::unique_ptr<MeshLayer> layer;
};

TEST_F(MeshLayerTest, CloudsArePointsAndMeshesAreFaces) {
  tarn::PointMesh& cloud = addMesh("cloud", true);
  tarn::PointMesh& surface = addSurface("surface", false);
  show({});
  EXPECT_EQ(count<SoPointSet>(nodeOf(cloud)), 1);
  EXPECT_EQ(count<SoIndexedFaceSet>(nodeOf(cloud)), 0);
  EXPECT_EQ(count<SoPointSet>(nodeOf(surface)), 0);
  EXPECT_EQ(count<SoIndexedFaceSet>(nodeOf(surface)), 1);
}

TEST_F(MeshLayerTest, CloudHasItsOwnColoursAndByHeightWhereItHasNone) {
  tarn::PointMesh& coloured = addMesh("coloured", true);
  tarn::PointMesh& bare = addMesh("bare", false);
  show({});
  ASSERT_NE(colorsOf(coloured), nullptr);
  EXPECT_EQ(colorsOf(coloured)->diffuseColor[2], SbColor(0.0F, 0.0F, 1.0F));
  ASSERT_NE(colorsOf(bare), nullptr);
  const SbColor low = colorsOf(bare)->diffuseColor[0];
  EXPECT_NE(low, colorsOf(bare)->diffuseColor[1]);
  EXPECT_NE(low, SbColor(1.0F, 0.0F, 0.0F));
  EXPECT_TRUE(layer->notes().empty());
}

TEST_F(MeshLayerTest, CloudIsColouredAsItIsAsked) {
  tarn::PointMesh& cloud = addMesh("cloud", true);
  show(Color::eNone);
  EXPECT_EQ(colorsOf(cloud), nullptr);
  layer->setColor(Color::eHeight);
  ASSERT_NE(colorsOf(cloud), nullptr);
  const SbColor byHeight = colorsOf(cloud)->diffuseColor[1];
  layer->setColor(Color::eRgb);
  EXPECT_EQ(colorsOf(cloud)->diffuseColor[1], SbColor(0.0F, 1.0F, 0.0F));
  EXPECT_NE(byHeight, SbColor(0.0F, 1.0F, 0.0F));
  layer->setColor(Color::eNone);
  EXPECT_EQ(colorsOf(cloud), nullptr);
}

TEST_F(MeshLayerTest, SurfaceHasTheColoursOfItsCorners) {
  tarn::PointMesh& surface = addSurface("surface", true);
  show({});
  ASSERT_NE(colorsOf(surface), nullptr);
  const SoMFColor& colors = colorsOf(surface)->diffuseColor;
  ASSERT_EQ(colors.getNum(), 6);
  const SbColor red(1.0F, 0.0F, 0.0F);
  const SbColor green(0.0F, 1.0F, 0.0F);
  const SbColor blue(0.0F, 0.0F, 1.0F);
  const SbColor white(1.0F, 1.0F, 1.0F);
  const SbColor expected[] = {red, green, blue, green, white, blue};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(colors[i], expected[i]) << i;
}

TEST_F(MeshLayerTest, SurfaceByHeightHasTheColoursOfACloudByHeight) {
  tarn::PointMesh& surface = addSurface("surface", false);
  tarn::PointMesh& cloud = addMesh("cloud", false);
  show(Color::eHeight);
  const SoMFColor& corners = colorsOf(surface)->diffuseColor;
  const SoMFColor& points = colorsOf(cloud)->diffuseColor;
  const int cornersPoints[] = {0, 1, 2, 1, 3, 2};
  for (int i = 0; i < 6; ++i) EXPECT_EQ(corners[i], points[cornersPoints[i]]) << i;
}

TEST_F(MeshLayerTest, SurfaceWithoutColoursIsOfOneColour) {
  tarn::PointMesh& surface = addSurface("surface", false);
  show({});
  EXPECT_EQ(colorsOf(surface), nullptr);
  layer->setColor(Color::eHeight);
  EXPECT_NE(colorsOf(surface), nullptr);
  layer->setColor(Color::eNone);
  EXPECT_EQ(colorsOf(surface), nullptr);
}

TEST_F(MeshLayerTest, MeshThatHasNoColoursToShowIsNamedUntilAnotherKindIsAsked) {
  addMesh("bare", false);
  addMesh("coloured", true);
  addSurface("grey", false);
  show(Color::eRgb);
  EXPECT_THAT(layer->notes(),
              ::testing::ElementsAre(
                  "\"bare\" has no colours of its own; --color height shows it by height",
                  "\"grey\" has no colours of its own; --color height shows it by height"));
  layer->setColor(Color::eHeight);
  EXPECT_TRUE(layer->notes().empty());
}

TEST_F(MeshLayerTest, ColourOfNothingIsSaidToBeMissing) {
  EXPECT_TRUE(show({}).notes().empty());
  EXPECT_THAT(
      show(Color::eHeight).notes(),
      ::testing::ElementsAre("there is no dense cloud or mesh to colour; --cloud FILE names one"));
}

TEST_F(MeshLayerTest, MeshWithoutPointsIsNotShown) {
  project.AddPointMesh();
  project.AddPointMesh().Allocate(0, 1);
  for (const Color color : {Color::eNone, Color::eRgb, Color::eHeight}) {
    show(color);
    EXPECT_EQ(count<TarnOIPointMeshSeparator>(layer->root()), 0);
  }
}

TEST_F(MeshLayerTest, MorePointsAreSmaller) {
  EXPECT_GT(MeshLayer::pointSize(1000), MeshLayer::pointSize(100'000));
  EXPECT_GT(MeshLayer::pointSize(100'000), MeshLayer::pointSize(1'000'000));
  EXPECT_EQ(MeshLayer::pointSize(20'000'000), 1.0F);
}
