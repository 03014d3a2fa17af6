#include "viewer/layers/ObjectPointCloud.h"

#include "host/model/ObjectPoint.h"
#include "host/model/PointMesh.h"
#include "tests/support/TarnTest.h"

#include <deque>
#include <vector>

class ObjectPointCloudTest : public TarnTest {
protected:
  tarn::ObjectPoint& add(double x, double y, double z) {
    points.emplace_back().SetApproximation(tarn::Point3DRandom({x, y, z}));
    pointers.push_back(&points.back());
    return points.back();
  }

  std::deque<tarn::ObjectPoint> points;
  std::vector<tarn::ObjectPoint*> pointers;
};

TEST_F(ObjectPointCloudTest, PointsKeepTheirOrderAndPlacesAlsoFarFromTheOrigin) {
  const tarn::Point3DDouble middle(500000.0, 5000000.0, 120.0);
  tarn::gThreeDViewOffset = middle;
  for (const double d : {0.0, 0.001953125, -3.25}) add(500000.0 + d, 5000000.0 - d, 120.0 + 2 * d);
  const auto mesh = ObjectPointCloud::of(pointers);
  ASSERT_EQ(mesh->GetNumPoints(), 3);
  for (int i = 0; i < 3; ++i) {
    tarn::Point3DRandom position;
    points[static_cast<std::size_t>(i)].GetApproximation(position);
    EXPECT_EQ(mesh->GetModelPoint(i), position.position());
  }
  EXPECT_EQ(mesh->GetPoint(1), tarn::Point3DDouble(0.001953125, -0.001953125, 0.00390625));
}

TEST_F(ObjectPointCloudTest, PointsHaveTheirColoursAndTheOthersAreGreyAmongThem) {
  add(1.0, 2.0, 3.0).SetRGBTextureColor(tarn::Colour(10, 20, 30));
  add(4.0, 5.0, 6.0);
  const auto mesh = ObjectPointCloud::of(pointers);
  unsigned char** bgr = mesh->GetRGBsForPoints();
  ASSERT_NE(bgr, nullptr);
  EXPECT_EQ(std::vector<int>(bgr[0], bgr[0] + 3), (std::vector<int>{30, 20, 10}));
  EXPECT_GT(bgr[1][0], 200);
}

TEST_F(ObjectPointCloudTest, PointsWithoutAnyColoursMakeACloudWithout) {
  add(1.0, 2.0, 3.0);
  EXPECT_EQ(ObjectPointCloud::of(pointers)->GetRGBsForPoints(), nullptr);
  EXPECT_EQ(ObjectPointCloud::of({})->GetNumPoints(), 0);
}
