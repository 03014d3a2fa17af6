#include "nodes/lines/TarnOILineSeparator.h"

#include "host/model/ImportedPoint.h"
#include "host/model/Line.h"
#include "host/model/ObjectPoint.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;

/// What is a line's alone; StraightFeatureTest has what lines and edges do alike.
class TarnOILineSeparatorTest : public TarnTest {
protected:
  TarnOILineSeparatorTest() {
    first.SetApproximation(tarn::Point3DRandom({1, 20, 3}));
    second.SetStoredPosition(tarn::Point3DRandom({5, 4, 35}));
  }

  std::vector<SbVec3f> ends(int child) const { return coordinates(*node, child); }

  // The model's origin, as the fixture's view offset shows it.
  const SbVec3f origin{-10.5F, -30.125F, -20.25F};

  tarn::ObjectPoint first;
  tarn::ImportedPoint second;
  tarn::Line line;
  NodeRef<TarnOILineSeparator> node = makeNode<TarnOILineSeparator>();
};

TEST_F(TarnOILineSeparatorTest, EndsMayBePointsOfDifferentKinds) {
  line.SetThreeDPoints(&first, &second);
  node->SetLine(&line, &dictionary);
  EXPECT_THAT(ends(0),
              ElementsAre(SbVec3f(-9.5F, -27.125F, -40.25F), SbVec3f(-5.5F, 4.875F, -24.25F)));
}

TEST_F(TarnOILineSeparatorTest, ALineWithoutPointsIsDrawnAtTheModelsOriginWithoutAReport) {
  node->SetLine(&line, &dictionary);
  EXPECT_THAT(ends(0), ElementsAre(origin, origin));
}

TEST_F(TarnOILineSeparatorTest, AMissingPointLeavesItsEndAtTheModelsOrigin) {
  line.SetThreeDPoints(nullptr, &second);
  node->SetLine(&line, &dictionary);
  EXPECT_THAT(ends(0), ElementsAre(origin, SbVec3f(-5.5F, 4.875F, -24.25F)));
  line.SetThreeDPoints(&first, nullptr);
  node->SetLine(&line, &dictionary);
  EXPECT_THAT(ends(0), ElementsAre(SbVec3f(-9.5F, -27.125F, -40.25F), origin));
}

TEST_F(TarnOILineSeparatorTest, APointWithoutAPositionLeavesItsEndAtTheModelsOrigin) {
  tarn::ObjectPoint unmeasured;
  line.SetThreeDPoints(&first, &unmeasured);
  node->SetLine(&line, &dictionary);
  EXPECT_THAT(ends(0), ElementsAre(SbVec3f(-9.5F, -27.125F, -40.25F), origin));
}

TEST_F(TarnOILineSeparatorTest, TheExtensionOfALineWithAMissingPointBeginsAtTheOriginToo) {
  line.SetThreeDPoints(nullptr, &second);
  line.SetThreeDExtenstionFactor(3.0);
  node->SetLine(&line, &dictionary);
  EXPECT_THAT(ends(2),
              ElementsAre(SbVec3f(-15.5F, -65.125F, -16.25F), SbVec3f(-0.5F, 39.875F, -28.25F)));
}

TEST_F(TarnOILineSeparatorTest, ALineThatAnswersFromItsOwnModelIsAskedForBothEnds) {
  struct OwnLine : tarn::Line {
    mutable tarn::ThreeDPoint point;
    tarn::ThreeDPoint* GetThreeDPoint(int index) const override {
      point.SetApproximation(tarn::Point3DRandom({10.5 + index, 0, 30.125}));
      return &point;
    }
    double GetThreeDExtenstionFactor() const override { return 3.0; }
  } own;
  node->SetLine(&own, &dictionary);
  EXPECT_THAT(ends(0), ElementsAre(SbVec3f(0, 0, -20.25F), SbVec3f(1, 0, -20.25F)));
  EXPECT_THAT(ends(2), ElementsAre(SbVec3f(-1, 0, -20.25F), SbVec3f(2, 0, -20.25F)));
  node.reset();
}
