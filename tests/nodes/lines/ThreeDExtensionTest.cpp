#include "nodes/lines/ThreeDExtension.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoSeparator.h>

#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>

using ::testing::ElementsAre;

class ThreeDExtensionTest : public TarnTest {
protected:
  NodeRef<SoCoordinate3> coordinates;
  NodeRef<SoLineSet> lines;
  const ThreeDExtension extension{coordinates, lines};
  NodeRef<SoSeparator> node = makeNode<SoSeparator>();
};

TEST_F(ThreeDExtensionTest, IsShownAboveOneOnly) {
  EXPECT_FALSE(ThreeDExtension::isShown(1.0));
  EXPECT_TRUE(ThreeDExtension::isShown(std::nextafter(1.0, 2.0)));
  EXPECT_FALSE(ThreeDExtension::isShown(0.5));
  EXPECT_FALSE(ThreeDExtension::isShown(-3.0));
  EXPECT_FALSE(ThreeDExtension::isShown(std::numeric_limits<double>::quiet_NaN()));
}

// --- The rule

TEST_F(ThreeDExtensionTest, EachEndMovesOutwardByHalfTheSurplusAlongEachAxisByItself) {
  // x rises, y falls, z rises.
  const LineSegment::Ends ends = ThreeDExtension::prolonged({{{1, 20, 3}, {5, 4, 35}}}, 1.5);
  EXPECT_EQ(ends[0], tarn::Point3DDouble(0, 24, -5));
  EXPECT_EQ(ends[1], tarn::Point3DDouble(6, 0, 43));
}

TEST_F(ThreeDExtensionTest, TheEndsExchangedGiveTheSameSegmentExchanged) {
  const LineSegment::Ends ends = ThreeDExtension::prolonged({{{5, 4, 35}, {1, 20, 3}}}, 1.5);
  EXPECT_EQ(ends[0], tarn::Point3DDouble(6, 0, 43));
  EXPECT_EQ(ends[1], tarn::Point3DDouble(0, 24, -5));
}

TEST_F(ThreeDExtensionTest, ASegmentAlongAnAxisKeepsItsOtherCoordinates) {
  for (const double second : {7.0, -7.0}) {
    const LineSegment::Ends ends =
        ThreeDExtension::prolonged({{{1.1, 2.2, 3.0}, {1.1, 2.2, second}}}, 3.0);
    for (const tarn::Point3DDouble& end : ends) {
      EXPECT_EQ(end.x, 1.1);
      EXPECT_EQ(end.y, 2.2);
    }
    EXPECT_EQ(ends[0].z, 3.0 - (second - 3.0));
    EXPECT_EQ(ends[1].z, second + (second - 3.0));
  }
}

TEST_F(ThreeDExtensionTest, ASegmentWithoutLengthStaysWhereItIs) {
  const tarn::Point3DDouble place{1.1, -2.2, 3.3};
  const LineSegment::Ends ends = ThreeDExtension::prolonged({place, place}, 4.0);
  EXPECT_EQ(ends[0], place);
  EXPECT_EQ(ends[1], place);
}

TEST_F(ThreeDExtensionTest, HalfTheSurplusAndTheMarginAreNarrowed) {
  // Each coordinate comes out different where either of the two stays double:
  //   x0 -3900.8874165 with the margin in double, -3900.8876953 with half the surplus in
  //   double, -3900.8875 with both; y0 10152.2874463, 10152.2875977, 10152.2875;
  //   z0 -9813.1810742, -9813.1816406, -9813.18125.
  const LineSegment::Ends ends =
      ThreeDExtension::prolonged({{{1000.25, 7001.5, 512.125}, {15003.5, -2000.75, 30013.0}}}, 1.7);
  EXPECT_EQ(ends[0], tarn::Point3DDouble(-3900.88720703125, 10152.287353515625, -9813.1806640625));
  EXPECT_EQ(ends[1], tarn::Point3DDouble(19904.63720703125, -5151.537353515625, 40338.3056640625));
}

// --- The nodes

TEST_F(ThreeDExtensionTest, CoordinatesDashesAndALineOfTwoVerticesAreAppended) {
  extension.appendTo(*node);
  ASSERT_THAT(childTypes(*node), ElementsAre("Coordinate3", "DrawStyle", "LineSet"));
  EXPECT_EQ(node->getChild(0), coordinates.get());
  EXPECT_EQ(static_cast<SoDrawStyle*>(node->getChild(1))->linePattern.getValue(), 0xf0f0);
  EXPECT_EQ(node->getChild(2), lines.get());
  ASSERT_EQ(lines->numVertices.getNum(), 1);
  EXPECT_EQ(lines->numVertices[0], 2);
}

TEST_F(ThreeDExtensionTest, TheProlongedEndsArePlacedInTheViewerFrame) {
  extension.appendTo(*node);
  extension.place({{{1, 20, 3}, {5, 4, 35}}}, 1.5);
  EXPECT_THAT(::coordinates(*node, 0),
              ElementsAre(SbVec3f(-10.5F, -35.125F, -44.25F), SbVec3f(-4.5F, 12.875F, -20.25F)));
}

TEST_F(ThreeDExtensionTest, WithoutCoordinatesNothingIsPlaced) {
  extension.place({{{1, 20, 3}, {5, 4, 35}}}, 1.5);
  EXPECT_FALSE(coordinates);
}

TEST_F(ThreeDExtensionTest, RemovalLeavesTheDashesBehind) {
  extension.appendTo(*node);
  extension.removeFrom(*node);
  EXPECT_THAT(childTypes(*node), ElementsAre("DrawStyle"));
  EXPECT_FALSE(coordinates);
  EXPECT_FALSE(lines);
}

TEST_F(ThreeDExtensionTest, RemovalFromAnotherNodeForgetsTheMembersAndTakesNothingOut) {
  auto* inner = new SoSeparator;
  node->addChild(inner);
  extension.appendTo(*inner);
  extension.removeFrom(*node);
  EXPECT_THAT(childTypes(*inner), ElementsAre("Coordinate3", "DrawStyle", "LineSet"));
  EXPECT_FALSE(coordinates);
  EXPECT_FALSE(lines);
}

TEST_F(ThreeDExtensionTest, RemovalOfNothingChangesNothing) {
  node->addChild(new SoLineSet);
  extension.removeFrom(*node);
  EXPECT_EQ(node->getNumChildren(), 1);
}
