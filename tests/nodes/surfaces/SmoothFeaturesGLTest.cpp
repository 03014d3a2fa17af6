#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "host/model/ImportedSurface.h"
#include "host/model/NURBSCurve.h"
#include "host/model/NURBSSurfaceCylinder.h"
#include "host/model/Project.h"
#include "nodes/framework/TarnOITexture.h"
#include "nodes/surfaces/TarnOICurveSeparator.h"
#include "nodes/surfaces/TarnOICylinderSeparator.h"
#include "tests/support/Baseline.h"
#include "tests/support/FrontView.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <array>
#include <cmath>
#include <deque>

using tarn::Point3DDouble;

/// Draws curves, cylinders and smooth surfaces around the view offset, 300 x 200 pixels, ten a
/// unit: from the front (along the model's y), or from above it, lit from the upper left.
class SmoothFeaturesGLTest : public TarnTest {
protected:
  SmoothFeaturesGLTest() {
    for (SoShapeHints* hints : {singleSided.get(), doubleSided.get()}) {
      hints->vertexOrdering = SoShapeHints::COUNTERCLOCKWISE;
    }
    singleSided->shapeType = SoShapeHints::SOLID;
  }
  void TearDown() override {
    scene.reset();  // its nodes end before what they show
    TarnTest::TearDown();
  }

  /// A point of the model, right of, behind and above the picture's middle.
  static Point3DDouble place(double right, double behind, double above) {
    return viewOffset + Point3DDouble(right, behind, above);
  }

  void lookFromAbove() {
    auto* camera = static_cast<SoOrthographicCamera*>(scene->getChild(0));
    camera->position.setValue(10, 30, 40);
    camera->pointAt(SbVec3f(0, 0, 0), SbVec3f(0, 1, 0));
    auto* light = new SoDirectionalLight;
    light->direction.setValue(0.8F, -1.0F, -0.7F);
    scene->replaceChild(1, light);
  }
  void addColour(float red, float green, float blue) {
    auto* colour = new SoMaterial;
    colour->diffuseColor.setValue(red, green, blue);
    scene->addChild(colour);
  }

  TarnOICylinderSeparator* addCylinder(tarn::NURBSSurfaceCylinder& surface, int asCentreLine) {
    auto* node = new TarnOICylinderSeparator;
    scene->addChild(node);
    tarn::VOrdCollect* sets = surface.GetTriangleSets();
    node->SetNurbsSurface(&surface, &dictionary, singleSided.get(), doubleSided.get(), nullptr,
                          &sets, surface.GetUvMatrices(), asCentreLine);
    return node;
  }
  void addCurve(tarn::NURBSCurve& curve, double tolerance) {
    tarn::Project project;
    project.SetCurveTesselationTolerance(tolerance);
    auto* node = new TarnOICurveSeparator;
    scene->addChild(node);
    node->SetCurve(&curve, &dictionary, &project);
  }

  /// A picture of 4 by 4 fields in two colours, that at the lower left black.
  NodeRef<TarnOITexture> fields(const std::array<int, 3>& one, const std::array<int, 3>& other) {
    constexpr short size = 64;
    std::vector<unsigned char> bytes;
    for (int y = 0; y < size; ++y) {
      for (int x = 0; x < size; ++x) {
        const bool black = x < 16 && y < 16;
        for (const int byte : (x / 16 + y / 16) % 2 == 0 ? one : other) {
          bytes.push_back(static_cast<unsigned char>(black ? 0 : byte));
        }
      }
    }
    auto texture = makeNode<TarnOITexture>();
    texture->SetDictionary(&textureDictionary);
    texture->image.setValue(SbVec2s(size, size), 3, bytes.data());
    return texture;
  }

  void expectPicture(const std::string& name) {
    // Another renderer may draw an edge or a line one pixel further.
    Baseline::expectMatch(renderer.render(scene.get()), name, {255, 1.0});
  }

  tarn::VDictionary textureDictionary;
  NodeRef<SoShapeHints> singleSided = makeNode<SoShapeHints>();
  NodeRef<SoShapeHints> doubleSided = makeNode<SoShapeHints>();
  OffscreenRenderer renderer{300, 200};
  NodeRef<SoSeparator> scene = frontView(20.0F);
};

