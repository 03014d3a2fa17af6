#include "viewer/ViewFraming.h"

#include <Inventor/SbViewVolume.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>

#include "host/model/ImportedLine.h"
#include "host/model/ImportedSurface.h"
#include "host/model/NURBSCurve.h"
#include "host/model/NURBSSurfaceCylinder.h"
#include "host/model/Project.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/ViewerFrame.h"
#include "tests/support/TarnTest.h"

#include <array>
#include <cmath>

using View = CommandLine::View;
using tarn::Point3DDouble;

class ViewFramingTest : public TarnTest {
protected:
  void addPoint(double x, double y, double z) {
    tarn::ObjectPoint& point = project.AddObjectPoint();
    point.SetApproximation(tarn::Point3DRandom(Point3DDouble(x, y, z)));
  }

  // 11 x 11 x 11 points of a block 20 wide, 10 deep and 5 high, its middle at (100, 50, 20).
  void addBlock() {
    for (int i = 0; i <= 10; ++i) {
      for (int j = 0; j <= 10; ++j) {
        for (int k = 0; k <= 10; ++k) addPoint(90.0 + 2.0 * i, 45.0 + j, 17.5 + 0.5 * k);
      }
    }
  }

  void addStation(const Point3DDouble& position, const Point3DDouble& right,
                  const Point3DDouble& up, const Point3DDouble& back) {
    tarn::MatrixDouble rotation = tarn::MatrixDouble::Identity(3);
    const Point3DDouble* rows[] = {&right, &up, &back};
    for (int row = 1; row <= 3; ++row) {
      rotation(row, 1) = rows[row - 1]->x;
      rotation(row, 2) = rows[row - 1]->y;
      rotation(row, 3) = rows[row - 1]->z;
    }
    project.AddCameraStation().SetOrientation(position, rotation);
  }

  // Where the point is in the picture: 0 to 1 across, up, and in depth.
  static SbVec3f onScreen(SoCamera& camera, const Point3DDouble& point) {
    SbVec3f screen;
    camera.getViewVolume().projectToScreen(ViewerFrame::fromModel(point), screen);
    return screen;
  }

  tarn::Project project;
};

TEST_F(ViewFramingTest, BoxLeavesAFewOutliersAside) {
  addBlock();
  addPoint(1e6, 0.0, 0.0);
  addPoint(0.0, -1e5, 3e4);
  const ViewFraming framing(project);
  Point3DDouble low;
  Point3DDouble high;
  ASSERT_TRUE(framing.objectExtents().GetExtents(low, high));
  EXPECT_EQ(low, Point3DDouble(90.0, 45.0, 17.5));
  EXPECT_EQ(high, Point3DDouble(110.0, 55.0, 22.5));
}

TEST_F(ViewFramingTest, BoxHoldsPointMeshesWhereTheyStandWithoutTheirOutliers) {
  tarn::PointMesh& mesh = project.AddPointMesh();
  constexpr int count = 200'000;  // more than are looked at
  mesh.Allocate(count, 0);
  const std::span<float> xyz = mesh.GetPointStorage();
  for (std::size_t i = 0; i < count; ++i) {
    xyz[3 * i] = static_cast<float>(i % 100);
    xyz[3 * i + 1] = static_cast<float>(i / 100 % 50);
    xyz[3 * i + 2] = i % 1009 == 0 ? -1e6F : static_cast<float>(i % 7);
  }
  tarn::BasicAffine shift;
  shift.SetTranslation({}, {5e6, 1000.0, 0.0});
  mesh.SetLocalAffine(shift);
  const ViewFraming framing(project);
  Point3DDouble low;
  Point3DDouble high;
  ASSERT_TRUE(framing.objectExtents().GetExtents(low, high));
  EXPECT_NEAR((low - Point3DDouble(5e6, 1000.0, 0.0)).length(), 0.0, 2.0);
  EXPECT_NEAR((high - Point3DDouble(5e6 + 99.0, 1049.0, 6.0)).length(), 0.0, 2.0);
}

