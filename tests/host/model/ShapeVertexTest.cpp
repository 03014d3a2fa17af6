#include "host/model/ShapeVertex.h"

#include "host/model/Shape.h"
#include "tests/support/TarnTest.h"

class ShapeVertexTest : public TarnTest {};

TEST_F(ShapeVertexTest, ANewOneHasNeitherPositionNorShape) {
  const tarn::ShapeVertex vertex;
  tarn::Point3DRandom position;
  EXPECT_EQ(vertex.GetApproximation(position), 0);
  EXPECT_EQ(vertex.GetShape(), nullptr);
}

TEST_F(ShapeVertexTest, OneOfAShapeStandsWhereItWasAdded) {
  tarn::Shape shape;
  tarn::Point3DRandom position;
  EXPECT_EQ(shape.AddVertex({1, 2, 3}).GetApproximation(position), 1);
  EXPECT_EQ(position.position(), tarn::Point3DDouble(1, 2, 3));
}
