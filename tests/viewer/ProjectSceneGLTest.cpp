#include "viewer/ProjectScene.h"

#include "host/model/Project.h"
#include "tests/support/Baseline.h"
#include "tests/support/SourceTree.h"
#include "tests/support/TarnTest.h"
#include "viewer/CloudCut.h"
#include "viewer/OffscreenRenderer.h"
#include "viewer/ProjectFile.h"
#include "viewer/SectionMark.h"

#include <cmath>
#include <cstdlib>

using View = CommandLine::View;

/// The demo project's views against accepted pictures. Each test's name is its baseline's.
class ProjectSceneGLTest : public TarnTest {
protected:
  ProjectSceneGLTest() {
    ProjectFile::open(SourceTree::file("examples/demo"), project, {});
    setenv("XDG_CACHE_HOME", folder.path().c_str(), 1);
  }
  ~ProjectSceneGLTest() override { unsetenv("XDG_CACHE_HOME"); }

  tarn::CameraStation& station(const char* name) { return ProjectFile::findStation(project, name); }

  void expectBaseline(ProjectScene& scene) {
    OffscreenRenderer renderer(width, height);
    renderer.setBackgroundColor(scene.background().color());
    const std::string name = std::string("ProjectScene-") +
                             ::testing::UnitTest::GetInstance()->current_test_info()->name();
    // Points and lines of one pixel more or less at their edges, where another version of
    // the software renderer rounds differently.
    Baseline::expectMatch(renderer.render(scene.root()), name, {255, 0.4});
  }

  static constexpr int width = 400;
  static constexpr int height = 300;
  static constexpr double aspect = 4.0 / 3.0;

  TemporaryFolder folder;
  tarn::Project project;
};

TEST_F(ProjectSceneGLTest, Iso) {
  ProjectScene scene(project);
  scene.setView(View::eIso, aspect);
  expectBaseline(scene);
}

TEST_F(ProjectSceneGLTest, TopWithFrusta) {
  ProjectScene::Options options;
  options.frusta = true;
  ProjectScene scene(project, options);
  scene.setView(View::eTop, aspect);
  expectBaseline(scene);
}

TEST_F(ProjectSceneGLTest, FrontWithImagePlanes) {
  ProjectScene::Options options;
  options.imagePlanes = true;
  ProjectScene scene(project, options);
  EXPECT_TRUE(scene.problems().empty());
  scene.setView(View::eFront, aspect);
  expectBaseline(scene);
}

TEST_F(ProjectSceneGLTest, RightWithLabels) {
  ProjectScene scene(project);
  scene.setView(View::eRight, aspect);
  scene.showLabels(SbViewportRegion(width, height));
  expectBaseline(scene);
}

TEST_F(ProjectSceneGLTest, EllipsoidsThroughAStation) {
  ProjectScene::Options options;
  options.ellipsoidScale = 30.0;
  ProjectScene scene(project, options);
  ASSERT_TRUE(scene.setView(station("station08")));
  expectBaseline(scene);
}

TEST_F(ProjectSceneGLTest, HighlightedStation) {
  ProjectScene scene(project);
  scene.highlight(station("station06"));
  scene.setView(View::eIso, aspect);
  expectBaseline(scene);
}

TEST_F(ProjectSceneGLTest, HighlightedPoint) {
  ProjectScene scene(project);
  scene.highlight(ProjectFile::findPoint(project, 30));
  scene.setView(View::eIso, aspect);
  expectBaseline(scene);
}

TEST_F(ProjectSceneGLTest, RaysWithAxisAndGroundPlane) {
  ProjectScene::Options options;
  options.axis = true;
  options.groundPlane = true;
  ProjectScene scene(project, options);
  scene.showRays(ProjectFile::findPoint(project, 30));
  scene.setView(View::eIso, aspect);
  expectBaseline(scene);
}

// From another station: the vase stands free of the ground behind it, which it hid.
TEST_F(ProjectSceneGLTest, SurfaceOverThePointsOfAPhotograph) {
  ProjectScene scene(project);
  scene.showSurface(station("station02"));
  EXPECT_THAT(scene.notes(), ::testing::IsEmpty());
  ASSERT_TRUE(scene.setView(station("station03")));
  expectBaseline(scene);
}

TEST_F(ProjectSceneGLTest, AnotherSurfaceReplacesTheOneBefore) {
  ProjectScene scene(project);
  scene.showSurface(station("station02"));
  const int before = scene.root()->getNumChildren();
  scene.showSurface(station("station03"));
  EXPECT_EQ(scene.root()->getNumChildren(), before);
}

// Through the camera turned on its side: the photograph fills the view and stands as the
// camera saw it, which the photograph's own file says.
TEST_F(ProjectSceneGLTest, ImagePlaneShowsThePhotographAsTheStationSawIt) {
  const Picture photograph = Picture::read(SourceTree::file("examples/demo/images/station04.jpg"));
  ProjectScene::Options options;
  options.imagePlanes = true;
  ProjectScene scene(project, options);
  ASSERT_TRUE(scene.setView(station("station04")));
  OffscreenRenderer renderer(width, height);
  const Picture picture = renderer.render(scene.root());
  double sum = 0.0;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (int c = 0; c < 3; ++c) {
        sum += std::abs(picture.at(x, y)[c] - photograph.at(2 * x, 2 * y)[c]);
      }
    }
  }
  // Upside down or mirrored it is above 30; points are drawn over it, and it is resampled.
  EXPECT_LT(sum / (3.0 * width * height), 9.0);
}

// A terrain in the colours of its heights, their legend, and a section across a hill: its line,
// and its points marked.
TEST_F(ProjectSceneGLTest, SectionOfACloudWithHeightScale) {
  tarn::Project terrain;
  tarn::PointMesh& cloud = terrain.AddPointMesh();
  constexpr int side = 120;
  cloud.Allocate(side * side, 0);
  for (int i = 0; i < side * side; ++i) {
    const float x = static_cast<float>(i % side) - side / 2;
    const float y = static_cast<float>(i / side) - side / 2;
    cloud.GetPoints()[i][0] = x;
    cloud.GetPoints()[i][1] = y;
    cloud.GetPoints()[i][2] = 100.0F + 25.0F * std::exp(-(x * x + y * y) / 800.0F) + 0.1F * x;
  }
  ProjectScene::Options options;
  options.color = CommandLine::Color::eHeight;
  ProjectScene scene(terrain, options);
  scene.setView(View::eIso, aspect);
  const CloudCut cut(*scene.camera(), scene.framing().objectExtents(),
                     SbViewportRegion(width, height));
  const CloudSection section = cut.section(terrain, {0.15, 0.4, 0.7, 0.85}, {});
  scene.root()->addChild(SectionMark::points(section, false).get());
  scene.root()->addChild(SectionMark::line(section).get());
  EXPECT_EQ(scene.showHeightScale(), "");
  expectBaseline(scene);
}
