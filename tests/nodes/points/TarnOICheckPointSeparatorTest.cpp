// What only check points do; see PointShapeTest for the rest.
#include "nodes/points/TarnOICheckPointSeparator.h"

#include "host/model/CheckPoint.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

class TarnOICheckPointSeparatorTest : public TarnTest {
protected:
  tarn::CheckPoint point;
  NodeRef<TarnOICheckPointSeparator> node = makeNode<TarnOICheckPointSeparator>();
};

TEST_F(TarnOICheckPointSeparatorTest, WithoutViewOffsetOnlyTheAxesChange) {
  tarn::gThreeDViewOffset = {};
  point.SetApproximation(tarn::Point3DRandom({1, 2, 3}));
  node->SetCheckPoint(&point, &dictionary);
  EXPECT_EQ(childOf<SoCoordinate3>(*node).point[0], SbVec3f(1, 3, -2));
}

TEST_F(TarnOICheckPointSeparatorTest, ThePlaceIsTheKnownPositionAsTheHostAnswersIt) {
  struct Answering : tarn::CheckPoint {
    tarn::Point3DDouble GetPosition() const override { return {11.5, -18.25, 33.125}; }
  } answering;
  node->SetCheckPoint(&answering, &dictionary);
  EXPECT_EQ(childOf<SoCoordinate3>(*node).point[0], SbVec3f(1, 3, -2));
  node.reset();
}

TEST_F(TarnOICheckPointSeparatorTest, APointWithoutPositionIsDrawnAtTheModelsOriginUnreported) {
  node->SetCheckPoint(&point, &dictionary);
  EXPECT_EQ(childOf<SoCoordinate3>(*node).point[0], SbVec3f(-10.5F, -30.125F, -20.25F));
}
