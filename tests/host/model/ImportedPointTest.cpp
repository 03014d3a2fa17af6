#include "host/model/ImportedPoint.h"

#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;
using tarn::Point3DRandom;

class ImportedPointTest : public TarnTest {
protected:
  tarn::ImportedPoint point;
  Point3DRandom found;
};

TEST_F(ImportedPointTest, ANewPointIsActiveAndHasNoPosition) {
  EXPECT_TRUE(point.IsActive(0));
  EXPECT_TRUE(point.IsActive(1));
  EXPECT_FALSE(point.GetApproximation(found));
  EXPECT_EQ(point.GetStoredPosition().position(), Point3DDouble());
  EXPECT_TRUE(point.GetName().isEmpty());
  EXPECT_EQ(point.GetIDNumber(), 0);
}

TEST_F(ImportedPointTest, AnswersItsNameAndNumber) {
  point.SetName("P4");
  point.SetIDNumber(4);
  EXPECT_STREQ(point.GetName().text(), "P4");
  EXPECT_EQ(point.GetIDNumber(), 4);
}

TEST_F(ImportedPointTest, AnActivePointIsWhereItWasImported) {
  point.SetStoredPosition(Point3DRandom(Point3DDouble{1.0, 2.0, 3.0}));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(1.0, 2.0, 3.0));
}

TEST_F(ImportedPointTest, AnInactivePointHasItsStoredPositionOnly) {
  point.SetStoredPosition(Point3DRandom(Point3DDouble{1.0, 2.0, 3.0}));
  point.SetActive(0);
  EXPECT_FALSE(point.IsActive(1));
  EXPECT_FALSE(point.GetApproximation(found));
  EXPECT_EQ(point.GetStoredPosition().position(), Point3DDouble(1.0, 2.0, 3.0));
}

TEST_F(ImportedPointTest, AnAdjustedPositionGoesBeforeTheImportedOne) {
  point.SetStoredPosition(Point3DRandom(Point3DDouble{1.0, 2.0, 3.0}));
  point.SetApproximation(Point3DRandom(Point3DDouble{4.0, 5.0, 6.0}));
  ASSERT_TRUE(point.GetApproximation(found));
  EXPECT_EQ(found.position(), Point3DDouble(4.0, 5.0, 6.0));
  EXPECT_EQ(point.GetStoredPosition().position(), Point3DDouble(1.0, 2.0, 3.0));
}
