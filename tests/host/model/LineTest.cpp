#include "host/model/Line.h"

#include "host/model/ImportedPoint.h"
#include "host/model/SurfacePoint.h"
#include "tests/support/TarnTest.h"

#include <memory>

class LineTest : public TarnTest {
protected:
  tarn::SurfacePoint first;
  tarn::ImportedPoint second;
  tarn::Line line;
};

TEST_F(LineTest, ANewLineHasNoPointsAndIsNotProlonged) {
  EXPECT_EQ(line.GetThreeDPoint(0), nullptr);
  EXPECT_EQ(line.GetThreeDPoint(1), nullptr);
  EXPECT_EQ(line.GetThreeDExtenstionFactor(), 1.0);
}

TEST_F(LineTest, GivesItsPointsOfWhateverKindByIndex) {
  line.SetThreeDPoints(&first, &second);
  EXPECT_EQ(line.GetThreeDPoint(0), &first);
  EXPECT_EQ(line.GetThreeDPoint(1), &second);
}

TEST_F(LineTest, HasNoPointsBeyondItsTwo) {
  line.SetThreeDPoints(&first, &second);
  EXPECT_EQ(line.GetThreeDPoint(2), nullptr);
  EXPECT_EQ(line.GetThreeDPoint(-1), nullptr);
}

TEST_F(LineTest, GivesTheFactorItWasSetTo) {
  line.SetThreeDExtenstionFactor(2.5);
  EXPECT_EQ(line.GetThreeDExtenstionFactor(), 2.5);
}

TEST_F(LineTest, IsAFeatureAndIsMadeByItsRecord) {
  EXPECT_TRUE(line.isA(tarn::FeatureCls));
  const std::unique_ptr<tarn::VObject> made(tarn::LineCls.create());
  ASSERT_NE(made, nullptr);
  EXPECT_TRUE(made->isA(tarn::LineCls));
  EXPECT_EQ(tarn::VClass::find("Line"), &tarn::LineCls);
}
