#include "nodes/points/TarnOIObjectPointSeparator.h"

#include <Inventor/nodes/SoMaterial.h>

#include "host/model/ObjectPoint.h"
#include "tests/support/FrontView.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace {

constexpr int size = 200;

// Where something was drawn: the box around all pixels that are not black, and how many.
struct Drawn {
  int count = 0;
  int left = size;
  int right = -1;
  int top = size;
  int bottom = -1;
  std::array<int, 3> colour{};  ///< the brightest of each component

  int width() const { return right - left + 1; }
  int height() const { return bottom - top + 1; }
};

Drawn drawnIn(const Picture& picture) {
  Drawn result;
  for (int y = 0; y < picture.height; ++y) {
    for (int x = 0; x < picture.width; ++x) {
      const std::uint8_t* pixel = picture.at(x, y);
      if (!pixel[0] && !pixel[1] && !pixel[2]) continue;
      ++result.count;
      result.left = std::min(result.left, x);
      result.right = std::max(result.right, x);
      result.top = std::min(result.top, y);
      result.bottom = std::max(result.bottom, y);
      for (std::size_t i = 0; i < 3; ++i) {
        result.colour[i] = std::max(result.colour[i], static_cast<int>(pixel[i]));
      }
    }
  }
  return result;
}

}  // namespace

/// Draws one object point as seen from the front (along the model's y): 20 units wide, ten
/// pixels a unit, the view offset in the middle of the picture.
class TarnOIObjectPointSeparatorGLTest : public TarnTest {
protected:
  TarnOIObjectPointSeparatorGLTest() {
    scene->addChild(node);
    point.SetNumber(12);
    point.SetApproximation(tarn::Point3DRandom(position));
  }

  Drawn draw() { return drawnIn(renderer.render(scene.get())); }

  // 3 right of, 7 behind, 5 above the view offset: pixel (130, 50) from the upper left.
  static constexpr tarn::Point3DDouble position{viewOffset.x + 3, viewOffset.y + 7,
                                                viewOffset.z + 5};
  static constexpr int column = 130;
  static constexpr int row = 50;

  tarn::ObjectPoint point;
  OffscreenRenderer renderer{size, size};
  NodeRef<SoSeparator> scene = frontView(20.0F);
  TarnOIObjectPointSeparator* node = new TarnOIObjectPointSeparator;  // the scene's
};

TEST_F(TarnOIObjectPointSeparatorGLTest, APointIsOnePixelAtItsPlace) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  const Drawn drawn = draw();
  EXPECT_EQ(drawn.count, 1);
  EXPECT_NEAR(drawn.left, column, 1);  // the place is the corner of four pixels
  EXPECT_NEAR(drawn.top, row, 1);
}

TEST_F(TarnOIObjectPointSeparatorGLTest, AMarkerIsDrawnAroundItsPlace) {
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  const Drawn drawn = draw();
  EXPECT_GE(drawn.count, 5);
  EXPECT_LE(drawn.width(), 11);
  EXPECT_LE(drawn.height(), 11);
  // Coin puts a marker's middle to within a pixel of the place.
  EXPECT_NEAR((drawn.left + drawn.right) / 2.0, column, 1.5);
  EXPECT_NEAR((drawn.top + drawn.bottom) / 2.0, row, 1.5);
}

TEST_F(TarnOIObjectPointSeparatorGLTest, MarkersOfDifferentPointsLookDifferent) {
  node->SetObjectPoint(&point, &dictionary, 1, 0);
  const Picture ordinary = renderer.render(scene.get());
  point.SetControlPoint(1);
  node->UpdateMarkerSet(1);
  EXPECT_NE(renderer.render(scene.get()).bytes, ordinary.bytes);
}

TEST_F(TarnOIObjectPointSeparatorGLTest, AColouredPointHasTheColourOfThePhotographs) {
  point.SetRGBTextureColor(tarn::Colour(250, 100, 50));
  node->SetObjectPoint(&point, &dictionary, 1, 1);
  EXPECT_THAT(draw().colour, ::testing::ElementsAre(250, 100, 50));
}

TEST_F(TarnOIObjectPointSeparatorGLTest, AHighlightWinsOverTheColour) {
  point.SetRGBTextureColor(tarn::Colour(250, 100, 50));
  node->SetObjectPoint(&point, &dictionary, 1, 1);
  auto highlight = makeNode<SoMaterial>();
  highlight->diffuseColor.setValue(0, 1, 0);
  draw();
  node->Highlight(highlight.get(), 1);
  EXPECT_THAT(draw().colour, ::testing::ElementsAre(0, 255, 0));
  node->Highlight(highlight.get(), 0);
  EXPECT_THAT(draw().colour, ::testing::ElementsAre(250, 100, 50));
}

TEST_F(TarnOIObjectPointSeparatorGLTest, ALabelIsDrawnFromItsPlaceToTheRight) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->UpdateTextLable(1, 0);
  const Drawn drawn = draw();
  EXPECT_GT(drawn.count, 10);
  EXPECT_NEAR(drawn.left, column, 3);
  EXPECT_GT(drawn.width(), 8) << "two figures";
  EXPECT_NEAR(drawn.bottom, row, 3);
  EXPECT_GT(drawn.height(), 5);
  node->UpdateTextLable(0, 0);
  EXPECT_EQ(draw().count, 1) << "the point alone again";
}

TEST_F(TarnOIObjectPointSeparatorGLTest, AnEllipsoidIsDrawnAroundItsPlaceInItsSize) {
  // Half axes of 2 in x, 0.5 in y and 1 in z of the model, at scale 1.5 thus 30 by 15 pixels.
  point.SetApproximation(tarn::Point3DRandom(position, 4, 0.25, 1, 0, 0, 0));
  point.SetProcessed(1);
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  node->ShowErrorEllipsoid(1);
  node->SetErrorEllipsoidScale(1.5F);
  const Drawn drawn = draw();
  EXPECT_NEAR(drawn.width(), 60, 2);
  EXPECT_NEAR(drawn.height(), 30, 2);
  EXPECT_NEAR((drawn.left + drawn.right + 1) / 2.0, column, 1);
  EXPECT_NEAR((drawn.top + drawn.bottom + 1) / 2.0, row, 1);
  node->ShowErrorEllipsoid(0);
  EXPECT_EQ(draw().count, 1);
}

TEST_F(TarnOIObjectPointSeparatorGLTest, APointBoundAgainIsDrawnAtItsNewPlace) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  draw();
  point.SetApproximation(tarn::Point3DRandom(viewOffset + tarn::Point3DDouble(-4, 1, -6)));
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  const Drawn drawn = draw();
  EXPECT_EQ(drawn.count, 1);
  EXPECT_NEAR(drawn.left, 60, 1);
  EXPECT_NEAR(drawn.top, 160, 1);
}
