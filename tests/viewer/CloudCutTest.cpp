#include "viewer/CloudCut.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSwitch.h>

#include "host/model/Project.h"
#include "nodes/framework/ViewerFrame.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <stdexcept>
#include <utility>

using tarn::Point3DDouble;
using ::testing::HasSubstr;

/// A terrain of 101 by 81 points, every half unit, some way from the origin.
class CloudCutTest : public TarnTest {
protected:
  static constexpr int columns = 101;
  static constexpr int rows = 81;
  static constexpr double spacing = 0.5;
  static constexpr short width = 800;
  static constexpr short height = 600;

  static double heightAt(double x, double y) {
    return 20.0 + 3.0 * std::sin(0.2 * x) + 0.05 * (y - viewOffset.y);
  }

  static tarn::PointMesh& addTerrain(tarn::Project& project, const Point3DDouble& shift = {}) {
    tarn::PointMesh& mesh = project.AddPointMesh();
    mesh.Allocate(columns * rows, 1);
    for (int i = 0; i < columns * rows; ++i) {
      const double x = viewOffset.x + spacing * (i % columns - columns / 2);
      const double y = viewOffset.y + spacing * (i / columns - rows / 2);
      const Point3DDouble stored = Point3DDouble(x, y, heightAt(x, y)) - shift;
      mesh.GetPoints()[i][0] = static_cast<float>(stored.x);
      mesh.GetPoints()[i][1] = static_cast<float>(stored.y);
      mesh.GetPoints()[i][2] = static_cast<float>(stored.z);
      for (int k = 0; k < 3; ++k) {
        mesh.GetRGBsForPoints()[i][k] = static_cast<unsigned char>((i >> (8 * k)) & 255);
      }
    }
    if (shift != Point3DDouble()) {
      tarn::BasicAffine model_from_stored;
      model_from_stored.SetTranslation({}, shift);
      mesh.SetLocalAffine(model_from_stored);
    }
    mesh.PointsChanged();
    return mesh;
  }

  /// Looks down, 64 units wide and 48 high, north up.
  static NodeRef<SoCamera> fromAbove() {
    auto camera = makeNode<SoOrthographicCamera>();
    camera->viewportMapping = SoCamera::LEAVE_ALONE;
    camera->aspectRatio = static_cast<float>(width) / height;
    camera->height = 48.0F;
    camera->position = SbVec3f(0.0F, 100.0F, 0.0F);
    camera->orientation = SbRotation(SbVec3f(1.0F, 0.0F, 0.0F), -static_cast<float>(M_PI / 2.0));
    return NodeRef<SoCamera>(camera.get());
  }
  /// Looks down at a slant, over the terrain's edges.
  static NodeRef<SoCamera> atASlant(SoCamera::ViewportMapping mapping = SoCamera::LEAVE_ALONE) {
    auto camera = makeNode<SoPerspectiveCamera>();
    camera->viewportMapping = mapping;
    camera->aspectRatio = static_cast<float>(width) / height;
    camera->heightAngle = 0.8F;
    camera->position = SbVec3f(25.0F, 20.0F, 30.0F);
    camera->pointAt(SbVec3f(3.0F, -8.0F, 2.0F), SbVec3f(0.1F, 1.0F, 0.0F));
    return NodeRef<SoCamera>(camera.get());
  }
  static tarn::Extents extents() {
    return {viewOffset - Point3DDouble(25.0, 20.0, 15.0), viewOffset + Point3DDouble(25, 20, 15)};
  }
  static CloudCut cutOf(SoCamera& camera, short pictureWidth = width,
                        short pictureHeight = height) {
    return {camera, extents(), SbViewportRegion(pictureWidth, pictureHeight)};
  }

