#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>

#include "nodes/framework/ViewerFrame.h"
#include "tests/nodes/cameras/StationFixture.h"
#include "tests/support/Baseline.h"
#include "viewer/OffscreenRenderer.h"

#include <algorithm>
#include <array>

class TarnOICameraStationSeparatorGLTest : public StationFixture {
protected:
  // Edges of polygons and lines may fall one pixel further with another renderer: a large
  // difference at few pixels.
  static constexpr Baseline::Tolerance edges{255, 0.5};

  // A station at the origin of the viewer frame, upright, that looks towards +Y of the model
  // (away from the viewer at first sight, -z of the scene).
  void standAtTheOrigin() {
    tarn::MatrixDouble rows(3, 3);
    rows(1, 1) = 1.0;   // right is X
    rows(2, 3) = 1.0;   // up is Z
    rows(3, 2) = -1.0;  // back is -Y
    station.SetOrientation(viewOffset, rows);
    camera.SetFocalLength(24.0);
    camera.SetFormatSize(36.0, 24.0);
  }

  static NodeRef<SoSeparator> litScene() {
    auto root = makeNode<SoSeparator>();
    root->addChild(new SoDirectionalLight);
    return root;
  }

  static SoPerspectiveCamera* addCamera(SoSeparator* root, const SbVec3f& from, const SbVec3f& to,
                                        float heightAngle = 0.6F) {
    auto* view = new SoPerspectiveCamera;
    root->insertChild(view, 0);
    view->position = from;
    view->pointAt(to, SbVec3f(0.0F, 1.0F, 0.0F));
    view->heightAngle = heightAngle;
    // The light comes over the viewer's shoulder.
    if (auto* light = childAs<SoDirectionalLight>(root, 1)) {
      light->direction = to - from + SbVec3f(0.3F, -0.5F, 0.0F) * (to - from).length();
    }
    view->nearDistance = 0.01F;
    view->farDistance = 10000.0F;
    return view;
  }

  static Picture drawn(SoNode* scene, int width = 300, int height = 200) {
    OffscreenRenderer renderer(width, height);
    renderer.setBackgroundColor(SbColor(0.35F, 0.4F, 0.5F));
    return renderer.render(scene);
  }

  // The station's symbol seen from in front of the lens, from its right and from above.
  Picture symbolSeenFrom(const SbVec3f& eye, float heightAngle) {
    auto root = litScene();
    addCamera(root.get(), eye, SbVec3f(0.0F, 0.0F, 0.0F), heightAngle);
    root->addChild(built().get());
    return drawn(root.get());
  }

  // A photograph of 60 x 40 pixels: red upper left, green upper right, blue lower left,
  // yellow lower right quarter.
  std::string writeQuarters() {
    constexpr std::uint8_t quarters[2][2][3] = {{{255, 0, 0}, {0, 255, 0}},
                                                {{0, 0, 255}, {255, 255, 0}}};
    Picture picture(60, 40);
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        std::copy_n(quarters[y / 20][x / 30], 3,
                    &picture.bytes[static_cast<std::size_t>(3 * (y * picture.width + x))]);
      }
    }
    const std::string file = folder.file("quarters.png");
    picture.writePng(file);
    return file;
  }

  NodeRef<SoSeparator> unlitScene() {
    auto root = makeNode<SoSeparator>();
    auto* model = new SoLightModel;
    model->model = SoLightModel::BASE_COLOR;
    root->addChild(model);
    auto* material = new SoMaterial;
    material->diffuseColor.setValue(1.0F, 1.0F, 1.0F);
    root->addChild(material);
    return root;
  }

  TemporaryFolder folder;
};

namespace {
std::array<int, 3> colorAt(const Picture& picture, double x, double y) {
  const std::uint8_t* pixel =
      picture.at(static_cast<int>(x * picture.width), static_cast<int>(y * picture.height));
  return {pixel[0], pixel[1], pixel[2]};
}
constexpr std::array<int, 3> red{255, 0, 0};
constexpr std::array<int, 3> green{0, 255, 0};
constexpr std::array<int, 3> blue{0, 0, 255};
constexpr std::array<int, 3> yellow{255, 255, 0};
}  // namespace

TEST_F(TarnOICameraStationSeparatorGLTest, BoxSymbolLooksAlongTheLineOfSight) {
  preferences.Set("UseNewSymbol", "0", "TarnOICamera");
  standAtTheOrigin();
  Baseline::expectMatch(symbolSeenFrom(SbVec3f(2.0F, 1.5F, -3.0F), 0.6F), "camera_box", edges);
}

TEST_F(TarnOICameraStationSeparatorGLTest, SphereSymbolStandsForAStationThatIsNotOriented) {
  standAtTheOrigin();
  station.SetOriented(0);
  station.SetGPSPosition(viewOffset);
  Baseline::expectMatch(symbolSeenFrom(SbVec3f(2.0F, 1.5F, -3.0F), 0.6F), "camera_sphere", edges);
}

TEST_F(TarnOICameraStationSeparatorGLTest, DetailedSymbolFromTheFront) {
  standAtTheOrigin();
  Baseline::expectMatch(symbolSeenFrom(SbVec3f(0.7F, 0.6F, -1.6F), 0.42F), "camera_detailed_front",
                        edges);
}

