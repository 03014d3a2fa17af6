#include "host/model/ShapeEdge.h"

#include "host/model/ShapeVertex.h"
#include "tests/support/TarnTest.h"

class ShapeEdgeTest : public TarnTest {
protected:
  tarn::ShapeVertex first;
  tarn::ShapeVertex second;
  tarn::ShapeEdge edge;
};

TEST_F(ShapeEdgeTest, ANewOneHasNoCornersAndNoShape) {
  EXPECT_EQ(edge.GetVertex(0), nullptr);
  EXPECT_EQ(edge.GetVertex(1), nullptr);
  EXPECT_EQ(edge.GetShape(), nullptr);
}

TEST_F(ShapeEdgeTest, HasACornerAtEachEndAndNoThird) {
  edge.SetVertices(&first, &second);
  EXPECT_EQ(edge.GetVertex(0), &first);
  EXPECT_EQ(edge.GetVertex(1), &second);
  EXPECT_EQ(edge.GetVertex(2), nullptr);
  EXPECT_EQ(edge.GetVertex(-1), nullptr);
}
