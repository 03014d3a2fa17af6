#include "nodes/surfaces/TarnOIImportedLineSeparator.h"

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoLineSet.h>

#include "host/model/ImportedLine.h"
#include "host/model/ImportedPoint.h"
#include "nodes/framework/NodeRef.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;

class TarnOIImportedLineSeparatorTest : public TarnTest {
protected:
  TarnOIImportedLineSeparatorTest() {
    first.SetApproximation(tarn::Point3DRandom({1, 20, 3}));
    second.SetStoredPosition(tarn::Point3DRandom({5, 4, 35}));
    line.SetThreeDPoints(&first, &second);
  }
  std::vector<SbVec3f> ends() const { return coordinates(*node, 0); }

  const SbVec3f firstEnd{-9.5F, -27.125F, -40.25F};
  const SbVec3f secondEnd{-5.5F, 4.875F, -24.25F};
  // The model's origin, as the fixture's view offset shows it.
  const SbVec3f origin{-10.5F, -30.125F, -20.25F};

  tarn::ThreeDPoint first;
  tarn::ImportedPoint second;
  tarn::ImportedLine line;
  NodeRef<TarnOIImportedLineSeparator> node = makeNode<TarnOIImportedLineSeparator>();
};

TEST_F(TarnOIImportedLineSeparatorTest, IsASegmentBetweenItsEnds) {
  node->SetImportedLine(&line, &dictionary);
  ASSERT_EQ(node->getNumChildren(), 2);
  EXPECT_THAT(ends(), ElementsAre(firstEnd, secondEnd));
  const auto* lines = static_cast<SoLineSet*>(node->getChild(1));
  ASSERT_EQ(lines->getTypeId(), SoLineSet::getClassTypeId());
  EXPECT_EQ(lines->numVertices.getNum(), 1);
  EXPECT_EQ(lines->numVertices[0], 2);
  EXPECT_EQ(dictionary.atKey(&line), node.get());
}

TEST_F(TarnOIImportedLineSeparatorTest, AnInactiveEndStandsAtItsStoredPosition) {
  second.SetActive(0);
  node->SetImportedLine(&line, &dictionary);
  EXPECT_THAT(ends(), ElementsAre(firstEnd, secondEnd));
}

TEST_F(TarnOIImportedLineSeparatorTest, AMissingEndStandsAtTheModelsOriginWithoutAReport) {
  line.SetThreeDPoints(&first, nullptr);
  node->SetImportedLine(&line, &dictionary);
  EXPECT_THAT(ends(), ElementsAre(firstEnd, origin));
}

TEST_F(TarnOIImportedLineSeparatorTest, AnEndWithoutPositionStandsAtTheModelsOriginWithoutAReport) {
  tarn::ImportedPoint activeNowhere;
  tarn::ThreeDPoint unmeasured;
  line.SetThreeDPoints(&unmeasured, &activeNowhere);
  node->SetImportedLine(&line, &dictionary);
  EXPECT_THAT(ends(), ElementsAre(origin, origin));
}

TEST_F(TarnOIImportedLineSeparatorTest, CalledAgainItMovesTheEndsInPlace) {
  node->SetImportedLine(&line, &dictionary);
  SoNode* const kept = node->getChild(0);
  first.SetApproximation(tarn::Point3DRandom({5, 4, 35}));
  node->SetImportedLine(&line, &dictionary);
  ASSERT_EQ(node->getNumChildren(), 2);
  EXPECT_EQ(node->getChild(0), kept);
  EXPECT_THAT(ends(), ElementsAre(secondEnd, secondEnd));
}

TEST_F(TarnOIImportedLineSeparatorTest, ChildrenWithoutCoordinatesAreReported) {
  node->addChild(new SoCube);
  node->SetImportedLine(&line, &dictionary);
  EXPECT_THAT(
      takeAssertions(),
      ElementsAre(IsAssertionAt("node->getTypeId().isDerivedFrom(SoCoordinate3::getClassTypeId() )",
                                "TarnOIImportedLineSeparator", 111)));
  EXPECT_EQ(node->getNumChildren(), 1);
}

TEST_F(TarnOIImportedLineSeparatorTest, ACopyIsSetFromTheModelAnew) {
  node->SetImportedLine(&line, &dictionary);
  first.SetApproximation(tarn::Point3DRandom({5, 4, 35}));
  const NodeRef<SoGroup> copy(static_cast<SoGroup*>(node->copy()));
  EXPECT_EQ(dictionary.atKey(&line), copy.get());
  ASSERT_EQ(copy->getNumChildren(), 2);
  EXPECT_THAT(coordinates(*copy, 0), ElementsAre(secondEnd, secondEnd));
  EXPECT_THAT(ends(), ElementsAre(firstEnd, secondEnd));
}

TEST_F(TarnOIImportedLineSeparatorTest, ACopyOfANodeThatShowsNothingIsEmpty) {
  const NodeRef<SoGroup> copy(static_cast<SoGroup*>(node->copy()));
  EXPECT_EQ(copy->getNumChildren(), 0);
}

TEST_F(TarnOIImportedLineSeparatorTest, NullOnlyUnbinds) {
  node->SetImportedLine(&line, &dictionary);
  node->SetImportedLine(nullptr, &dictionary);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(node->getNumChildren(), 2);
}
