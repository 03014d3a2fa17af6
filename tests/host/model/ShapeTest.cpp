#include "host/model/Shape.h"

#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;

class ShapeTest : public TarnTest {
protected:
  tarn::Shape shape;
};

TEST_F(ShapeTest, ANewOneIsEmptyAndNotInsideOut) {
  EXPECT_EQ(shape.GetFaces().size(), 0);
  EXPECT_EQ(shape.GetEdges().size(), 0);
  EXPECT_EQ(shape.GetVertices().size(), 0);
  EXPECT_EQ(shape.GetInsideOut(), 0);
  EXPECT_EQ(shape.GetMaxSize(0), 0.0);
}

TEST_F(ShapeTest, ListsItsPartsInTheOrderTheyWereAdded) {
  tarn::ShapeVertex& a = shape.AddVertex({1, 2, 3});
  tarn::ShapeVertex& b = shape.AddVertex({4, 5, 6});
  tarn::ShapeEdge& there = shape.AddEdge(&a, &b);
  tarn::ShapeEdge& back = shape.AddEdge(&b, &a);
  tarn::ShapeFace& roof = shape.AddFace("Roof");
  tarn::ShapeFace& wall = shape.AddFace("Wall");
  ASSERT_EQ(shape.GetVertices().size(), 2);
  EXPECT_EQ(shape.GetVertices().at(0), &a);
  EXPECT_EQ(shape.GetVertices().at(1), &b);
  ASSERT_EQ(shape.GetEdges().size(), 2);
  EXPECT_EQ(shape.GetEdges().at(0), &there);
  EXPECT_EQ(shape.GetEdges().at(1), &back);
  ASSERT_EQ(shape.GetFaces().size(), 2);
  EXPECT_EQ(shape.GetFaces().at(0), &roof);
  EXPECT_EQ(shape.GetFaces().at(1), &wall);
}

TEST_F(ShapeTest, ItsPartsKnowIt) {
  tarn::ShapeVertex& vertex = shape.AddVertex({1, 2, 3});
  EXPECT_EQ(vertex.GetShape(), &shape);
  EXPECT_EQ(shape.AddEdge(&vertex, nullptr).GetShape(), &shape);
  EXPECT_EQ(shape.AddFace("Roof").GetShape(), &shape);
}

TEST_F(ShapeTest, ItsSizeIsTheLongestSideOfTheBoxOfItsCorners) {
  shape.AddVertex({1, 2, 3});
  EXPECT_EQ(shape.GetMaxSize(0), 0.0);
  shape.AddVertex({4, -5, 6});
  shape.AddVertex({2, 0, 7.5});
  EXPECT_EQ(shape.GetMaxSize(0), 7.0);
}

TEST_F(ShapeTest, AnInsideOutOneSaysSo) {
  shape.SetInsideOut(5);
  EXPECT_EQ(shape.GetInsideOut(), 1);
  shape.SetInsideOut(0);
  EXPECT_EQ(shape.GetInsideOut(), 0);
}

TEST_F(ShapeTest, ItsClassesAreKnown) {
  EXPECT_TRUE(shape.isA(tarn::ShapeCls));
  EXPECT_TRUE(shape.AddVertex({}).isA(tarn::ThreeDPointCls));
  EXPECT_TRUE(shape.AddFace("").isA(tarn::SurfaceCls));
  EXPECT_TRUE(shape.AddEdge(nullptr, nullptr).isA(tarn::ShapeEdgeCls));
  EXPECT_EQ(tarn::VClass::find("ShapeVertex"), &tarn::ShapeVertexCls);
}
