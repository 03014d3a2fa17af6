
#include "host/model/Project.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"
#include "viewer/ProjectFile.h"
#include "viewer/ProjectScene.h"

using View = CommandLine::View;

/// Real projects, opened and drawn. Their photographs are not shown here: they are read
/// only, and so is everything beside them.
class ProjectSceneDataTest : public TarnTest {
protected:
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
    ProjectScene scene(project);
    OffscreenRenderer renderer(width, height);
    renderer.setBackgroundColor(ProjectScene::backgroundColor());
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
};

TEST_F(ProjectSceneDataTest, CalibrationOpensAndDraws) {
  TARN_REQUIRE_DATA();
  expectDrawn("calibration", 13, 54);
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
  tarn::Project project;
  ProjectFile::open(std::string(dataFolder()) + "/brighton", project, {});
  expectDrawn("brighton", 18, project.GetObjectPoints().size());
}