  /// Where a model point is seen, in fractions of what the camera draws, in double precision
  /// from the camera's own fields. Absent behind the eye.
  static std::optional<std::pair<double, double>> seenAt(const SoCamera& camera,
                                                         const Point3DDouble& point) {
    const Point3DDouble viewer = ViewerFrame::exactFromModel(point);
    SbVec3f axes[3] = {{1.0F, 0.0F, 0.0F}, {0.0F, 1.0F, 0.0F}, {0.0F, 0.0F, -1.0F}};
    double along[3] = {};
    const SbVec3f eye = camera.position.getValue();
    for (int k = 0; k < 3; ++k) {
      camera.orientation.getValue().multVec(axes[k], axes[k]);
      along[k] = (viewer.x - static_cast<double>(eye[0])) * static_cast<double>(axes[k][0]) +
                 (viewer.y - static_cast<double>(eye[1])) * static_cast<double>(axes[k][1]) +
                 (viewer.z - static_cast<double>(eye[2])) * static_cast<double>(axes[k][2]);
    }
    double halfHeight = 0.0;
    if (camera.isOfType(SoPerspectiveCamera::getClassTypeId())) {
      if (along[2] <= 0.0) return std::nullopt;
      const auto& perspective = static_cast<const SoPerspectiveCamera&>(camera);
      halfHeight =
          along[2] * std::tan(0.5 * static_cast<double>(perspective.heightAngle.getValue()));
    } else {
      const auto& parallel = static_cast<const SoOrthographicCamera&>(camera);
      halfHeight = 0.5 * static_cast<double>(parallel.height.getValue());
    }
    const double halfWidth = halfHeight * static_cast<double>(camera.aspectRatio.getValue());
    return std::pair(0.5 + 0.5 * along[0] / halfWidth, 0.5 + 0.5 * along[1] / halfHeight);
  }

  // The index of a point in the terrain, from its colour.
  static int originalIndex(const tarn::PointMesh& mesh, int i) {
    const unsigned char* colour = mesh.GetRGBsForPoints()[i];
    return colour[0] + 256 * colour[1] + 65536 * colour[2];
  }

  struct DrawnPart {
    double x, y, width, height;
  };
  /// `tolerance` in pixels: points that near to the box's sides may be kept or not.
  static void expectBoxKeepsWhatIsSeen(SoCamera& camera, const CommandLine::Corners& box,
                                       const Point3DDouble& shift, const DrawnPart& drawn,
                                       double tolerance, short pictureWidth = width,
                                       short pictureHeight = height) {
    SCOPED_TRACE(::testing::Message() << box.x0 << ", shifted " << shift.x << ", " << drawn.x);
    tarn::Project project;
    tarn::PointMesh& mesh = addTerrain(project, shift);
    std::vector<double> depthInBox;  // in pixels, negative outside
    for (int i = 0; i < mesh.GetNumPoints(); ++i) {
      const auto seen = seenAt(camera, mesh.GetModelPoint(i));
      const double x = seen ? drawn.x + seen->first * drawn.width : -1e9;
      const double y = seen ? drawn.y + seen->second * drawn.height : -1e9;
      const auto [left, right] = std::minmax({box.x0 * pictureWidth, box.x1 * pictureWidth});
      const auto [bottom, top] = std::minmax({box.y0 * pictureHeight, box.y1 * pictureHeight});
      depthInBox.push_back(std::min({x - left, right - x, y - bottom, top - y}));
    }
    const int left = cutOf(camera, pictureWidth, pictureHeight).keepBox(project, box);
    ASSERT_EQ(mesh.GetNumPoints(), left);
    std::set<int> kept;
    for (int i = 0; i < left; ++i) kept.insert(originalIndex(mesh, i));
    int inside = 0;
    for (int i = 0; i < columns * rows; ++i) {
      const double depth = depthInBox[static_cast<std::size_t>(i)];
      if (std::abs(depth) < tolerance) continue;
      EXPECT_EQ(kept.contains(i), depth > 0.0) << i << ' ' << depth;
      inside += depth > 0.0;
    }
    EXPECT_GT(inside, 100);
  }

