#include "nodes/cameras/CameraSymbols.h"

#include <Inventor/SbVec3d.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoCylinder.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoRotation.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoSphere.h>

#include "tests/nodes/cameras/StationFixture.h"

#include <array>
#include <clocale>
#include <map>
#include <tuple>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;
using Read = PreferenceRead;

// The symbols as the nodes show them: the box and the sphere from child 5 on, the detailed
// one in g_cs_node.
class CameraSymbolsTest : public StationFixture {
protected:
  static constexpr int symbol = 5;

  NodeRef<OpenStationSeparator> boxed() {
    preferences.Set("UseNewSymbol", "0", "TarnOICamera");
    return built();
  }
  NodeRef<OpenStationSeparator> unoriented() {
    station.SetOriented(0);
    return built();
  }

  static void expectSolid(const SoGroup* group, int index) {
    const auto* hints = childAs<SoShapeHints>(group, index);
    ASSERT_NE(hints, nullptr);
    EXPECT_EQ(hints->vertexOrdering.getValue(), SoShapeHints::COUNTERCLOCKWISE);
    EXPECT_EQ(hints->shapeType.getValue(), SoShapeHints::SOLID);
    EXPECT_EQ(hints->faceType.getValue(), SoShapeHints::CONVEX);
  }
  static void expectColor(const SoGroup* group, int index, float red, float green, float blue) {
    const auto* material = childAs<SoMaterial>(group, index);
    ASSERT_NE(material, nullptr);
    EXPECT_EQ(material->diffuseColor[0], SbColor(red, green, blue));
  }
  static void expectCylinder(const SoGroup* group, int index, float radius, float height) {
    const auto* cylinder = childAs<SoCylinder>(group, index);
    ASSERT_NE(cylinder, nullptr);
    EXPECT_EQ(cylinder->parts.getValue(), SoCylinder::ALL);
    EXPECT_EQ(cylinder->radius.getValue(), radius);
    EXPECT_EQ(cylinder->height.getValue(), height);
  }
  static void expectRotation(const SoGroup* group, int index, const SbVec3f& axis, float angle) {
    const auto* rotation = childAs<SoRotation>(group, index);
    ASSERT_NE(rotation, nullptr);
    EXPECT_TRUE(rotation->rotation.getValue().equals(SbRotation(axis, angle), 1e-12F));
  }
};

TEST_F(CameraSymbolsTest, BoxHasABlueBodyAGreenLensAndARedViewfinder) {
  const auto node = boxed();
  ASSERT_EQ(node->getNumChildren(), symbol + 10);
  expectSolid(node.get(), symbol);
  expectColor(node.get(), symbol + 1, 0, 0, 1);
  const auto* cube = childAs<SoCube>(node.get(), symbol + 2);
  EXPECT_EQ(cube->width.getValue(), 1.0F);
  EXPECT_EQ(cube->height.getValue(), 1.0F);
  EXPECT_EQ(cube->depth.getValue(), 0.5F);
  expectColor(node.get(), symbol + 3, 0, 1, 0);
  EXPECT_EQ(childAs<SoTranslation>(node.get(), symbol + 4)->translation.getValue(),
            SbVec3f(0.0F, 0.0F, 0.2F));
  expectRotation(node.get(), symbol + 5, SbVec3f(1, 0, 0), 1.5708F);
  expectCylinder(node.get(), symbol + 6, 0.25F, 0.8F);
  expectColor(node.get(), symbol + 7, 1, 0, 0);
  EXPECT_EQ(childAs<SoTranslation>(node.get(), symbol + 8)->translation.getValue(),
            SbVec3f(0.0F, -0.2F, 0.48F));
  expectCylinder(node.get(), symbol + 9, 0.2F, 0.35F);
}

TEST_F(CameraSymbolsTest, SphereIsYellowWithThreeRings) {
  const auto node = unoriented();
  ASSERT_EQ(node->getNumChildren(), symbol + 12);
  expectSolid(node.get(), symbol);
  expectColor(node.get(), symbol + 1, 1, 1, 0);
  EXPECT_EQ(childAs<SoSphere>(node.get(), symbol + 2)->radius.getValue(), 0.7F);
  expectColor(node.get(), symbol + 3, 0, 1, 0);
  expectRotation(node.get(), symbol + 4, SbVec3f(0, 0, 1), 0.0F);
  expectCylinder(node.get(), symbol + 5, 0.71F, 0.05F);
  expectColor(node.get(), symbol + 6, 1, 0, 0);
  expectRotation(node.get(), symbol + 7, SbVec3f(1, 0, 0), -1.5708F);
  expectCylinder(node.get(), symbol + 8, 0.71F, 0.05F);
  expectColor(node.get(), symbol + 9, 0, 0, 0);
  expectRotation(node.get(), symbol + 10, SbVec3f(0, 0, 1), 1.5708F);
  expectCylinder(node.get(), symbol + 11, 0.71F, 0.05F);
}

