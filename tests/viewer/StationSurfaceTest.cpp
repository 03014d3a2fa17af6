#include "viewer/StationSurface.h"

#include "host/model/Project.h"
#include "host/model/SurfaceGroup.h"
#include "tests/support/TarnTest.h"

#include <stdexcept>
#include <string>

using ::testing::HasSubstr;

// A grid of points on the ground, seen from a station straight above it.
class StationSurfaceTest : public TarnTest {
protected:
  StationSurfaceTest() {
    camera.SetImageSize(1000, 1000);
    camera.SetFormatSize(36.0, 36.0);
    camera.SetFocalLength(36.0);
    camera.SetPrincipalPoint({500.0, 500.0});
    station.SetOrientation({0.0, 0.0, 20.0}, tarn::MatrixDouble::Identity(3));
    station.SetCamera(&camera);
    station.SetName("above.jpg");
    station.SetPhotograph(&photograph);
    photograph.SetCameraStation(&station);
  }

  tarn::ObjectPoint& addPoint(const tarn::Point3DDouble& position) {
    tarn::ObjectPoint& point = project.AddObjectPoint();
    point.SetApproximation(tarn::Point3DRandom(position));
    tarn::Point2DDouble pixel;
    EXPECT_TRUE(station.ProjectPoint(position, pixel));
    point.AddMarkedPoint(&photograph.AddMarkedPoint(pixel));
    return point;
  }
  /// side x side points, about a unit apart; the grid's sides bulge, so that no three points of
  /// them are on one line.
  void addGrid(int side) {
    for (int i = 0; i < side * side; ++i) {
      const double x = i % side - 0.5 * (side - 1);
      const double y = i / side - 0.5 * (side - 1);
      addPoint({x * (1.0 - 0.003 * y * y), y * (1.0 - 0.004 * x * x), 0.1 + 0.002 * x});
    }
  }
  int triangles() {
    StationSurface::fill(group, station, *project.GetPhotoCollection());
    return group.GetSelsCollection(0)->size();
  }
  std::string refusal() {
    try {
      triangles();
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    ADD_FAILURE() << "not refused";
    return {};
  }
  tarn::Point3DDouble corner(int triangle, int k) {
    tarn::Point3DRandom position;
    const auto* element =
        static_cast<tarn::SurfaceElement*>(group.GetSelsCollection(0)->at(triangle));
    EXPECT_TRUE(element->GetThreeDPoint(k)->GetApproximation(position));
    return position.position();
  }

  tarn::Project project;
  tarn::Camera& camera = project.AddCamera();
  tarn::CameraStation& station = project.AddCameraStation();
  tarn::Photograph& photograph = project.GetPhotoCollection()->Add();
  tarn::SurfaceGroup group;
};

TEST_F(StationSurfaceTest, JoinsThePointsByTriangles) {
  addGrid(10);
  EXPECT_EQ(triangles(), 2 * 9 * 9);
}

TEST_F(StationSurfaceTest, TheStationSeesTheirFronts) {
  addGrid(5);
  const int count = triangles();
  for (int t = 0; t < count; ++t) {
    const tarn::Point3DDouble a = corner(t, 1) - corner(t, 0);
    const tarn::Point3DDouble b = corner(t, 2) - corner(t, 0);
    EXPECT_GT(a.x * b.y - a.y * b.x, 0.0) << "counter-clockwise from above";
  }
}

TEST_F(StationSurfaceTest, LeavesOutWhatSpansAJumpInDepth) {
  addGrid(10);
  const int before = triangles();
  tarn::SurfaceGroup raised;
  // The point in the middle stands close before the station, where its mark is.
  auto* middle = static_cast<tarn::ObjectPoint*>(project.GetObjectPoints().at(44));
  tarn::Point3DRandom position;
  ASSERT_TRUE(middle->GetApproximation(position));
  const tarn::Point3DDouble eye = station.GetPosition();
  middle->SetApproximation(tarn::Point3DRandom(eye + 0.6 * (position.position() - eye)));
  StationSurface::fill(raised, station, *project.GetPhotoCollection());
  const int left = raised.GetSelsCollection(0)->size();
  EXPECT_LT(left, before - 3);
  for (int t = 0; t < left; ++t) {
    for (int k = 0; k < 3; ++k) {
      EXPECT_NE(
          static_cast<tarn::SurfaceElement*>(raised.GetSelsCollection(0)->at(t))->GetThreeDPoint(k),
          middle);
    }
  }
}

TEST_F(StationSurfaceTest, APointThatIsMarkedTwiceIsACornerOnce) {
  addGrid(5);
  auto* middle = static_cast<tarn::ObjectPoint*>(project.GetObjectPoints().at(12));
  middle->AddMarkedPoint(&photograph.AddMarkedPoint({503.0, 501.0}));
  const int count = triangles();
  for (int t = 0; t < count; ++t) {
    for (int k = 0; k < 3; ++k) EXPECT_NE(corner(t, k), corner(t, (k + 1) % 3));
  }
}

TEST_F(StationSurfaceTest, LeavesOutWhatSpansAGap) {
  addGrid(5);
  const int before = triangles();
  addPoint({7.0, 0.3, 0.1});
  tarn::SurfaceGroup wider;
  StationSurface::fill(wider, station, *project.GetPhotoCollection());
  EXPECT_GT(wider.GetSelsCollection(0)->size(), before) << "five units of about one";
  addPoint({-9.9, -9.9, 0.1});
  tarn::SurfaceGroup widest;
  StationSurface::fill(widest, station, *project.GetPhotoCollection());
  for (int t = 0; t < widest.GetSelsCollection(0)->size(); ++t) {
    for (int k = 0; k < 3; ++k) {
      const auto* element = static_cast<tarn::SurfaceElement*>(widest.GetSelsCollection(0)->at(t));
      EXPECT_NE(element->GetThreeDPoint(k), project.GetObjectPoints().at(26));
    }
  }
}

// A second station is nearer to most of the ground, but not to all of it.
TEST_F(StationSurfaceTest, TheFirstTriangleIsTheLargestThatItsOwnPhotographShowsBest) {
  tarn::CameraStation& lower = project.AddCameraStation();
  lower.SetOrientation({-2.0, 0.0, 10.0}, tarn::MatrixDouble::Identity(3));
  lower.SetCamera(&camera);
  tarn::Photograph& ofLower = project.GetPhotoCollection()->Add();
  ofLower.SetCameraStation(&lower);
  addGrid(10);
  const int count = triangles();
  int own = 0;
  for (int t = 0; t < count; ++t) {
    auto* element = static_cast<tarn::SurfaceElement*>(group.GetSelsCollection(0)->at(t));
    own += project.GetPhotoCollection()->GetBestFacePhoto(element) == &photograph;
  }
  ASSERT_GT(own, 0);
  ASSERT_LT(own, count / 2);
  auto* first = static_cast<tarn::SurfaceElement*>(group.GetSelsCollection(0)->at(0));
  EXPECT_EQ(project.GetPhotoCollection()->GetBestFacePhoto(first), &photograph);
}

TEST_F(StationSurfaceTest, WhereAnotherIsBestForAllTheFirstTriangleIsOneThatAnyShows) {
  tarn::CameraStation& lower = project.AddCameraStation();
  lower.SetOrientation({0.0, 0.0, 15.0}, tarn::MatrixDouble::Identity(3));
  lower.SetCamera(&camera);
  tarn::Photograph& ofLower = project.GetPhotoCollection()->Add();
  ofLower.SetCameraStation(&lower);
  addGrid(5);
  triangles();
  auto* first = static_cast<tarn::SurfaceElement*>(group.GetSelsCollection(0)->at(0));
  EXPECT_EQ(project.GetPhotoCollection()->GetBestFacePhoto(first), &ofLower);
}

// Two nearer stations see one side of the ground each; one of them gives the whole its picture.
TEST_F(StationSurfaceTest, LeavesOutWhatItsPhotographDoesNotShow) {
  for (const double x : {-2.0, 2.0}) {
    tarn::CameraStation& lower = project.AddCameraStation();
    lower.SetOrientation({x, 0.0, 10.0}, tarn::MatrixDouble::Identity(3));
    lower.SetCamera(&camera);
    project.GetPhotoCollection()->Add().SetCameraStation(&lower);
  }
  addGrid(10);
  const int count = triangles();
  auto* first = static_cast<tarn::SurfaceElement*>(group.GetSelsCollection(0)->at(0));
  tarn::Photograph* best = project.GetPhotoCollection()->GetBestFacePhoto(first);
  ASSERT_NE(best, &photograph);
  EXPECT_GT(count, 2 * 9 * 9 / 2);
  EXPECT_LT(count, 2 * 9 * 9);
  for (int t = 0; t < count; ++t) {
    for (int k = 0; k < 3; ++k) {
      tarn::Point2DDouble pixel;
      ASSERT_TRUE(best->GetCameraStation()->ProjectPoint(corner(t, k), pixel));
      EXPECT_GE(pixel.x, 0.0);
      EXPECT_LE(pixel.x, 1000.0);
    }
  }
}

TEST_F(StationSurfaceTest, LessThanThreePointsAreRefused) {
  addPoint({0.0, 0.0, 0.0});
  addPoint({1.0, 0.5, 0.0});
  photograph.AddMarkedPoint({10.0, 20.0});  // of no point
  tarn::ObjectPoint& nowhere = project.AddObjectPoint();
  nowhere.AddMarkedPoint(&photograph.AddMarkedPoint({30.0, 90.0}));
  EXPECT_EQ(refusal(),
            "station \"above.jpg\" shows no surface: object points with a position that are "
            "marked on its photograph: found 2, expected 3 or more");
}

TEST_F(StationSurfaceTest, PointsOnOneLineAreRefused) {
  for (int i = 0; i < 4; ++i) addPoint({1.0 * i, 2.0 * i, 0.0});
  EXPECT_THAT(refusal(), HasSubstr("station \"above.jpg\" shows no surface: its 4 points"));
}

TEST_F(StationSurfaceTest, AStationWithoutPhotographOrOrientationIsRefused) {
  addGrid(3);
  station.SetOriented(0);
  EXPECT_EQ(refusal(), "station \"above.jpg\" shows no surface: it is not oriented");
  station.SetOriented(1);
  station.SetPhotograph(nullptr);
  EXPECT_THAT(refusal(), HasSubstr("found 0, expected 3 or more"));
}
