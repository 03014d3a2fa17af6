#include "host/model/ShapeFace.h"

#include "host/model/Shape.h"
#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;

class ShapeFaceTest : public TarnTest {
protected:
  // A wall in the plane y = 2, seen from the front, with a notch in its upper side.
  std::vector<tarn::ShapeVertex*> wall() {
    return corners({{0, 2, 0}, {8, 2, 0}, {8, 2, 6}, {4, 2, 3}, {0, 2, 6}});
  }
  std::vector<tarn::ShapeVertex*> corners(const std::vector<Point3DDouble>& places) {
    std::vector<tarn::ShapeVertex*> result;
    for (const Point3DDouble& place : places) result.push_back(&shape.AddVertex(place));
    return result;
  }
  const tarn::Triangle& triangle(int index) {
    return static_cast<tarn::Triangle&>(*face.GetTriangles()->at(index));
  }

  tarn::Shape shape;
  tarn::ShapeFace& face = shape.AddFace("Wall");
};

TEST_F(ShapeFaceTest, HasItsName) { EXPECT_STREQ(face.GetName().text(), "Wall"); }

TEST_F(ShapeFaceTest, WithoutAPlaceForItsNameItSaysSoAndLeavesThePointsAlone) {
  Point3DDouble first{1, 2, 3};
  Point3DDouble second{4, 5, 6};
  EXPECT_EQ(face.GetNameUprightVectorPoints(first, second, 0), 0);
  EXPECT_EQ(first, Point3DDouble(1, 2, 3));
  EXPECT_EQ(second, Point3DDouble(4, 5, 6));
}

TEST_F(ShapeFaceTest, ThePlaceOfItsNameIsBetweenTwoPointsInTheMiddle) {
  face.SetNameUprightVectorPoints({4, 2, 0}, {4, 2, 3});
  Point3DDouble first;
  Point3DDouble second;
  EXPECT_EQ(face.GetNameUprightVectorPoints(first, second, 0), 1);
  EXPECT_EQ(first, Point3DDouble(4, 2, 0));
  EXPECT_EQ(second, Point3DDouble(4, 2, 3));
  EXPECT_EQ(face.GetNameCenterRatio(), 0.5);
  face.SetNameCenterRatio(0.25);
  EXPECT_EQ(face.GetNameCenterRatio(), 0.25);
}

TEST_F(ShapeFaceTest, AConcaveOutlineFillsItWithTrianglesBetweenTheShapesCorners) {
  const auto outline = wall();
  EXPECT_EQ(face.SetOutline(outline), 1);
  EXPECT_EQ(face.GetNumTriangleSets(), 1);
  ASSERT_EQ(face.GetTriangles()->size(), 3);
  for (int i = 0; i < 3; ++i) {
    for (int k = 0; k < 3; ++k) {
      EXPECT_EQ(std::ranges::count(outline, triangle(i).GetPoint(k)), 1);
      ASSERT_NE(triangle(i).GetNormal(k), nullptr);
      EXPECT_EQ(*triangle(i).GetNormal(k), Point3DDouble(0, -1, 0)) << "outwards";
    }
  }
}

TEST_F(ShapeFaceTest, HolesAreLeftOpen) {
  const auto outline = corners({{0, 2, 0}, {8, 2, 0}, {8, 2, 6}, {0, 2, 6}});
  const auto window = corners({{2, 2, 2}, {4, 2, 2}, {4, 2, 4}, {2, 2, 4}});
  EXPECT_EQ(face.SetOutline(outline, {window}), 1);
  EXPECT_EQ(face.GetTriangles()->size(), 8);
}

TEST_F(ShapeFaceTest, ASecondOutlineReplacesTheFirst) {
  face.SetOutline(wall());
  EXPECT_EQ(face.SetOutline(corners({{0, 0, 0}, {1, 0, 0}, {0, 1, 0}})), 1);
  EXPECT_EQ(face.GetNumTriangleSets(), 1);
  EXPECT_EQ(face.GetTriangles()->size(), 1);
}

TEST_F(ShapeFaceTest, AnOutlineThatCannotBeFilledChangesNothing) {
  face.SetOutline(wall());
  tarn::ShapeVertex nowhere;
  auto unplaced = wall();
  unplaced[2] = &nowhere;
  auto missing = wall();
  missing[2] = nullptr;
  EXPECT_EQ(face.SetOutline(unplaced), 0);
  EXPECT_EQ(face.SetOutline(missing), 0);
  EXPECT_EQ(face.SetOutline(wall(), {{nullptr}}), 0);
  EXPECT_EQ(face.SetOutline({}), 0);
  EXPECT_EQ(face.SetOutline(corners({{0, 0, 0}, {4, 4, 0}, {4, 0, 0}, {0, 5, 0}})), 0) << "crossed";
  EXPECT_EQ(face.GetTriangles()->size(), 3);
}
