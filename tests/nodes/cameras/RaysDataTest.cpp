// Rays of a real project: what a photograph's marks and a point's track give.
#include "host/model/Project.h"
#include "io/ColmapReader.h"
#include "nodes/cameras/TarnOICameraRaysSeparator.h"
#include "nodes/cameras/TarnOIPointRaysSeparator.h"
#include "nodes/framework/ViewerFrame.h"
#include "tests/nodes/cameras/RaysFixture.h"

#include <algorithm>
#include <string>

class RaysDataTest : public RaysFixture {
protected:
  void read() {
    tarn::ColmapReader::Read(std::string(dataFolder()) + "/calibration/sparse", project);
    ASSERT_EQ(project.GetCameraStations().size(), 13);
  }
  tarn::CameraStation& stationAt(int i) const {
    return *static_cast<tarn::CameraStation*>(project.GetCameraStations().at(i));
  }
  static SbVec3f shown(const tarn::ObjectPoint& point) {
    tarn::Point3DRandom position;
    EXPECT_TRUE(point.GetApproximation(position));
    return ViewerFrame::fromModel(position.position());
  }

  tarn::Project project;
};

TEST_F(RaysDataTest, TheRaysOfPointOneOfCalibrationMeetAllThirteenStations) {
  TARN_REQUIRE_DATA();
  read();
  tarn::ObjectPoint* point = project.FindObjectPoint(1);
  ASSERT_NE(point, nullptr);
  const auto node = makeNode<TarnOIPointRaysSeparator>();
  node->SetRays(point, &dictionary);
  const auto rays = raysOf(*node);
  ASSERT_EQ(rays.size(), 13U);
  for (const auto& [from, to] : rays) EXPECT_EQ(from, shown(*point));
  for (int i = 0; i < 13; ++i) {
    const SbVec3f station = ViewerFrame::fromModel(stationAt(i).GetPosition());
    EXPECT_EQ(std::ranges::count(rays, station, &Ray::second), 1) << stationAt(i).GetName().text();
  }
}

TEST_F(RaysDataTest, TheRaysOfAStationOfCalibrationAreItsMarksOfUsablePoints) {
  TARN_REQUIRE_DATA();
  read();
  // One point of every photograph was not computed; its marks must give no ray.
  tarn::ObjectPoint* uncomputed = project.FindObjectPoint(2);
  ASSERT_NE(uncomputed, nullptr);
  uncomputed->SetProcessed(0);
  for (int i = 0; i < 13; ++i) {
    SCOPED_TRACE(stationAt(i).GetName().text());
    tarn::Photograph* photograph = stationAt(i).GetPhotograph();
    std::vector<Ray> expected;
    const tarn::VOrdCollect& marks = photograph->GetAllMarkedPoints(0, 1);
    for (int k = 0; k < marks.size(); ++k) {
      const auto* point = static_cast<const tarn::MarkedPoint*>(marks.at(k))->GetObjectPoint();
      if (!point || point == uncomputed) continue;
      expected.emplace_back(ViewerFrame::fromModel(stationAt(i).GetPosition()), shown(*point));
    }
    const auto node = makeNode<TarnOICameraRaysSeparator>();
    node->SetRays(photograph, &dictionary);
    EXPECT_EQ(expected.size(), 53U);
    EXPECT_EQ(raysOf(*node), expected);
  }
}