TEST_F(TarnOICameraStationSeparatorGLTest, DetailedSymbolFromBehind) {
  standAtTheOrigin();
  Baseline::expectMatch(symbolSeenFrom(SbVec3f(-0.8F, 0.9F, 1.5F), 0.42F), "camera_detailed_back",
                        edges);
}

TEST_F(TarnOICameraStationSeparatorGLTest, DetailedSymbolHighlighted) {
  standAtTheOrigin();
  auto root = litScene();
  addCamera(root.get(), SbVec3f(0.7F, 0.6F, -1.6F), SbVec3f(0.0F, 0.0F, 0.0F), 0.42F);
  auto node = built();
  root->addChild(node.get());
  auto* highlight = new SoMaterial;
  highlight->diffuseColor.setValue(1.0F, 0.2F, 0.1F);
  node->Highlight(highlight, 1);
  Baseline::expectMatch(drawn(root.get()), "camera_detailed_highlighted", edges);
}

TEST_F(TarnOICameraStationSeparatorGLTest, PhotographIsUprightAndFillsTheViewOfItsStation) {
  standAtTheOrigin();
  station.SetOrientation(position, rotation);  // turned about all axes
  photograph.SetImageFile(writeQuarters().c_str());
  preferences.Set("CamStnImageResampleFactor", "1", viewerSection);
  auto root = unlitScene();
  auto* view = new SoPerspectiveCamera;
  root->addChild(view);
  ASSERT_TRUE(TarnOICameraStationSeparator::SetCameraToMatchPhoto(view, &station, nullptr));
  scale->scaleFactor.setValue(0.01F, 0.01F, 0.01F);  // the plane is within the camera's range
  root->addChild(built(1, 0).get());
  const Picture picture = drawn(root.get());
  EXPECT_EQ(colorAt(picture, 0.02, 0.02), red);
  EXPECT_EQ(colorAt(picture, 0.98, 0.02), green);
  EXPECT_EQ(colorAt(picture, 0.02, 0.98), blue);
  EXPECT_EQ(colorAt(picture, 0.98, 0.98), yellow);
  Baseline::expectMatch(picture, "camera_photograph_from_station", edges);
}

TEST_F(TarnOICameraStationSeparatorGLTest, PhotographStandsInFrontOfTheLens) {
  standAtTheOrigin();
  photograph.SetImageFile(writeQuarters().c_str());
  preferences.Set("CamStnImageResampleFactor", "1", viewerSection);
  preferences.Set("UseNewSymbol", "0", "TarnOICamera");
  camera.SetFocalLength(0.01);
  camera.SetFormatSize(0.009, 0.006);
  auto root = litScene();
  addCamera(root.get(), SbVec3f(5.0F, 2.5F, 3.0F), SbVec3f(0.0F, 0.0F, -2.0F), 0.8F);
  root->addChild(built(1, 1).get());
  Baseline::expectMatch(drawn(root.get()), "camera_photograph_with_box", edges);
}

TEST_F(TarnOICameraStationSeparatorGLTest, SingleSidedPhotographIsSeenFromTheStationOnly) {
  standAtTheOrigin();
  photograph.SetImageFile(writeQuarters().c_str());
  preferences.Set("CamStnImageResampleFactor", "1", viewerSection);
  preferences.Set("ShowDoubleSidedImagePlaneCam", "0", viewerSection);
  preferences.Set("ShowCamsAsLines", "0", viewerSection);
  scale->scaleFactor.setValue(0.01F, 0.01F, 0.01F);
  auto root = unlitScene();
  auto* view = addCamera(root.get(), SbVec3f(0.0F, 0.0F, 0.0F), SbVec3f(0.0F, 0.0F, -1.0F));
  root->addChild(built(1, 0).get());
  EXPECT_EQ(colorAt(drawn(root.get()), 0.25, 0.25), red);
  view->position.setValue(0.0F, 0.0F, -192.0F);
  view->pointAt(SbVec3f(0.0F, 0.0F, 0.0F));
  EXPECT_NE(colorAt(drawn(root.get()), 0.75, 0.25), red);
}

TEST_F(TarnOICameraStationSeparatorGLTest, FrustumReachesToTheObject) {
  const tarn::Point3DDouble object{viewOffset.x + 3.0, viewOffset.y + 6.0, viewOffset.z - 1.0};
  standAtTheOrigin();
  // Turned about the vertical by atan2(3, 6), so that it looks above the object.
  const double length = std::sqrt(45.0);
  tarn::MatrixDouble rows(3, 3);
  rows(1, 1) = 6.0 / length;
  rows(1, 2) = -3.0 / length;
  rows(2, 3) = 1.0;
  rows(3, 1) = -3.0 / length;
  rows(3, 2) = -6.0 / length;
  station.SetOrientation(viewOffset, rows);
  extents = tarn::Extents(object, object);
  auto root = litScene();
  addCamera(root.get(), SbVec3f(-4.0F, 6.0F, 6.0F), SbVec3f(1.5F, 0.0F, -3.5F), 0.9F);
  auto node = built(0, 0, &extents);
  node->ShowFrustum(1, 0, 1.0, &extents);
  node->UpdateTextLable(1);
  root->addChild(node.get());
  auto* place = new SoTranslation;
  place->translation = ViewerFrame::fromModel(object);
  root->addChild(place);
  root->addChild(new SoCube);
  Baseline::expectMatch(drawn(root.get(), 450, 300), "camera_frustum", edges);
}
