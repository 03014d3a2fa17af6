#include "nodes/meshes/TarnOIContourSeparator.h"

#include <Inventor/nodes/SoMaterial.h>

#include "host/classes/VOrdCollect.h"
#include "host/model/PointMeshContour.h"
#include "tests/support/FrontView.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <algorithm>
#include <vector>

/// Draws one contour as seen from the front (along the model's y): 20 units wide, five pixels
/// a unit, the view offset in the middle of the picture.
class TarnOIContourSeparatorGLTest : public TarnTest {
protected:
  static constexpr int size = 100;

  TarnOIContourSeparatorGLTest() {
    scene->addChild(node);
    useFixedColor();
    preferences.Set("ContourColor(RRRGGGBBB_0-255)", "255000000", "DenseStereo");
    preferences.Set("SelectionColor", "000255000", "Colors");
    // Two pieces from left to right, at the middle's height.
    contour.SetPoints(std::vector<tarn::Point3DDouble>{at(-8), at(0), at(8)});
  }

  static tarn::Point3DDouble at(double right) {
    return {viewOffset.x + right, viewOffset.y + 5, viewOffset.z + 0.1};
  }

  void useFixedColor() { preferences.Set("ContoursUseFixedColor", "1", "DenseStereo"); }

  /// The brightest of each component in the column of that place.
  std::vector<int> colourAt(double right) {
    const Picture picture = renderer.render(scene.get());
    const int x = size / 2 + static_cast<int>(right * size / 20);
    std::vector<int> brightest(3, 0);
    for (int y = 0; y < size; ++y) {
      for (std::size_t i = 0; i < 3; ++i) {
        brightest[i] = std::max(brightest[i], static_cast<int>(picture.at(x, y)[i]));
      }
    }
    return brightest;
  }

  const std::vector<int> black{0, 0, 0};
  const std::vector<int> red{255, 0, 0};
  const std::vector<int> green{0, 255, 0};
  const std::vector<int> blue{0, 0, 255};

  tarn::PointMeshContour contour;
  tarn::VOrdCollect indexes;
  OffscreenRenderer renderer{size, size};
  NodeRef<SoSeparator> scene = frontView(20.0F);
  TarnOIContourSeparator* node = new TarnOIContourSeparator;  // the scene's
};

TEST_F(TarnOIContourSeparatorGLTest, IsALineInTheContourColourFromItsFirstPointToItsLast) {
  node->SetContour(&contour, &dictionary);
  EXPECT_EQ(colourAt(-9), black);
  EXPECT_EQ(colourAt(-7), red);
  EXPECT_EQ(colourAt(7), red);
  EXPECT_EQ(colourAt(9), black);
}

TEST_F(TarnOIContourSeparatorGLTest, WithoutAnyPointNothingIsDrawn) {
  contour.SetPoints({});
  node->SetContour(&contour, &dictionary);
  node->HighlightSubPoints(nullptr);
  for (const double right : {-9, -7, 0, 7}) EXPECT_EQ(colourAt(right), black) << right;
}

TEST_F(TarnOIContourSeparatorGLTest, APieceHasTheColourOfThePointThatItStartsAt) {
  node->SetContour(&contour, &dictionary);
  indexes.addIndex(1);
  node->HighlightSubPoints(&indexes);
  EXPECT_EQ(colourAt(-4), red);
  EXPECT_EQ(colourAt(4), green);
  node->ClearSubPointHighlights();
  EXPECT_EQ(colourAt(4), red);
}

TEST_F(TarnOIContourSeparatorGLTest, PointsHaveTheirOwnColours) {
  preferences.Set("IncludePointsInContours", "1", "DenseStereo");
  contour.SetPoints(std::vector<tarn::Point3DDouble>{at(-8), at(8)});
  node->SetContour(&contour, &dictionary);
  indexes.addIndex(1);
  node->HighlightSubPoints(&indexes);
  EXPECT_EQ(colourAt(0), red);
  EXPECT_EQ(colourAt(8), green);
}

TEST_F(TarnOIContourSeparatorGLTest, AHighlightOfTheWholeContourPaintsAllOfIt) {
  auto whole = makeNode<SoMaterial>();
  whole->diffuseColor.setValue(0, 0, 1);
  node->SetContour(&contour, &dictionary);
  indexes.addIndex(1);
  node->HighlightSubPoints(&indexes);
  node->Highlight(whole.get(), 1);
  EXPECT_EQ(colourAt(-4), blue);
  EXPECT_EQ(colourAt(4), blue);
  node->Highlight(whole.get(), 0);
  EXPECT_EQ(colourAt(-4), red);
  EXPECT_EQ(colourAt(4), green);
}
