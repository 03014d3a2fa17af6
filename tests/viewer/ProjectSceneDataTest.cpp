#include "viewer/ProjectScene.h"

#include <Inventor/nodes/SoCoordinate3.h>

#include "host/model/Project.h"
#include "host/model/Ray3D.h"
#include "nodes/framework/ViewerFrame.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"
#include "viewer/ProjectFile.h"

#include <cstdlib>

using View = CommandLine::View;

/// Real projects, opened and drawn. They are only read; what is made of their photographs goes
/// into a folder of the test's own.
class ProjectSceneDataTest : public TarnTest {
protected:
  ProjectSceneDataTest() { setenv("XDG_CACHE_HOME", cacheFolder.path().c_str(), 1); }
  ~ProjectSceneDataTest() override { unsetenv("XDG_CACHE_HOME"); }

  static constexpr int width = 240;
  static constexpr int height = 180;

  /// How many of the picture's pixels are not background, in hundredths.
  static double coveredPercent(const Picture& picture) {
    const std::uint8_t* background = picture.at(0, 0);
    int covered = 0;
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        const std::uint8_t* pixel = picture.at(x, y);
        covered +=
            pixel[0] != background[0] || pixel[1] != background[1] || pixel[2] != background[2];
      }
    }
    return 100.0 * covered / (picture.width * picture.height);
  }

  // Every view of the model shows something, and not a full picture of one thing.
  static void expectDrawn(const std::string& folder, int stations, int points) {
    tarn::Project project;
    ProjectFile::open(std::string(dataFolder()) + "/" + folder, project, {});
    int oriented = 0;
    for (int i = 0; i < project.GetCameraStations().size(); ++i) {
      oriented +=
          static_cast<tarn::CameraStation*>(project.GetCameraStations().at(i))->IsOriented();
    }
    EXPECT_EQ(oriented, stations);
    EXPECT_EQ(project.GetObjectPoints().size(), points);
    ProjectScene::Options options;
    options.background = CommandLine::Background::ePlain;
    ProjectScene scene(project, options);
    OffscreenRenderer renderer(width, height);
    renderer.setBackgroundColor(scene.background().color());
    for (const View view : {View::eIso, View::eTop, View::eFront, View::eRight}) {
      scene.setView(view, static_cast<double>(width) / height);
      const double covered = coveredPercent(renderer.render(scene.root()));
      EXPECT_GT(covered, 0.4) << "view " << static_cast<int>(view);
      EXPECT_LT(covered, 80.0) << "view " << static_cast<int>(view);
    }
    auto* first = static_cast<tarn::CameraStation*>(project.GetCameraStations().at(0));
    ASSERT_TRUE(scene.setView(*first));
    EXPECT_GT(coveredPercent(renderer.render(scene.root())), 0.4);
  }

  // The mean difference, 0 to 255, of what the station shows through its own camera from its
  // photograph.
  static double differenceFromPhotograph(const std::string& folder, const std::string& name,
                                         bool upsideDown) {
    // Large beside the points, which are drawn over the photograph.
    constexpr int seen = 960;
    tarn::Project project;
    ProjectFile::open(std::string(dataFolder()) + "/" + folder, project, {});
    tarn::CameraStation& station = ProjectFile::findStation(project, name);
    tarn::Image photograph(*station.GetPhotograph()->GetImage()->GetFileName());
    int wide = 0;
    int high = 0;
    EXPECT_TRUE(photograph.Load() && photograph.GetExtents(wide, high)) << photograph.LastError();
    const int drawnHeight = seen * high / wide;
    EXPECT_TRUE(photograph.ResizeInterpolated(seen, drawnHeight, 0, 1));
    ProjectScene::Options options;
    options.imagePlanes = true;
    ProjectScene scene(project, options);
    EXPECT_TRUE(scene.problems().empty());
    EXPECT_TRUE(scene.setView(station));
    OffscreenRenderer renderer(seen, drawnHeight);
    const Picture drawn = renderer.render(scene.root());
    const std::uint8_t* expected = photograph.pixels();
    const int components = photograph.components();
    double sum = 0.0;
    for (int y = 0; y < drawnHeight; ++y) {
      for (int x = 0; x < seen; ++x) {
        const int row = upsideDown ? drawnHeight - 1 - y : y;
        for (int c = 0; c < 3; ++c) {
          sum += std::abs(drawn.at(x, y)[c] -
                          expected[(row * seen + x) * components + (components >= 3 ? c : 0)]);
        }
      }
    }
    return sum / (3.0 * seen * drawnHeight);
  }

  TemporaryFolder cacheFolder;
};

