#include "viewer/layers/SurfaceGroupLayer.h"

#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTextureCoordinate2.h>

#include "host/model/Project.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/TarnOITexture.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/surfaces/TarnOISurfaceSeparator.h"
#include "tests/support/NodesBelow.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/SyntheticScene.h"
#include "tests/support/TarnTest.h"
#include "viewer/layers/SceneContext.h"

#include <filesystem>
#include <optional>

using ::testing::HasSubstr;

class SurfaceGroupLayerTest : public TarnTest {
protected:
  SurfaceGroupLayerTest() { SyntheticScene(12, 200).addTo(project); }

  tarn::CameraStation& station() {
    return *static_cast<tarn::CameraStation*>(project.GetCameraStations().at(2));
  }
  // A picture for each photograph, for any of them may be the best.
  void addPictures() {
    const std::string file = folder.write("picture.png", pngOf(Pixels::pattern(16, 12, 3)));
    for (int i = 0; i < project.GetCameraStations().size(); ++i) {
      static_cast<tarn::CameraStation*>(project.GetCameraStations().at(i))
          ->GetPhotograph()
          ->SetImageFile(tarn::VPathString(file.c_str()));
    }
  }
  template <typename Node>
  int countOf() {
    return static_cast<int>(nodesBelow<Node>(layer->root()).size());
  }

  TemporaryFolder folder;
  tarn::Project project;
  SceneContext context{{}};
  std::optional<SurfaceGroupLayer> layer;
};

TEST_F(SurfaceGroupLayerTest, ShowsTheSurfaceWithItsPictureUnlit) {
  addPictures();
  layer.emplace(project, station(), context);
  EXPECT_EQ(layer->note(), "");
  ASSERT_EQ(countOf<TarnOISurfaceSeparator>(), 1);
  EXPECT_EQ(countOf<SoTextureCoordinate2>(), 1);
  const auto* texture = nodesBelow<TarnOITexture>(layer->root()).at(0);
  EXPECT_EQ(std::string(texture->filename.getValue().getString()),
            std::filesystem::canonical(folder.file("picture.png")).string());
  SbVec2s size;
  int components = 0;
  texture->image.getValue(size, components);
  EXPECT_EQ(size, SbVec2s(16, 12)) << "it was read";
  EXPECT_EQ(nodesBelow<SoLightModel>(layer->root()).at(0)->model.getValue(),
            SoLightModel::BASE_COLOR);
}

TEST_F(SurfaceGroupLayerTest, ShowsItFromBothSides) {
  addPictures();
  layer.emplace(project, station(), context);
  ASSERT_EQ(countOf<SoShapeHints>(), 1);
  const auto* hints = nodesBelow<SoShapeHints>(layer->root()).at(0);
  EXPECT_EQ(hints->vertexOrdering.getValue(), SoShapeHints::COUNTERCLOCKWISE);
  EXPECT_EQ(hints->shapeType.getValue(), SoShapeHints::UNKNOWN_SHAPE_TYPE);
}

TEST_F(SurfaceGroupLayerTest, PointsArePickedThroughIt) {
  layer.emplace(project, station(), context);
  SoPickStyle* style = nodesBelow<SoPickStyle>(layer->root()).at(0);
  const SbViewportRegion viewport(300, 200);
  SoRayPickAction pick(viewport);
  const auto* coordinates = nodesBelow<SoCoordinate3>(layer->root()).at(0);
  const auto* faces = nodesBelow<SoIndexedFaceSet>(layer->root()).at(0);
  SbVec3f middle(0, 0, 0);
  for (int k = 0; k < 3; ++k) middle += coordinates->point[faces->coordIndex[k]] / 3.0F;
  const SbVec3f eye = ViewerFrame::fromModel(station().GetPosition());
  pick.setRay(eye, middle - eye);
  pick.apply(layer->root());
  EXPECT_EQ(pick.getPickedPoint(), nullptr);
  style->style = SoPickStyle::SHAPE;
  pick.apply(layer->root());
  EXPECT_NE(pick.getPickedPoint(), nullptr) << "else the test cannot fail";
}

TEST_F(SurfaceGroupLayerTest, IsFoundByItsGroup) {
  addPictures();
  layer.emplace(project, station(), context);
  auto* group = const_cast<tarn::SurfaceGroup*>(&layer->surface());
  EXPECT_EQ(context.objects.atKey(group), nodesBelow<TarnOISurfaceSeparator>(layer->root()).at(0));
  EXPECT_GT(group->GetSelsCollection(0)->size(), 20);
  EXPECT_EQ(nodesBelow<SoIndexedFaceSet>(layer->root()).at(0)->coordIndex.getNum(),
            4 * group->GetSelsCollection(0)->size());
}

// A link into the user's cache would not outlive it, and a written scene names the file.
TEST_F(SurfaceGroupLayerTest, ItsPictureIsThePhotographBehindALink) {
  addPictures();
  std::filesystem::create_symlink(folder.file("picture.png"), folder.file("link.png"));
  for (int i = 0; i < project.GetCameraStations().size(); ++i) {
    static_cast<tarn::CameraStation*>(project.GetCameraStations().at(i))
        ->GetPhotograph()
        ->SetImageFile(tarn::VPathString(folder.file("link.png").c_str()));
  }
  layer.emplace(project, station(), context);
  EXPECT_THAT(
      std::string(nodesBelow<TarnOITexture>(layer->root()).at(0)->filename.getValue().getString()),
      ::testing::EndsWith("/picture.png"));
}

TEST_F(SurfaceGroupLayerTest, WithoutThePhotographItIsLitAndSaysWhy) {
  layer.emplace(project, station(), context);
  EXPECT_THAT(layer->note(), HasSubstr("the surface has no picture: "));
  EXPECT_EQ(countOf<TarnOISurfaceSeparator>(), 1);
  EXPECT_EQ(countOf<TarnOITexture>(), 0);
  EXPECT_EQ(countOf<SoTextureCoordinate2>(), 0);
  EXPECT_EQ(nodesBelow<SoLightModel>(layer->root()).at(0)->model.getValue(), SoLightModel::PHONG);
}

TEST_F(SurfaceGroupLayerTest, AStationWithoutPointsIsRefused) {
  tarn::CameraStation& empty = project.AddCameraStation();
  empty.SetName("empty.jpg");
  empty.SetOrientation({1.0, 2.0, 3.0}, tarn::MatrixDouble::Identity(3));
  EXPECT_THROW(layer.emplace(project, empty, context), std::runtime_error);
}

// The node's mark is passed over; what it reports besides reaches the test's handler, as does
// the mark afterwards.
TEST_F(SurfaceGroupLayerTest, OnlyTheNodesMarkIsPassedOver) {
  layer.emplace(project, station(), context);
  EXPECT_THAT(takeAssertions(), ::testing::IsEmpty());
  const auto node = makeNode<TarnOISurfaceSeparator>();
  node->SetSurface(nullptr, nullptr, nullptr, nullptr, nullptr);
  EXPECT_THAT(takeAssertions(),
              ::testing::ElementsAre(IsAssertionAt("0", "TarnOISurfaceSeparator", 102)));
}

TEST_F(SurfaceGroupLayerTest, TakesItsNodeOutOfTheDictionaryWhenItGoes) {
  layer.emplace(project, station(), context);
  EXPECT_EQ(context.objects.size(), 1);
  layer.reset();
  EXPECT_EQ(context.objects.size(), 0);
}