TEST_F(SmoothFeaturesGLTest, APatchInTwoTexturedHalves) {
  tarn::NURBSSurface patch;
  std::vector<Point3DDouble> net;
  for (int j = 0; j < 5; ++j) {
    for (int i = 0; i < 6; ++i) {
      net.push_back(place(4.4 * i - 11, 4 * j - 8, 4 * std::sin(1.6 * i) * std::cos(0.9 * j)));
    }
  }
  ASSERT_TRUE(
      patch.SetSurface(3, {0, 0, 0, 0, 1, 2, 3, 3, 3, 3}, 3, {0, 0, 0, 0, 1, 2, 2, 2, 2}, net));
  ASSERT_TRUE(patch.Tessellate(0.02));

  // Its triangles in two sets, each with a picture of its own over its half.
  tarn::ImportedSurface halves;
  for (int half = 0; half < 2; ++half) {
    halves.AddTriangleSet();
    for (int i = 0; i < patch.GetTriangles()->size(); ++i) {
      auto* triangle = static_cast<tarn::Triangle*>(patch.GetTriangles()->at(i));
      const auto& uv = *static_cast<tarn::MatrixDouble*>(patch.GetUvMatrices()->atKey(triangle));
      const double middle = (uv(1, 1) + uv(2, 1) + uv(3, 1)) / 3;
      if ((middle > 0.5) != (half == 1)) continue;
      tarn::Triangle& moved = halves.AddTriangle(half, triangle->GetPoint(0), triangle->GetPoint(1),
                                                 triangle->GetPoint(2));
      std::array<std::array<double, 2>, 3> corners;
      for (int k = 0; k < 3; ++k) {
        moved.SetNormal(k, triangle->GetNormal(k));
        corners[static_cast<std::size_t>(k)] = {2 * uv(k + 1, 1) - half, uv(k + 1, 2)};
      }
      halves.SetTextureCoordinates(moved, corners);
    }
  }
  const auto first = fields({220, 30, 30}, {240, 240, 240});
  const auto second = fields({40, 60, 220}, {240, 220, 40});
  TarnOITexture* textures[] = {first.get(), second.get()};

  lookFromAbove();
  addColour(1, 1, 1);
  auto* node = new TarnOINurbsSurfaceSeparator;
  scene->addChild(node);
  halves.SetDoubleSided(1);
  tarn::VOrdCollect* sets = halves.GetTriangleSets();
  node->SetNurbsSurface(&halves, &dictionary, singleSided.get(), doubleSided.get(), textures, &sets,
                        halves.GetUvMatrices());
  expectPicture("smooth_patch_in_two_textures");
  scene.reset();
}

TEST_F(SmoothFeaturesGLTest, ACylinderAsSurfaceWithItsProlongedAxis) {
  lookFromAbove();
  tarn::NURBSSurfaceCylinder surface;
  surface.GetCylinder()->SetEndPoints(place(-5, 2, -2), place(5, -3, 2));
  surface.GetCylinder()->SetRadius(3);
  surface.GetCylinder()->SetThreeDExtenstionFactor(2.2);
  ASSERT_TRUE(surface.Tessellate(0.01));
  addColour(0.3F, 0.7F, 0.9F);
  // The axis is lit by the surface's normals, and dark here.
  renderer.setBackgroundColor(SbColor(0.6F, 0.6F, 0.6F));
  addCylinder(surface, 0);
  expectPicture("cylinder_surface");
  scene.reset();
}

TEST_F(SmoothFeaturesGLTest, CylindersAsCentreLinesWithAndWithoutProlongedAxis) {
  tarn::NURBSSurfaceCylinder prolonged;
  prolonged.GetCylinder()->SetEndPoints(place(-6, 2, -4), place(6, -3, 2));
  prolonged.GetCylinder()->SetThreeDExtenstionFactor(1.8);
  tarn::NURBSSurfaceCylinder measured;
  measured.GetCylinder()->SetEndPoints(place(-8, 2, 6), place(8, -3, 6));
  addCylinder(prolonged, 1);
  addCylinder(measured, 1);
  expectPicture("cylinder_centre_lines");
  scene.reset();
}

TEST_F(SmoothFeaturesGLTest, CurvesWithAKinkAndToTwoTolerances) {
  tarn::NURBSCurve circle;
  std::vector<Point3DDouble> square;
  constexpr int corners[9][2] = {{1, 0},   {1, 1},  {0, 1},  {-1, 1}, {-1, 0},
                                 {-1, -1}, {0, -1}, {1, -1}, {1, 0}};
  std::vector<double> weights;
  for (const auto& [x, z] : corners) {
    square.push_back(place(7 * x - 7, 0, 7 * z));
    weights.push_back(x != 0 && z != 0 ? std::sqrt(0.5) : 1.0);
  }
  ASSERT_TRUE(circle.SetCurve(2, {0, 0, 0, 1, 1, 2, 2, 3, 3, 4, 4, 4}, square, weights));
  tarn::NURBSCurve kinked;
  ASSERT_TRUE(kinked.SetCurve(3, {0, 0, 0, 0, 1, 1, 1, 2, 2, 2, 2},
                              {place(2, 0, -8), place(4, 0, 12), place(6, 0, -10), place(8, 0, 8),
                               place(9, 0, -4), place(13, 0, -9), place(14, 0, 8)}));
  addCurve(circle, 0.005);
  addCurve(kinked, 0.005);
  auto* colour = new SoBaseColor;
  colour->rgb.setValue(1, 0.6F, 0);
  scene->addChild(colour);
  addCurve(circle, 1.5);
  expectPicture("curves");
  scene.reset();
}

TEST_F(SmoothFeaturesGLTest, ACylindersOutlineIsAsWideAsTwiceItsRadius) {
  tarn::NURBSSurfaceCylinder surface;
  surface.GetCylinder()->SetEndPoints(place(1, 0, -8), place(1, 0, 8));
  surface.GetCylinder()->SetRadius(4);
  ASSERT_TRUE(surface.Tessellate(0.005));
  addCylinder(surface, 0);
  const Picture picture = renderer.render(scene.get());
  const auto isDrawn = [&](int x, int y) { return picture.at(x, y)[0] > 0; };
  for (const int y : {22, 100, 177}) {
    int width = 0;
    for (int x = 0; x < picture.width; ++x) width += isDrawn(x, y);
    EXPECT_NEAR(width, 80, 1) << y;
    EXPECT_TRUE(isDrawn(122, y) && isDrawn(197, y));
  }
  EXPECT_FALSE(isDrawn(160, 17) || isDrawn(160, 182));
  scene.reset();
}