// The photograph is resampled twice, and its points are drawn over it.
TEST_F(ProjectSceneDataTest, BananasPhotographIsShownAsTheStationSawIt) {
  TARN_REQUIRE_DATA();
  const double upright = differenceFromPhotograph("banana", "DSC_0423.JPG", false);
  EXPECT_LT(upright, 12.0);
  EXPECT_GT(differenceFromPhotograph("banana", "DSC_0423.JPG", true), 2.0 * upright);
}

TEST_F(ProjectSceneDataTest, CalibrationsPhotographIsShownAsTheStationSawIt) {
  TARN_REQUIRE_DATA();
  const double upright = differenceFromPhotograph("calibration", "left01.jpg", false);
  EXPECT_LT(upright, 12.0);
  EXPECT_GT(differenceFromPhotograph("calibration", "left01.jpg", true), 2.0 * upright);
}

TEST_F(ProjectSceneDataTest, CalibrationOpensAndDraws) {
  TARN_REQUIRE_DATA();
  expectDrawn("calibration", 13, 54);
}

TEST_F(ProjectSceneDataTest, CalibrationsFirstPointHasRaysThatMeetAllStations) {
  TARN_REQUIRE_DATA();
  tarn::Project project;
  ProjectFile::open(std::string(dataFolder()) + "/calibration", project, {});
  ProjectScene scene(project);
  tarn::ObjectPoint& point = ProjectFile::findPoint(project, 1);
  scene.showRays(point);
  auto* rays = static_cast<SoGroup*>(scene.dictionary().atKey(point.GetRay3D()));
  ASSERT_NE(rays, nullptr);
  tarn::Point3DRandom position;
  ASSERT_TRUE(point.GetApproximation(position));
  std::vector<SbVec3f> ends;
  for (int i = 0; i < rays->getNumChildren(); ++i) {
    if (!rays->getChild(i)->isOfType(SoCoordinate3::getClassTypeId())) continue;
    const SoMFVec3f& line = static_cast<SoCoordinate3*>(rays->getChild(i))->point;
    EXPECT_EQ(line[0], ViewerFrame::fromModel(position.position()));
    ends.push_back(line[1]);
  }
  std::vector<SbVec3f> stations;
  for (int i = 0; i < project.GetCameraStations().size(); ++i) {
    stations.push_back(ViewerFrame::fromModel(
        static_cast<tarn::CameraStation*>(project.GetCameraStations().at(i))->GetPosition()));
  }
  EXPECT_EQ(stations.size(), 13U);
  EXPECT_THAT(ends, ::testing::UnorderedElementsAreArray(stations));
}

TEST_F(ProjectSceneDataTest, BananaOpensAndDrawsFromBinary) {
  TARN_REQUIRE_DATA();
  expectDrawn("banana", 14, 5045);
}

TEST_F(ProjectSceneDataTest, BananaOpensAndDrawsFromText) {
  TARN_REQUIRE_DATA();
  expectDrawn("banana/sparse_txt", 14, 5045);
}

TEST_F(ProjectSceneDataTest, LundOpensAndDraws) {
  TARN_REQUIRE_DATA();
  expectDrawn("lund", 24, 1568);
}

TEST_F(ProjectSceneDataTest, BrightonOpensAndDraws) {
  TARN_REQUIRE_DATA();
  expectDrawn("brighton", 18, 3648);
}

TEST_F(ProjectSceneDataTest, BrightonsGroundPlaneLiesUnderTheTerrainAndTouchesItAlmost) {
  TARN_REQUIRE_DATA();
  tarn::Project project;
  ProjectFile::open(std::string(dataFolder()) + "/brighton", project, {});
  ASSERT_EQ(project.GetPointMeshes().size(), 1);
  const auto& cloud = *static_cast<tarn::PointMesh*>(project.GetPointMeshes().at(0));
  ASSERT_EQ(cloud.GetNumPoints(), 940393);
  const ProjectScene scene(project);
  const double ground = project.GetVolumeAboveXY_ZLevel();
  int below = 0;
  int near = 0;
  for (int i = 0; i < cloud.GetNumPoints(); ++i) {
    below += cloud.GetPoint(i).z < ground;
    near += cloud.GetPoint(i).z < ground + 5.0;
  }
  EXPECT_EQ(below, 0);
  EXPECT_GT(near, 1000);
}