TEST_F(ViewFramingTest, BoxHoldsSurfacesAndLinesToTheirLastCorner) {
  addBlock();
  tarn::ImportedSurface& surface = project.AddImportedSurface();
  const int set = surface.AddTriangleSet();
  // Many small triangles at one place, and one that reaches far away.
  tarn::ThreeDPoint& a = surface.AddPoint({100.0, 50.0, 20.0});
  tarn::ThreeDPoint& b = surface.AddPoint({101.0, 50.0, 20.0});
  for (int i = 0; i < 1000; ++i) surface.AddTriangle(set, &a, &b, &a);
  surface.AddTriangle(set, &a, &b, &surface.AddPoint({-500.0, 60.0, 21.0}));
  tarn::ImportedPoint& end = project.AddImportedPoint();
  end.SetApproximation(tarn::Point3DRandom(Point3DDouble(100.0, 700.0, -3.0)));
  project.AddImportedLine().SetThreeDPoints(&end, nullptr);
  const ViewFraming framing(project);
  Point3DDouble low;
  Point3DDouble high;
  ASSERT_TRUE(framing.objectExtents().GetExtents(low, high));
  EXPECT_EQ(low, Point3DDouble(-500.0, 45.0, -3.0));
  EXPECT_EQ(high, Point3DDouble(110.0, 700.0, 22.5));
}

TEST_F(ViewFramingTest, BoxHoldsTheTrianglesOfCylindersAndTheControlPointsOfCurves) {
  tarn::NURBSSurfaceCylinder& cylinder = project.AddNURBSSurfaceCylinder();
  cylinder.GetCylinder()->SetEndPoints({10, 20, 30}, {10, 20, 50});
  cylinder.GetCylinder()->SetRadius(2.0);
  ASSERT_TRUE(cylinder.Tessellate(0.01));
  ASSERT_TRUE(project.AddNURBSCurve().SetCurve(1, {0, 0, 1, 1}, {{11, 20, 40}, {60, 21, 40}}));
  const ViewFraming framing(project);
  Point3DDouble low;
  Point3DDouble high;
  ASSERT_TRUE(framing.objectExtents().GetExtents(low, high));
  EXPECT_NEAR((low - Point3DDouble(8, 18, 30)).length(), 0.0, 0.1);
  EXPECT_NEAR((high - Point3DDouble(60, 22, 50)).length(), 0.0, 0.1);
}

TEST_F(ViewFramingTest, BoxOfALargeSurfaceIsThatOfSomeOfItsTriangles) {
  tarn::ImportedSurface& surface = project.AddImportedSurface();
  const int set = surface.AddTriangleSet();
  for (int i = 0; i < 120'000; ++i) {
    tarn::ThreeDPoint& corner = surface.AddPoint({i % 100 * 1.0, i / 100 % 50 * 1.0, i % 7 * 1.0});
    surface.AddTriangle(set, &corner, &corner, &corner);
  }
  const ViewFraming framing(project);
  Point3DDouble low;
  Point3DDouble high;
  ASSERT_TRUE(framing.objectExtents().GetExtents(low, high));
  EXPECT_NEAR(low.length(), 0.0, 2.0);
  EXPECT_NEAR((high - Point3DDouble(99.0, 49.0, 6.0)).length(), 0.0, 2.0);
}

// Two triangles of a turned ground, wherever they stand among the many.
TEST_F(ViewFramingTest, EveryViewHoldsTheFewFarTrianglesOfALargeSurface) {
  const std::array<Point3DDouble, 4> ground = {
      {{-300.0, -40.0, 1.0}, {40.0, -300.0, 2.0}, {300.0, 40.0, 3.0}, {-40.0, 300.0, 2.0}}};
  for (const int place : {0, 1, 2, 77'777, 119'999}) {
    tarn::Project large;
    tarn::ImportedSurface& surface = large.AddImportedSurface();
    const int set = surface.AddTriangleSet();
    std::array<tarn::ThreeDPoint*, 4> corners{};
    for (std::size_t k = 0; k < 4; ++k) corners[k] = &surface.AddPoint(ground[k]);
    tarn::ThreeDPoint& house = surface.AddPoint({10.0, 20.0, 30.0});
    for (int i = 0; i < 120'000; ++i) {
      if (i == place) {
        surface.AddTriangle(set, corners[0], corners[1], corners[2]);
        surface.AddTriangle(set, corners[0], corners[2], corners[3]);
      } else {
        surface.AddTriangle(set, &house, &house, &house);
      }
    }
    const ViewFraming framing(large);
    for (const View view : {View::eIso, View::eTop, View::eFront, View::eRight}) {
      const NodeRef<SoCamera> camera(framing.makeCamera(view, 1.5));
      framing.setDepthRange(camera.get(), 0.5);
      for (const Point3DDouble& corner : ground) {
        const SbVec3f at = onScreen(*camera, corner);
        for (int k = 0; k < 3; ++k) {
          EXPECT_GE(at[k], 0.0F) << "place " << place << " view " << static_cast<int>(view);
          EXPECT_LE(at[k], 1.0F) << "place " << place << " view " << static_cast<int>(view);
        }
      }
    }
  }
}

