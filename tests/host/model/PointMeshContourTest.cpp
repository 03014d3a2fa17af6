#include "host/model/PointMeshContour.h"

#include "host/model/Material.h"
#include "tests/support/TarnTest.h"

#include <utility>
#include <vector>

using tarn::Point3DDouble;
using tarn::PointMeshContour;

class PointMeshContourTest : public TarnTest {
protected:
  static void expectPoint(const double* row, const Point3DDouble& expected) {
    EXPECT_EQ(Point3DDouble(row[0], row[1], row[2]), expected);
  }
};

TEST_F(PointMeshContourTest, ANewContourIsEmptyAndOpen) {
  const PointMeshContour contour;
  EXPECT_EQ(contour.GetNumberOfPoints(), 0);
  EXPECT_EQ(contour.GetPoints(1), nullptr);
  EXPECT_EQ(contour.IsClosed(), 0);
  EXPECT_EQ(contour.GetMaterial(), nullptr);
  EXPECT_EQ(contour.GetHeight(), 0.0);
}

TEST_F(PointMeshContourTest, KeepsItsPointsInDoublePrecision) {
  PointMeshContour contour;
  const std::vector<Point3DDouble> points{{5000000.0625, 1.5, -2.25}, {5000000.125, 3.5, 4.75}};
  contour.SetPoints(points);
  ASSERT_EQ(contour.GetNumberOfPoints(), 2);
  for (const int inModel : {1, 0}) {
    double** const rows = contour.GetPoints(inModel);
    ASSERT_NE(rows, nullptr);
    expectPoint(rows[0], points[0]);
    expectPoint(rows[1], points[1]);
  }
}

TEST_F(PointMeshContourTest, PointsSetAgainTakeThePlaceOfEarlierOnes) {
  PointMeshContour contour;
  contour.SetPoints(std::vector<Point3DDouble>{{1, 2, 3}, {4, 5, 6}});
  contour.SetPoints(std::vector<Point3DDouble>{{7, 8, 9}});
  ASSERT_EQ(contour.GetNumberOfPoints(), 1);
  expectPoint(contour.GetPoints(1)[0], {7, 8, 9});
  contour.SetPoints({});
  EXPECT_EQ(contour.GetNumberOfPoints(), 0);
  EXPECT_EQ(contour.GetPoints(1), nullptr);
}

TEST_F(PointMeshContourTest, AMovedContourKeepsItsPoints) {
  PointMeshContour contour;
  contour.SetPoints(std::vector<Point3DDouble>{{1, 2, 3}, {4, 5, 6}});
  double** const rows = contour.GetPoints(1);
  const PointMeshContour moved = std::move(contour);
  EXPECT_EQ(moved.GetPoints(1), rows);
  expectPoint(moved.GetPoints(1)[1], {4, 5, 6});
}

TEST_F(PointMeshContourTest, AnswersItsHeightMaterialAndWhetherItIsClosed) {
  PointMeshContour contour;
  tarn::Material material;
  contour.SetHeight(12.5);
  contour.SetMaterial(&material);
  contour.SetClosed(3);
  EXPECT_EQ(contour.GetHeight(), 12.5);
  EXPECT_EQ(contour.GetMaterial(), &material);
  EXPECT_EQ(contour.IsClosed(), 1);
  EXPECT_EQ(contour.iam(), tarn::VClass::find("PointMeshContour"));
}
