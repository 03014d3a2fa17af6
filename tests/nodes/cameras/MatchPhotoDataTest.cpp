// What a person sees through a camera set by SetCameraToMatchPhoto is what the photograph
// shows, once lens distortion and principal point, which that camera does not know, are
// taken out of the measurements.

#include <Inventor/SbViewVolume.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>

#include "host/model/Project.h"
#include "io/ColmapReader.h"
#include "nodes/cameras/TarnOICameraStationSeparator.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/ViewerFrame.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <cmath>
#include <string>

namespace {

// How far the object points of one station fall from their marks, in pixels.
struct Distances {
  int count = 0;
  double sum = 0.0;
  double most = 0.0;
  double mostBeyondResidual = 0.0;
  double residualSum = 0.0;
  double mean() const { return sum / count; }
};

tarn::Point2DDouble seenAt(const SbViewVolume& volume, const tarn::Point3DDouble& point, int width,
                           int height) {
  SbVec3f onScreen;
  volume.projectToScreen(ViewerFrame::fromModel(point), onScreen);
  return {static_cast<double>(onScreen[0]) * width,
          (1.0 - static_cast<double>(onScreen[1])) * height};
}

Distances distancesAt(tarn::CameraStation& station) {
  auto camera = makeNode<SoPerspectiveCamera>();
  EXPECT_EQ(TarnOICameraStationSeparator::SetCameraToMatchPhoto(camera.get(), &station, nullptr),
            1);
  const SbViewVolume volume = camera->getViewVolume(camera->aspectRatio.getValue());
  int width = 0;
  int height = 0;
  station.GetCamera(1)->GetImageSize(width, height);

  Distances result;
  const tarn::VOrdCollect& marks = station.GetPhotograph()->GetAllMarkedPoints(0, 1);
  for (int i = 0; i < marks.size(); ++i) {
    const auto* mark = static_cast<const tarn::MarkedPoint*>(marks.at(i));
    if (!mark->GetObjectPoint()) continue;
    tarn::Point3DRandom position;
    EXPECT_TRUE(mark->GetObjectPoint()->GetApproximation(position));
    tarn::Point2DDouble ideal;
    if (!station.GetCamera(1)->IdealPixel(mark->GetPosition(), ideal)) {
      ADD_FAILURE() << station.GetName().text() << ": a mark cannot be freed of its distortion";
      continue;
    }
    const tarn::Point2DDouble seen = seenAt(volume, position.position(), width, height);
    const double distance = std::hypot(seen.x - ideal.x, seen.y - ideal.y);
    tarn::Point2DDouble residual;
    EXPECT_TRUE(mark->GetResidual(residual));
    const double residualLength = std::hypot(residual.x, residual.y);
    ++result.count;
    result.sum += distance;
    result.residualSum += residualLength;
    result.most = std::max(result.most, distance);
    result.mostBeyondResidual = std::max(result.mostBeyondResidual, distance - residualLength);
  }
  return result;
}

}  // namespace

class MatchPhotoDataTest : public TarnTest {
protected:
  // Reads a project and puts the view offset near its middle, with three different
  // components, as a viewer does.
  void read(const std::string& folder) {
    tarn::ColmapReader::Read(std::string(dataFolder()) + folder, project);
    const tarn::Point3DDouble centre = project.GetProjectExtents(nullptr, 0, 1).GetCentre();
    tarn::gThreeDViewOffset = centre + tarn::Point3DDouble{0.25, -0.5, 0.75};
  }

  template <typename Visit>
  void forEachStation(Visit visit) {
    const tarn::VOrdCollect& stations = project.GetCameraStations();
    for (int i = 0; i < stations.size(); ++i) {
      auto* station = static_cast<tarn::CameraStation*>(stations.at(i));
      SCOPED_TRACE(station->GetName().text());
      visit(*station);
    }
  }

  tarn::Project project;
};

TEST_F(MatchPhotoDataTest, ObjectPointsOfCalibrationFallOnTheirCornersWithinOnePixel) {
  TARN_REQUIRE_DATA();
  read("/calibration/sparse");
  ASSERT_EQ(project.GetCameraStations().size(), 13);
  Distances all;
  forEachStation([&all](tarn::CameraStation& station) {
    const Distances distances = distancesAt(station);
    EXPECT_EQ(distances.count, 54);
    EXPECT_LT(distances.most, 1.0);
    all.count += distances.count;
    all.sum += distances.sum;
  });
  EXPECT_EQ(all.count, 13 * 54);
  EXPECT_LT(all.mean(), 0.3);
  RecordProperty("mean_px", std::to_string(all.mean()));
}

TEST_F(MatchPhotoDataTest, ObjectPointsOfBananaFallOnTheirMarksWithinTheModelsOwnResiduals) {
  TARN_REQUIRE_DATA();
  read("/banana/sparse");
  ASSERT_EQ(project.GetCameraStations().size(), 14);
  // The ideal picture is the distorted one stretched by at most this much in its corners.
  constexpr double stretch = 1.02;
  constexpr double narrowing = 0.02;  // pixels: scene coordinates and camera are floats
  Distances all;
  forEachStation([&all](tarn::CameraStation& station) {
    const Distances distances = distancesAt(station);
    EXPECT_GT(distances.count, 100);
    EXPECT_LT(distances.mostBeyondResidual, 0.1);
    all.count += distances.count;
    all.sum += distances.sum;
    all.residualSum += distances.residualSum;
  });
  EXPECT_LT(all.mean(), stretch * all.residualSum / all.count + narrowing);
  RecordProperty("mean_px", std::to_string(all.mean()));
}
