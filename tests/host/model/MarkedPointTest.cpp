#include "host/model/MarkedPoint.h"

#include "host/model/ObjectPoint.h"
#include "host/model/Photograph.h"
#include "tests/support/TarnTest.h"

using tarn::MarkedPoint;
using tarn::Point2DDouble;

class MarkedPointTest : public TarnTest {};

TEST_F(MarkedPointTest, AnswersWhatItWasMadeOf) {
  tarn::Photograph photograph;
  const MarkedPoint mark(&photograph, {812.25, 431.5}, 2);
  EXPECT_EQ(mark.GetPhotograph(), &photograph);
  EXPECT_EQ(mark.GetPosition(), (Point2DDouble{812.25, 431.5}));
  EXPECT_TRUE(mark.IsSubPixel());
  EXPECT_EQ(mark.GetObjectPoint(), nullptr);
}

TEST_F(MarkedPointTest, AResidualIsUnknownUntilItIsSet) {
  MarkedPoint mark(nullptr, {1.0, 2.0});
  Point2DDouble residual{7.0, 8.0};
  EXPECT_FALSE(mark.GetResidual(residual));
  EXPECT_EQ(residual, (Point2DDouble{7.0, 8.0}));
  mark.SetResidual({0.25, -0.5});
  EXPECT_TRUE(mark.GetResidual(residual));
  EXPECT_EQ(residual, (Point2DDouble{0.25, -0.5}));
}

TEST_F(MarkedPointTest, CanBeReferencedAndReleased) {
  tarn::ObjectPoint point;
  MarkedPoint mark;
  mark.SetObjectPoint(&point);
  EXPECT_EQ(mark.GetObjectPoint(), &point);
  mark.SetObjectPoint(nullptr);
  EXPECT_EQ(mark.GetObjectPoint(), nullptr);
  EXPECT_FALSE(mark.IsSubPixel());
  mark.SetSubPixel(1);
  EXPECT_TRUE(mark.IsSubPixel());
}