TEST_F(ViewFramingTest, UpIsZUnlessTheStationsStandUprightAboutAnotherDirection) {
  addBlock();
  EXPECT_TRUE(ViewFraming(project).isZUp());
  addStation({100.0, 30.0, 25.0}, {1, 0, 0}, {0, 0, 1}, {0, -1, 0});
  EXPECT_TRUE(ViewFraming(project).isZUp());
  tarn::Project unlevelled;
  tarn::MatrixDouble rotation = tarn::MatrixDouble::Identity(3);
  rotation(2, 2) = -1.0;
  rotation(3, 3) = -1.0;
  unlevelled.AddCameraStation().SetOrientation({1.0, 2.0, 3.0}, rotation);
  EXPECT_FALSE(ViewFraming(unlevelled).isZUp());
}

TEST_F(ViewFramingTest, OfAFewPointsNoneIsAnOutlier) {
  addPoint(0.0, 0.0, 0.0);
  addPoint(1.0, 2.0, 3.0);
  addPoint(1000.0, 5.0, 6.0);
  Point3DDouble low;
  Point3DDouble high;
  ASSERT_TRUE(ViewFraming(project).objectExtents().GetExtents(low, high));
  EXPECT_EQ(high, Point3DDouble(1000.0, 5.0, 6.0));
}

TEST_F(ViewFramingTest, EveryViewHoldsThePointsAndStationsAndFillsThePicture) {
  addBlock();
  addStation({100.0, 30.0, 25.0}, {1, 0, 0}, {0, 0, 1}, {0, -1, 0});
  const ViewFraming framing(project);
  for (const View view : {View::eIso, View::eTop, View::eFront, View::eRight}) {
    for (const double aspect : {1.5, 0.5}) {
      const NodeRef<SoCamera> camera(framing.makeCamera(view, aspect));
      framing.setDepthRange(camera.get(), 0.5);
      float left = 1.0F, right = 0.0F, bottom = 1.0F, top = 0.0F;
      const auto hold = [&](const Point3DDouble& point) {
        const SbVec3f at = onScreen(*camera, point);
        left = std::min(left, at[0]);
        right = std::max(right, at[0]);
        bottom = std::min(bottom, at[1]);
        top = std::max(top, at[1]);
        EXPECT_GE(at[2], 0.0F);
        EXPECT_LE(at[2], 1.0F);
      };
      for (const double x : {90.0, 110.0}) {
        for (const double y : {45.0, 55.0}) {
          for (const double z : {17.5, 22.5}) hold({x, y, z});
        }
      }
      hold({100.0, 30.0, 25.0});
      EXPECT_GE(left, 0.0F);
      EXPECT_LE(right, 1.0F);
      EXPECT_GE(bottom, 0.0F);
      EXPECT_LE(top, 1.0F);
      EXPECT_GT(std::max(right - left, top - bottom), 0.85F)
          << "view " << static_cast<int>(view) << " aspect " << aspect;
    }
  }
}

TEST_F(ViewFramingTest, TopLooksDownWithYUpwards) {
  addBlock();
  const NodeRef<SoCamera> camera(ViewFraming(project).makeCamera(View::eTop, 1.0));
  ASSERT_TRUE(camera->isOfType(SoOrthographicCamera::getClassTypeId()));
  const SbVec3f middle = onScreen(*camera, {100.0, 50.0, 20.0});
  EXPECT_GT(onScreen(*camera, {101.0, 50.0, 20.0})[0], middle[0]);
  EXPECT_GT(onScreen(*camera, {100.0, 51.0, 20.0})[1], middle[1]);
  EXPECT_LT(onScreen(*camera, {100.0, 50.0, 21.0})[2], middle[2]) << "higher is nearer";
}

TEST_F(ViewFramingTest, FrontLooksAlongYWithZUpwards) {
  addBlock();
  const NodeRef<SoCamera> camera(ViewFraming(project).makeCamera(View::eFront, 1.0));
  const SbVec3f middle = onScreen(*camera, {100.0, 50.0, 20.0});
  EXPECT_GT(onScreen(*camera, {101.0, 50.0, 20.0})[0], middle[0]);
  EXPECT_GT(onScreen(*camera, {100.0, 50.0, 21.0})[1], middle[1]);
  EXPECT_GT(onScreen(*camera, {100.0, 51.0, 20.0})[2], middle[2]) << "farther along Y";
}

