#include "nodes/framework/LineSegment.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>

#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;

class LineSegmentTest : public TarnTest {
protected:
  NodeRef<SoSeparator> node = makeNode<SoSeparator>();
  const LineSegment::Ends ends{{{1.5, 2.25, -3.75}, {-4.0, 5.5, 6.0}}};
};

TEST_F(LineSegmentTest, ANodeWithoutChildrenGetsCoordinatesAndALineOfTwoVertices) {
  SoCoordinate3* coordinates = LineSegment::findOrAppend(*node, "Class", 7);
  ASSERT_THAT(childTypes(*node), ElementsAre("Coordinate3", "LineSet"));
  EXPECT_EQ(coordinates, node->getChild(0));
  const auto* lines = static_cast<SoLineSet*>(node->getChild(1));
  ASSERT_EQ(lines->numVertices.getNum(), 1);
  EXPECT_EQ(lines->numVertices[0], 2);
}

TEST_F(LineSegmentTest, TheFirstCoordinatesOfSeveralAreTaken) {
  node->addChild(new SoMaterial);
  SoCoordinate3* first = LineSegment::append(*node);
  LineSegment::append(*node);
  const auto before = children(*node);
  EXPECT_EQ(LineSegment::findOrAppend(*node, "Class", 7), first);
  EXPECT_THAT(children(*node), ElementsAreArray(before));
}

TEST_F(LineSegmentTest, ChildrenWithoutCoordinatesAreReportedUnderTheNodesClassAndLine) {
  node->addChild(new SoMaterial);
  node->addChild(new SoCube);
  EXPECT_EQ(LineSegment::findOrAppend(*node, "Class", 7), nullptr);
  EXPECT_THAT(
      takeAssertions(),
      ElementsAre(IsAssertionAt("node->getTypeId().isDerivedFrom(SoCoordinate3::getClassTypeId() )",
                                "Class", 7)));
  EXPECT_EQ(node->getNumChildren(), 2);
}

TEST_F(LineSegmentTest, TheEndsAreShownInTheViewerFrame) {
  SoCoordinate3* coordinates = LineSegment::append(*node);
  LineSegment::place(*coordinates, ends);
  ASSERT_EQ(coordinates->point.getNum(), 2);
  EXPECT_EQ(coordinates->point[0], SbVec3f(-9.0F, -33.875F, -22.5F));
  EXPECT_EQ(coordinates->point[1], SbVec3f(-14.5F, -24.125F, -25.75F));
}

TEST_F(LineSegmentTest, EndsThatAreInTheViewerFrameAlreadyAreWrittenAsTheyAre) {
  SoCoordinate3* coordinates = LineSegment::append(*node);
  LineSegment::place(*coordinates, std::array{SbVec3f(1, 2, 3), SbVec3f(4, 5, 6)});
  ASSERT_EQ(coordinates->point.getNum(), 2);
  EXPECT_EQ(coordinates->point[0], SbVec3f(1, 2, 3));
  EXPECT_EQ(coordinates->point[1], SbVec3f(4, 5, 6));
}

TEST_F(LineSegmentTest, BothEndsAreSignalledOnce) {
  SoCoordinate3* coordinates = LineSegment::append(*node);
  const SignalCount signals(coordinates);
  LineSegment::place(*coordinates, ends);
  EXPECT_EQ(signals.count(), 1);
}

TEST_F(LineSegmentTest, FurtherCoordinatesStay) {
  SoCoordinate3* coordinates = LineSegment::append(*node);
  coordinates->point.set1Value(2, SbVec3f(1, 2, 3));
  LineSegment::place(*coordinates, ends);
  ASSERT_EQ(coordinates->point.getNum(), 3);
  EXPECT_EQ(coordinates->point[2], SbVec3f(1, 2, 3));
}
