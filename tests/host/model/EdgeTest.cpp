#include "host/model/Edge.h"

#include "tests/support/TarnTest.h"

#include <memory>

using tarn::Point3DDouble;

class EdgeTest : public TarnTest {
protected:
  Point3DDouble p0{7.0, 8.0, 9.0};
  Point3DDouble p1{-7.0, -8.0, -9.0};
  tarn::Edge edge;
};

TEST_F(EdgeTest, ANewEdgeHasNoPositionsAndLeavesTheCallersAlone) {
  EXPECT_EQ(edge.GetPointsForm(p0, p1), 0);
  EXPECT_EQ(p0, Point3DDouble(7.0, 8.0, 9.0));
  EXPECT_EQ(p1, Point3DDouble(-7.0, -8.0, -9.0));
  EXPECT_EQ(edge.GetThreeDExtenstionFactor(), 1.0);
}

TEST_F(EdgeTest, GivesThePositionsItWasSetTo) {
  edge.SetPointsForm({1.5, 2.25, -3.75}, {4.0, -5.5, 6.125});
  EXPECT_EQ(edge.GetPointsForm(p0, p1), 1);
  EXPECT_EQ(p0, Point3DDouble(1.5, 2.25, -3.75));
  EXPECT_EQ(p1, Point3DDouble(4.0, -5.5, 6.125));
}

TEST_F(EdgeTest, GivesTheFactorItWasSetTo) {
  edge.SetThreeDExtenstionFactor(2.5);
  EXPECT_EQ(edge.GetThreeDExtenstionFactor(), 2.5);
}

TEST_F(EdgeTest, IsMadeByItsRecord) {
  const std::unique_ptr<tarn::VObject> made(tarn::EdgeCls.create());
  ASSERT_NE(made, nullptr);
  EXPECT_TRUE(made->isA(tarn::EdgeCls));
  EXPECT_EQ(tarn::VClass::find("Edge"), &tarn::EdgeCls);
}