  template <typename Call>
  static std::string refusal(Call call) {
    try {
      call();
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    ADD_FAILURE() << "nothing was refused";
    return {};
  }

  tarn::Project project;
};

TEST_F(CloudCutTest, ProfileSeenFromAboveIsTheTerrainsSurface) {
  addTerrain(project);
  const NodeRef<SoCamera> camera = fromAbove();
  // From 20 units west to 16 east of the middle, 6 south to 6 north of it.
  const CommandLine::Corners line{0.1875, 0.375, 0.75, 0.625};
  const Point3DDouble begin(viewOffset.x - 20.0, viewOffset.y - 6.0, 0.0);
  const Point3DDouble direction = (1.0 / std::hypot(36.0, 12.0)) * Point3DDouble(36.0, 12.0, 0.0);
  const CloudSection section = cutOf(*camera).section(project, line, 0.4);
  EXPECT_EQ(section.thickness, 0.4);
  ASSERT_EQ(section.profile.size(), section.points.size());
  // A strip 0.8 wide and as long as the line, four points to a square unit.
  EXPECT_NEAR(static_cast<double>(section.profile.size()), 0.8 * std::hypot(36.0, 12.0) * 4.0, 6.0);
  for (const tarn::Profile::Point& point : section.profile) {
    const Point3DDouble onLine = begin + point.distance * direction;
    // No steeper than 0.62, and up to 0.4 beside the line.
    EXPECT_NEAR(point.height, heightAt(onLine.x, onLine.y), 0.62 * 0.4);
    EXPECT_GE(point.distance, -1e-4);
    EXPECT_LE(point.distance, std::hypot(36.0, 12.0) + 1e-4);
  }
  EXPECT_LT(section.profile.front().distance, 0.5);
  EXPECT_GT(section.profile.back().distance, std::hypot(36.0, 12.0) - 0.5);
}

TEST_F(CloudCutTest, DistancesBeginWhereTheLineBeginsAlsoWhereThereAreNoPoints) {
  addTerrain(project);
  const NodeRef<SoCamera> camera = fromAbove();
  // From 32 units west of the middle on; the terrain begins at 25.
  const CloudSection there = cutOf(*camera).section(project, {0.0, 0.5, 0.5, 0.5}, 0.1);
  EXPECT_NEAR(there.profile.front().distance, 7.0, 1e-4);
  EXPECT_NEAR(there.profile.back().distance, 32.0, 1e-4);
  const CloudSection back = cutOf(*camera).section(project, {0.5, 0.5, 0.0, 0.5}, 0.1);
  EXPECT_NEAR(back.profile.front().distance, 0.0, 1e-4);
  EXPECT_NEAR(back.profile.back().distance, 25.0, 1e-4);
}

TEST_F(CloudCutTest, HeightsAndDistancesStandFarFromTheOrigin) {
  tarn::gThreeDViewOffset = {500000.0, 5000000.0, 20000.0};
  tarn::PointMesh& mesh = project.AddPointMesh();
  mesh.Allocate(2, 0);
  const float points[2][3] = {{-4.0F, 0.0F, 1.5F}, {8.0F, 0.0F, 2.25F}};
  std::copy_n(&points[0][0], 6, mesh.GetPointStorage().begin());
  tarn::BasicAffine model_from_stored;
  model_from_stored.SetTranslation({}, tarn::gThreeDViewOffset);
  mesh.SetLocalAffine(model_from_stored);
  const NodeRef<SoCamera> camera = fromAbove();
  const tarn::Extents all(tarn::gThreeDViewOffset - Point3DDouble(10.0, 10.0, 10.0),
                          tarn::gThreeDViewOffset + Point3DDouble(10.0, 10.0, 10.0));
  const CloudCut cut(*camera, all, SbViewportRegion(width, height));
  const CloudSection section = cut.section(project, {0.25, 0.5, 0.75, 0.5}, 0.01);
  ASSERT_EQ(section.profile.size(), 2U);
  EXPECT_NEAR(section.profile[0].distance, 12.0, 1e-4);
  EXPECT_NEAR(section.profile[0].height, 20001.5, 1e-9);
  EXPECT_NEAR(section.profile[1].distance, 24.0, 1e-4);
  EXPECT_NEAR(section.profile[1].height, 20002.25, 1e-9);
}

// Against a projection of its own: who is seen between the ends and near the line is in it.
TEST_F(CloudCutTest, SectionAtASlantTakesWhatIsSeenBetweenTheLinesEnds) {
  const tarn::PointMesh& mesh = addTerrain(project);
  const NodeRef<SoCamera> camera = atASlant();
  const CommandLine::Corners line{0.3, 0.25, 0.7, 0.55};
  const CloudSection section = cutOf(*camera).section(project, line, 0.3);
  std::set<std::vector<double>> taken;
  for (const Point3DDouble& point : section.points) taken.insert({point.x, point.y, point.z});
  // In pixels, along the line and to its left.
  const double lineX = (line.x1 - line.x0) * width;
  const double lineY = (line.y1 - line.y0) * height;
  const double length = std::hypot(lineX, lineY);
  int inside = 0;
  for (int i = 0; i < mesh.GetNumPoints(); ++i) {
    const Point3DDouble point = mesh.GetModelPoint(i);
    const auto seen = seenAt(*camera, point);
    if (!seen) continue;
    const double x = (seen->first - line.x0) * width;
    const double y = (seen->second - line.y0) * height;
    const double along = (x * lineX + y * lineY) / length;
    const double beside = std::abs(x * lineY - y * lineX) / length;
    // From the eye it is 0.3 units away that the section ends: in pixels, by the depth.
    const double depth =
        static_cast<double>((ViewerFrame::fromModel(point) - camera->position.getValue()).length());
    const double wide = 0.3 * 0.5 * height / std::tan(0.4) / depth;
    const bool isTaken = taken.contains({point.x, point.y, point.z});
    if (along < -0.01 || along > length + 0.01 || beside > 1.2 * wide) {
      EXPECT_FALSE(isTaken) << along << ' ' << beside << ' ' << wide;
    } else if (along > 0.01 && along < length - 0.01 && beside < 0.8 * wide) {
      EXPECT_TRUE(isTaken) << along << ' ' << beside << ' ' << wide;
      ++inside;
    }
  }
  EXPECT_GT(inside, 30);
  // What is near the line's beginning is near the profile's.
  EXPECT_LT(std::abs(section.profile.front().distance), 0.6);
}

TEST_F(CloudCutTest, WithoutAThicknessItIsTwiceTheDistanceOfNeighbours) {
  addTerrain(project);
  const NodeRef<SoCamera> camera = fromAbove();
  const CloudSection section = cutOf(*camera).section(project, {0.2, 0.5, 0.8, 0.5}, {});
  // The neighbour to the north is half a unit away, and 0.025 higher.
  EXPECT_NEAR(section.thickness, 2.0 * std::hypot(0.5, 0.025), 1e-4);
}

TEST_F(CloudCutTest, AllMeshesArePartOfTheSection) {
  addTerrain(project);
  const NodeRef<SoCamera> camera = fromAbove();
  const CommandLine::Corners line{0.2, 0.5, 0.8, 0.5};
  const std::size_t one = cutOf(*camera).section(project, line, 0.3).points.size();
  addTerrain(project, {100.0, 200.0, 10.0});
  EXPECT_EQ(cutOf(*camera).section(project, line, 0.3).points.size(), 2 * one);
}

TEST_F(CloudCutTest, SectionsLineIsShown) {
  addTerrain(project);
  const NodeRef<SoCamera> camera = fromAbove();
  const CloudSection section = cutOf(*camera).section(project, {0.25, 0.5, 0.75, 0.625}, 0.3);
  auto* overlay = static_cast<SoSwitch*>(section.line->getChild(0));
  EXPECT_EQ(overlay->whichChild.getValue(), SO_SWITCH_ALL);
  const auto* coordinates =
      static_cast<SoCoordinate3*>(static_cast<SoGroup*>(overlay->getChild(0))->getChild(2));
  ASSERT_EQ(coordinates->point.getNum(), 2);
  EXPECT_EQ(coordinates->point[0], SbVec3f(-0.5F, 0.0F, 0.0F));
  EXPECT_EQ(coordinates->point[1], SbVec3f(0.5F, 0.25F, 0.0F));
}

TEST_F(CloudCutTest, HorizontalSectionsAreRefused) {
  addTerrain(project);
  auto front = makeNode<SoOrthographicCamera>();
  front->viewportMapping = SoCamera::LEAVE_ALONE;
  front->height = 48.0F;
  front->position = SbVec3f(0.0F, 0.0F, 100.0F);
  const NodeRef<SoCamera> camera(front.get());
  EXPECT_THAT(refusal([&] {
                static_cast<void>(cutOf(*camera).section(project, {0.1, 0.3, 0.9, 0.3}, {}));
              }),
              HasSubstr("horizontal"));
  EXPECT_GT(cutOf(*camera).section(project, {0.5, 0.0, 0.5, 1.0}, {}).points.size(), 0U);
}

TEST_F(CloudCutTest, WhatCutsNothingIsRefused) {
  const NodeRef<SoCamera> camera = fromAbove();
  const CloudCut cut = cutOf(*camera);
  const CommandLine::Corners corner{0.0, 0.0, 0.05, 0.05};
  const auto section = [&] { static_cast<void>(cut.section(project, corner, {})); };
  const auto box = [&] { cut.keepBox(project, corner); };
  EXPECT_THAT(refusal(section), HasSubstr("there is no dense cloud or mesh"));
  EXPECT_THAT(refusal(box), HasSubstr("there is no dense cloud or mesh"));
  addTerrain(project);
  EXPECT_EQ(refusal(section), "no point of a cloud or mesh lies in the section");
  EXPECT_EQ(refusal(box), "no point of a cloud or mesh lies in the box");
  const CommandLine::Corners tiny{0.5, 0.5, 0.5001, 0.5001};
  EXPECT_THAT(refusal([&] { static_cast<void>(cut.section(project, tiny, {})); }),
              HasSubstr("shorter than a pixel"));
  EXPECT_THAT(refusal([&] { cut.keepBox(project, tiny); }), HasSubstr("narrower than a pixel"));
}

TEST_F(CloudCutTest, RefusedBoxLeavesTheMeshesAsTheyAre) {
  const tarn::PointMesh& mesh = addTerrain(project);
  const NodeRef<SoCamera> camera = fromAbove();
  refusal([&] { cutOf(*camera).keepBox(project, {0.0, 0.0, 0.05, 0.05}); });
  EXPECT_EQ(mesh.GetNumPoints(), columns * rows);
}

TEST_F(CloudCutTest, BoxKeepsExactlyThePointsThatAreSeenInsideIt) {
  for (const NodeRef<SoCamera>& camera : {fromAbove(), atASlant()}) {
    // The second from its lower right to its upper left corner.
    for (const CommandLine::Corners& box :
         {CommandLine::Corners{0.3, 0.2, 0.65, 0.6}, CommandLine::Corners{0.9, 0.4, 0.4, 0.7}}) {
      for (const Point3DDouble& shift : {Point3DDouble(), Point3DDouble(100.0, -200.0, 30.0)}) {
        expectBoxKeepsWhatIsSeen(*camera, box, shift, {0.0, 0.0, width, height}, 0.02);
      }
    }
  }
}

TEST_F(CloudCutTest, BoxIsDrawnOnThePictureWhereTheCameraLeavesAPartOfItFree) {
  // A camera of proportions 4 to 3 in the middle of a wide picture, and of a high one. Coin
  // counts the free part in whole pixels.
  const NodeRef<SoCamera> camera = atASlant(SoCamera::CROP_VIEWPORT_FILL_FRAME);
  const CommandLine::Corners box{0.4, 0.3, 0.6, 0.7};
  expectBoxKeepsWhatIsSeen(*camera, box, {}, {200.0, 0.0, 800.0, 600.0}, 1.0, 1200, 600);
  expectBoxKeepsWhatIsSeen(*camera, box, {}, {0.0, 150.0, 800.0, 600.0}, 1.0, 800, 900);
}

TEST_F(CloudCutTest, WhatIsBehindTheEyeIsNeitherInTheBoxNorInTheSection) {
  tarn::PointMesh& mesh = addTerrain(project);
  auto camera = makeNode<SoPerspectiveCamera>();
  camera->viewportMapping = SoCamera::LEAVE_ALONE;
  camera->aspectRatio = 1.0F;
  camera->heightAngle = 1.5F;
  // In the middle of the terrain, looking north along it.
  camera->position = SbVec3f(0.0F, -5.0F, 0.0F);
  const CloudCut cut = cutOf(*camera, 600, 600);
  for (const Point3DDouble& point : cut.section(project, {0.5, 0.0, 0.5, 1.0}, 0.3).points) {
    EXPECT_GT(point.y, viewOffset.y);
  }
  cut.keepBox(project, {0.0, 0.0, 1.0, 1.0});
  EXPECT_GT(mesh.GetNumPoints(), 100);
  for (int i = 0; i < mesh.GetNumPoints(); ++i) EXPECT_GT(mesh.GetModelPoint(i).y, viewOffset.y);
}