TEST_F(ViewFramingTest, RightLooksAgainstXWithZUpwards) {
  addBlock();
  const NodeRef<SoCamera> camera(ViewFraming(project).makeCamera(View::eRight, 1.0));
  const SbVec3f middle = onScreen(*camera, {100.0, 50.0, 20.0});
  EXPECT_GT(onScreen(*camera, {100.0, 51.0, 20.0})[0], middle[0]);
  EXPECT_GT(onScreen(*camera, {100.0, 50.0, 21.0})[1], middle[1]);
  EXPECT_LT(onScreen(*camera, {101.0, 50.0, 20.0})[2], middle[2]) << "nearer along X";
}

TEST_F(ViewFramingTest, IsoIsPerspectiveAndShowsZUpwards) {
  addBlock();
  const NodeRef<SoCamera> camera(ViewFraming(project).makeCamera(View::eIso, 1.0));
  ASSERT_TRUE(camera->isOfType(SoPerspectiveCamera::getClassTypeId()));
  const SbVec3f middle = onScreen(*camera, {100.0, 50.0, 20.0});
  const SbVec3f higher = onScreen(*camera, {100.0, 50.0, 22.0});
  EXPECT_GT(higher[1], middle[1]);
  EXPECT_NEAR(higher[0], middle[0], 0.02F);
}

TEST_F(ViewFramingTest, StationsThatStandUprightAboutAnotherDirectionSayWhatIsUp) {
  addBlock();
  // As a model has it that took its frame from the first camera: y down, z forward.
  addStation({100.0, 50.0, -20.0}, {1, 0, 0}, {0, -1, 0}, {0, 0, -1});
  addStation({104.0, 50.0, -20.0}, {1, 0, 0}, {0, -1, 0}, {0, 0, -1});
  const ViewFraming::Axes front = ViewFraming(project).axes(View::eFront);
  EXPECT_EQ(front.up, Point3DDouble(0.0, -1.0, 0.0));
  EXPECT_EQ(front.back, Point3DDouble(0.0, 0.0, -1.0));
  EXPECT_EQ(front.right, Point3DDouble(1.0, 0.0, 0.0));
}

TEST_F(ViewFramingTest, StationsThatLookDownLeaveZUp) {
  addBlock();
  addStation({100.0, 50.0, 120.0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
  addStation({104.0, 50.0, 120.0}, {1, 0, 0}, {0, 1, 0}, {0, 0, 1});
  EXPECT_EQ(ViewFraming(project).axes(View::eFront).up, Point3DDouble(0.0, 0.0, 1.0));
}

TEST_F(ViewFramingTest, StationSpacingIsTheMedianDistanceToTheNearest) {
  const Point3DDouble x(1, 0, 0), y(0, 1, 0), z(0, 0, 1);
  addStation({0.0, 0.0, 0.0}, x, y, z);
  EXPECT_EQ(ViewFraming(project).stationSpacing(), 0.0);
  addStation({1.0, 0.0, 0.0}, x, y, z);
  addStation({3.0, 0.0, 0.0}, x, y, z);
  addStation({5.0, 0.0, 0.0}, x, y, z);
  addStation({900.0, 0.0, 0.0}, x, y, z);
  EXPECT_EQ(ViewFraming(project).stationSpacing(), 2.0);
}

TEST_F(ViewFramingTest, EmptyProjectAndSinglePointGiveUsableCameras) {
  for (int points = 0; points < 2; ++points) {
    if (points == 1) addPoint(10.0, -20.0, 30.0);
    const ViewFraming framing(project);
    for (const View view : {View::eIso, View::eTop}) {
      const NodeRef<SoCamera> camera(framing.makeCamera(view, 1.0));
      framing.setDepthRange(camera.get(), 0.1);
      EXPECT_TRUE(std::isfinite(camera->position.getValue().length()));
      EXPECT_GT(camera->nearDistance.getValue(), 0.0F);
      EXPECT_GT(camera->farDistance.getValue(), camera->nearDistance.getValue());
    }
  }
}

TEST_F(ViewFramingTest, PointsAtOnePlaceAreInThePictureAndItsDepth) {
  for (int i = 0; i < 3; ++i) addPoint(10.0, -20.0, 30.0);
  const ViewFraming framing(project);
  for (const View view : {View::eIso, View::eTop, View::eFront, View::eRight}) {
    const NodeRef<SoCamera> camera(framing.makeCamera(view, 1.5));
    framing.setDepthRange(camera.get(), 0.15);
    const SbVec3f at = onScreen(*camera, {10.0, -20.0, 30.0});
    EXPECT_NEAR(at[0], 0.5F, 1e-4F);
    EXPECT_NEAR(at[1], 0.5F, 1e-4F);
    EXPECT_GT(at[2], 0.0F) << "view " << static_cast<int>(view);
    EXPECT_LT(at[2], 1.0F) << "view " << static_cast<int>(view);
  }
}