// ---- The detailed symbol --------------------------------------------------------------

TEST_F(CameraSymbolsTest, DetailedSymbolReadsItsColorsOnceInTheirOrder) {
  EXPECT_EQ(g_cs_node, nullptr);
  TarnOICameraStationSeparator::CreateCSNode();
  std::vector<Read> expected = {{Read::eColour, "CameraStationColor(RRRGGGBBB_0-255)", "044043043",
                                 "ProjectViewer(3D_Viewer)"}};
  const std::string dark = "0.1137254901960784";
  const std::string middle = "0.4117647058823529";
  const std::string light = "0.7529411764705882";
  const std::vector<std::pair<std::string, std::string>> colors = {
      {"Body_ambient", dark},         {"Body_specular", light},       {"ViewFinder_ambient", dark},
      {"ViewFinder_diffuse", middle}, {"ViewFinder_specular", light}, {"Lens_ambient", dark},
      {"Lens_diffuse", light},        {"Lens_specular", light}};
  std::vector<Read> reads = preferences.takeReads();
  for (Read& read : reads) {
    if (read.section == "CSSymbol") read.defaultValue.resize(18);  // without the rounding's tail
  }
  for (const auto& [color, value] : colors) {
    for (const char* component : {"_R", "_G", "_B"}) {
      expected.push_back({Read::eDouble, color + component, value, "CSSymbol"});
    }
  }
  EXPECT_THAT(reads, ElementsAreArray(expected));
  TarnOICameraStationSeparator::CreateCSNode();
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(CameraSymbolsTest, DetailedSymbolHasTheColorsOfThePreferences) {
  preferences.Set("CameraStationColor(RRRGGGBBB_0-255)", "051102153", viewerSection);
  preferences.Set("Body_ambient_R", "0.125", "CSSymbol");
  preferences.Set("Body_specular_B", "0.25", "CSSymbol");
  preferences.Set("ViewFinder_diffuse_G", "0.375", "CSSymbol");
  preferences.Set("Lens_specular_R", "0.625", "CSSymbol");
  TarnOICameraStationSeparator::CreateCSNode();
  const float dark = 0.113725F;
  const float middle = 0.411765F;
  const float light = 0.752941F;
  const auto* body = childAs<SoMaterial>(g_cs_node, 0);
  EXPECT_EQ(body->ambientColor[0], SbColor(0.125F, dark, dark));
  EXPECT_EQ(body->diffuseColor[0], SbColor(0.2F, 0.4F, 0.6F));
  EXPECT_EQ(body->specularColor[0], SbColor(light, light, 0.25F));
  const auto* viewfinder = childAs<SoMaterial>(g_cs_node, 8);
  EXPECT_EQ(viewfinder->ambientColor[0], SbColor(dark, dark, dark));
  EXPECT_EQ(viewfinder->diffuseColor[0], SbColor(middle, 0.375F, middle));
  EXPECT_EQ(viewfinder->specularColor[0], SbColor(light, light, light));
  const auto* lens = childAs<SoMaterial>(g_cs_node, 11);
  EXPECT_EQ(lens->ambientColor[0], SbColor(dark, dark, dark));
  EXPECT_EQ(lens->diffuseColor[0], SbColor(light, light, light));
  EXPECT_EQ(lens->specularColor[0], SbColor(0.625F, light, light));
  for (const SoMaterial* material : {body, viewfinder, lens}) {
    EXPECT_EQ(material->emissiveColor[0], SbColor(0, 0, 0));
    EXPECT_EQ(material->shininess[0], 1.0F);
    EXPECT_EQ(material->transparency[0], 0.0F);
  }
}

TEST_F(CameraSymbolsTest, DetailedSymbolIsReadWhateverTheLocale) {
  const std::string before = std::setlocale(LC_NUMERIC, nullptr);
  bool comma = false;
  for (const char* name : {"de_DE.UTF-8", "fr_FR.UTF-8", "da_DK.UTF-8", "it_IT.UTF-8"}) {
    comma = comma || std::setlocale(LC_NUMERIC, name);
  }
  if (!comma) GTEST_SKIP() << "no locale with a decimal comma is installed";
  TarnOICameraStationSeparator::CreateCSNode();
  std::setlocale(LC_NUMERIC, before.c_str());
  ASSERT_NE(g_cs_node, nullptr);
  EXPECT_EQ(childAs<SoMaterial>(g_cs_node, 0)->ambientColor[0],
            SbColor(0.113725F, 0.113725F, 0.113725F));
}

TEST_F(CameraSymbolsTest, DetailedSymbolIsBroughtToTheSymbolsAxes) {
  TarnOICameraStationSeparator::CreateCSNode();
  EXPECT_EQ(typesOf(g_cs_node), detailedSymbolTypes);
  EXPECT_EQ(childAs<SoScale>(g_cs_node, 1)->scaleFactor.getValue(),
            SbVec3f(0.004F, 0.004F, 0.004F));
  expectRotation(g_cs_node, 2, SbVec3f(1, 0, 0), -1.571F);
  expectRotation(g_cs_node, 3, SbVec3f(0, 1, 0), 3.141592654F);
  EXPECT_EQ(childAs<SoTranslation>(g_cs_node, 4)->translation.getValue(),
            SbVec3f(-15.0F, 0.0F, 20.0F));
  expectSolid(g_cs_node, 5);
}

TEST_F(CameraSymbolsTest, DetailedSymbolStaysWhenThePreferencesChange) {
  TarnOICameraStationSeparator::CreateCSNode();
  SoNode* body = g_cs_node->getChild(0);
  preferences.Set("CameraStationColor(RRRGGGBBB_0-255)", "255000000", viewerSection);
  TarnOICameraStationSeparator::CreateCSNode();
  EXPECT_EQ(g_cs_node->getChild(0), body);
  EXPECT_NE(static_cast<SoMaterial*>(body)->diffuseColor[0], SbColor(1, 0, 0));
}

TEST_F(CameraSymbolsTest, DetailedSymbolIsMadeAgainWhenItWasEmptied) {
  TarnOICameraStationSeparator::CreateCSNode();
  g_cs_node->removeAllChildren();
  TarnOICameraStationSeparator::CreateCSNode();
  EXPECT_EQ(g_cs_node->getNumChildren(), 14);
}

TEST_F(CameraSymbolsTest, DetailedSymbolOfTheApplicationIsUsedAndLeftToIt) {
  auto own = makeNode<SoSeparator>();
  own->addChild(new SoCube);
  g_cs_node = own.get();
  EXPECT_EQ(typesOf(built().get()).back(), "Cube");
  EXPECT_EQ(g_cs_node, own.get());
  EXPECT_EQ(own->getNumChildren(), 1);
  forgetDetailedSymbol();
  EXPECT_EQ(g_cs_node, own.get());
  EXPECT_EQ(own->getRefCount(), 1);
  g_cs_node = nullptr;
}

TEST_F(CameraSymbolsTest, DetailedSymbolOutlivesItsStationsAndGoesWithTheClass) {
  built().reset();
  ASSERT_NE(g_cs_node, nullptr);
  EXPECT_EQ(g_cs_node->getNumChildren(), 14);
  const NodeRef<SoSeparator> watched(g_cs_node);
  forgetDetailedSymbol();
  EXPECT_EQ(g_cs_node, nullptr);
  EXPECT_EQ(watched->getRefCount(), 1);
  built();
  ASSERT_NE(g_cs_node, nullptr);
  EXPECT_NE(g_cs_node, watched.get());
}

// ---- The detailed symbol's meshes -----------------------------------------------------

namespace {

struct Triangle {
  std::array<int, 3> corners;
};

struct Mesh {
  std::vector<SbVec3d> points;
  std::vector<Triangle> triangles;
};

// The mesh of a Coordinate3 and the IndexedFaceSet behind it.
Mesh meshAt(const SoGroup* group, int index) {
  Mesh mesh;
  const auto* coordinates = static_cast<const SoCoordinate3*>(group->getChild(index));
  const auto* faces = static_cast<const SoIndexedFaceSet*>(group->getChild(index + 1));
  for (int i = 0; i < coordinates->point.getNum(); ++i) {
    const SbVec3f& p = coordinates->point[i];
    mesh.points.emplace_back(p[0], p[1], p[2]);
  }
  EXPECT_EQ(faces->coordIndex.getNum() % 4, 0);
  for (int i = 0; i + 3 < faces->coordIndex.getNum(); i += 4) {
    EXPECT_EQ(faces->coordIndex[i + 3], -1);
    mesh.triangles.push_back(
        {{faces->coordIndex[i], faces->coordIndex[i + 1], faces->coordIndex[i + 2]}});
  }
  return mesh;
}

void expectSoundTriangles(const Mesh& mesh) {
  std::vector<int> uses(mesh.points.size());
  for (const Triangle& t : mesh.triangles) {
    for (const int corner : t.corners) {
      ASSERT_GE(corner, 0);
      ASSERT_LT(corner, static_cast<int>(mesh.points.size()));
      ++uses[static_cast<std::size_t>(corner)];
    }
    const SbVec3d& a = mesh.points[static_cast<std::size_t>(t.corners[0])];
    const SbVec3d& b = mesh.points[static_cast<std::size_t>(t.corners[1])];
    const SbVec3d& c = mesh.points[static_cast<std::size_t>(t.corners[2])];
    EXPECT_GT((b - a).cross(c - a).length(), 0.01) << "a triangle without an area";
  }
  for (const int count : uses) EXPECT_GT(count, 0) << "a point that no triangle uses";
  for (const SbVec3d& p : mesh.points) {
    for (int i = 0; i < 3; ++i) EXPECT_LT(std::abs(p[i]), 110.0);
  }
}

using Place = std::tuple<double, double, double>;
Place placeOf(const SbVec3d& p) { return {p[0], p[1], p[2]}; }

// The directed edges, between places, that have no triangle on their other side. Fails when
// two triangles run along an edge in the same direction.
std::vector<std::pair<Place, Place>> openEdges(const Mesh& mesh) {
  std::map<std::pair<Place, Place>, int> edges;
  for (const Triangle& t : mesh.triangles) {
    for (std::size_t i = 0; i < 3; ++i) {
      const SbVec3d& from = mesh.points[static_cast<std::size_t>(t.corners[i])];
      const SbVec3d& to = mesh.points[static_cast<std::size_t>(t.corners[(i + 1) % 3])];
      EXPECT_EQ(++edges[std::pair(placeOf(from), placeOf(to))], 1);
    }
  }
  std::vector<std::pair<Place, Place>> open;
  for (const auto& [edge, count] : edges) {
    if (!edges.count(std::pair(edge.second, edge.first))) open.push_back(edge);
  }
  return open;
}

// Positive when the triangles are counter-clockwise seen from outside; an opening counts as
// closed by a cone to `origin`.
double volume(const Mesh& mesh, const SbVec3d& origin) {
  double sum = 0.0;
  for (const Triangle& t : mesh.triangles) {
    const SbVec3d a = mesh.points[static_cast<std::size_t>(t.corners[0])] - origin;
    const SbVec3d b = mesh.points[static_cast<std::size_t>(t.corners[1])] - origin;
    const SbVec3d c = mesh.points[static_cast<std::size_t>(t.corners[2])] - origin;
    sum += a.dot(b.cross(c)) / 6.0;
  }
  return sum;
}

}  // namespace

TEST_F(CameraSymbolsTest, BodyIsSoundAndOpenOnlyAtTheLensMount) {
  TarnOICameraStationSeparator::CreateCSNode();
  const Mesh body = meshAt(g_cs_node, 6);
  EXPECT_EQ(body.triangles.size(), 565U);
  expectSoundTriangles(body);
  // An odd number of triangles cannot be closed: the opening has an odd number of edges.
  const auto open = openEdges(body);
  EXPECT_EQ(open.size(), 23U);
  for (const auto& [from, to] : open) {
    const auto& [x, y, z] = from;
    EXPECT_EQ(y, -22.0);
    EXPECT_NEAR(std::hypot(x - 15.0, z + 20.0), 26.0, 0.001);
  }
  // About 140 x 60 x 76 millimetres and a grip.
  EXPECT_GT(volume(body, SbVec3d(15.0, -22.0, -20.0)), 500000.0);
}

TEST_F(CameraSymbolsTest, ViewfinderIsSoundAndClosed) {
  TarnOICameraStationSeparator::CreateCSNode();
  const Mesh viewfinder = meshAt(g_cs_node, 9);
  EXPECT_EQ(viewfinder.triangles.size(), 52U);
  expectSoundTriangles(viewfinder);
  EXPECT_THAT(openEdges(viewfinder), IsEmpty());
  EXPECT_GT(volume(viewfinder, SbVec3d(0, 0, 0)), 20000.0);
}

TEST_F(CameraSymbolsTest, LensIsSoundAndClosedAndCoversTheMount) {
  TarnOICameraStationSeparator::CreateCSNode();
  const Mesh lens = meshAt(g_cs_node, 12);
  EXPECT_EQ(lens.points.size(), 1828U);
  EXPECT_EQ(lens.triangles.size(), 1556U);
  expectSoundTriangles(lens);
  EXPECT_THAT(openEdges(lens), IsEmpty());
  EXPECT_GT(volume(lens, SbVec3d(0, 0, 0)), 150000.0);
  double nearest = 0.0;
  for (const SbVec3d& p : lens.points) nearest = std::min(nearest, p[1]);
  EXPECT_LT(nearest, -80.0);  // towards -y, ahead of the body
}
