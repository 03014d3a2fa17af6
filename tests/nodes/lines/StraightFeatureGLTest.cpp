#include <Inventor/nodes/SoBaseColor.h>

#include "host/model/Edge.h"
#include "host/model/Line.h"
#include "host/model/ThreeDPoint.h"
#include "nodes/lines/TarnOIEdgeSeparator.h"
#include "nodes/lines/TarnOILineSeparator.h"
#include "tests/support/Baseline.h"
#include "tests/support/FrontView.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <deque>

/// Draws lines and edges as seen from the front (along the model's y): 30 by
/// 20 units, ten pixels a unit, the view offset in the middle of the picture.
class StraightFeatureGLTest : public TarnTest {
protected:
  /// A point of the model, right of and above the picture's middle.
  static tarn::Point3DDouble place(double right, double above) {
    return viewOffset + tarn::Point3DDouble(right, 0.0, above);
  }

  TarnOILineSeparator* addLine(const tarn::Point3DDouble& p0, const tarn::Point3DDouble& p1,
                               double factor) {
    tarn::ThreeDPoint& first = points.emplace_back();
    tarn::ThreeDPoint& second = points.emplace_back();
    first.SetApproximation(tarn::Point3DRandom(p0));
    second.SetApproximation(tarn::Point3DRandom(p1));
    tarn::Line& line = lines.emplace_back();
    line.SetThreeDPoints(&first, &second);
    line.SetThreeDExtenstionFactor(factor);
    auto* node = new TarnOILineSeparator;
    node->SetLine(&line, &dictionary);
    scene->addChild(node);
    return node;
  }

  TarnOIEdgeSeparator* addEdge(const tarn::Point3DDouble& p0, const tarn::Point3DDouble& p1,
                               double factor) {
    tarn::Edge& edge = edges.emplace_back();
    edge.SetPointsForm(p0, p1);
    edge.SetThreeDExtenstionFactor(factor);
    auto* node = new TarnOIEdgeSeparator;
    node->SetEdge(&edge, &dictionary);
    scene->addChild(node);
    return node;
  }

  Picture draw() { return renderer.render(scene.get()); }

  /// How many pixels are drawn in columns [from, to) of a row and its two neighbours, one
  /// counted a column: a line along pixel borders may fall to either side.
  static int drawnIn(const Picture& picture, int row, int from, int to) {
    int count = 0;
    for (int x = from; x < to; ++x) {
      bool any = false;
      for (int y = row - 1; y <= row + 1; ++y) any |= picture.at(x, y)[0] > 0;
      count += any;
    }
    return count;
  }

  std::deque<tarn::ThreeDPoint> points;
  std::deque<tarn::Line> lines;
  std::deque<tarn::Edge> edges;
  OffscreenRenderer renderer{300, 200};
  NodeRef<SoSeparator> scene = frontView(20.0F);
};

TEST_F(StraightFeatureGLTest, LinesAndEdgesWithAndWithoutExtension) {
  addLine(place(-10, 8), place(10, 8), 1.0);
  addLine(place(-8, 6), place(8, 2), 1.5);
  auto* yellow = new SoBaseColor;
  yellow->rgb.setValue(1, 1, 0);
  scene->addChild(yellow);
  addEdge(place(-10, -2), place(10, -2), 1.0);
  addEdge(place(8, -8), place(-8, -4), 1.5);
  // Another renderer may draw a line one pixel further.
  Baseline::expectMatch(draw(), "lines_and_edges", {255, 0.5});
}

TEST_F(StraightFeatureGLTest, TheMeasuredPartIsDrawnThroughAndTheProlongationsAreDashed) {
  addLine(place(-5, 0), place(5, 0), 2.0);  // columns 100 to 200, prolonged from 50 to 250
  const Picture picture = draw();
  EXPECT_NEAR(drawnIn(picture, 100, 100, 200), 100, 1);
  EXPECT_NEAR(drawnIn(picture, 100, 50, 98), 24, 5) << "half of the pattern";
  EXPECT_NEAR(drawnIn(picture, 100, 202, 250), 24, 5);
  EXPECT_EQ(drawnIn(picture, 100, 0, 48), 0);
  EXPECT_EQ(drawnIn(picture, 100, 252, 300), 0);
}

TEST_F(StraightFeatureGLTest, TheDashesEndWithTheExtension) {
  TarnOIEdgeSeparator* node = addEdge(place(-5, 0), place(5, 0), 2.0);
  draw();
  edges.front().SetThreeDExtenstionFactor(1.0);
  node->SetEdge(&edges.front(), &dictionary);
  const Picture picture = draw();
  EXPECT_NEAR(drawnIn(picture, 100, 100, 200), 100, 1)
      << "the draw style left behind dashes nothing";
  EXPECT_EQ(drawnIn(picture, 100, 0, 98) + drawnIn(picture, 100, 202, 300), 0);
}

TEST_F(StraightFeatureGLTest, TheDashesStayWithinTheNode) {
  addLine(place(-5, 5), place(5, 5), 2.0);
  addLine(place(-5, -5), place(5, -5), 1.0);
  EXPECT_NEAR(drawnIn(draw(), 150, 100, 200), 100, 1);
}
