#include "host/model/Project.h"

#include "host/model/ImportedLine.h"
#include "host/model/ImportedSurface.h"
#include "host/model/SurfaceGroup.h"
#include "tests/support/TarnTest.h"

#include <algorithm>
#include <initializer_list>
#include <vector>

using tarn::BasicAffine;
using tarn::Extents;
using tarn::MatrixDouble;
using tarn::Point3DDouble;
using tarn::Point3DRandom;
using tarn::Project;

class ProjectTest : public TarnTest {
protected:
  static void place(tarn::ThreeDPoint& point, const Point3DDouble& position, int processed) {
    point.SetApproximation(Point3DRandom(position));
    point.SetProcessed(processed);
  }

  /// A project with something of every kind that has a position, and some that have none.
  void fill() {
    place(project.AddObjectPoint(), {1.0, 2.0, 3.0}, 1);
    place(project.AddObjectPoint(), {4.0, -5.0, 6.0}, 0);
    project.AddObjectPoint();
    project.AddImportedPoint().SetStoredPosition(Point3DRandom(Point3DDouble{0.0, 0.0, 20.0}));
    tarn::ImportedPoint& inactive = project.AddImportedPoint();
    inactive.SetStoredPosition(Point3DRandom(Point3DDouble{0.0, 0.0, 900.0}));
    inactive.SetActive(0);
    project.AddCameraStation().SetOrientation({-30.0, 0.0, 5.0}, MatrixDouble::Identity(3));
    tarn::CameraStation& loose = project.AddCameraStation();
    loose.SetOrientation({-900.0, 0.0, 5.0}, MatrixDouble::Identity(3));
    loose.SetOriented(0);
  }

  /// A mesh of two points, stored 1000 units from where they are.
  tarn::PointMesh& addMesh(std::initializer_list<float> numbers) {
    tarn::PointMesh& mesh = project.AddPointMesh();
    mesh.Allocate(2, 0);
    std::ranges::copy(numbers, mesh.GetPointStorage().begin());
    BasicAffine shift;
    shift.SetTranslation({}, {1000.0, 0.0, 0.0});
    mesh.SetLocalAffine(shift);
    return mesh;
  }

  static void expectBox(const Extents& extents, const Point3DDouble& low,
                        const Point3DDouble& high) {
    Point3DDouble minimum;
    Point3DDouble maximum;
    ASSERT_TRUE(extents.GetExtents(minimum, maximum));
    EXPECT_EQ(minimum, low);
    EXPECT_EQ(maximum, high);
  }

  Project project;
};

TEST_F(ProjectTest, ANewProjectIsEmpty) {
  EXPECT_EQ(project.GetCameras().size(), 0);
  EXPECT_EQ(project.GetCameraStations().size(), 0);
  EXPECT_EQ(project.GetObjectPoints().size(), 0);
  EXPECT_EQ(project.GetImportedPoints().size(), 0);
  EXPECT_EQ(project.GetLines().size(), 0);
  EXPECT_EQ(project.GetEdges().size(), 0);
  EXPECT_EQ(project.GetPointMeshes().size(), 0);
  EXPECT_EQ(project.GetOffsetPoints().size(), 0);
  EXPECT_EQ(project.GetCheckPoints().size(), 0);
  EXPECT_EQ(project.GetThreeDPoints().size(), 0);
  EXPECT_EQ(project.GetAffineObjects().size(), 0);
  EXPECT_EQ(project.GetPhotoCollection()->GetPhotographs().size(), 0);
  EXPECT_EQ(project.GetAffineTransform(1), nullptr);
  EXPECT_TRUE(project.GetProjectExtents(nullptr, 1, 0).IsEmpty());
}

TEST_F(ProjectTest, ListsObjectsInTheOrderOfAddingAndKeepsThemInPlace) {
  std::vector<tarn::ObjectPoint*> points;
  for (int i = 0; i < 1000; ++i) points.push_back(&project.AddObjectPoint());
  for (int i = 0; i < 1000; ++i) {
    ASSERT_EQ(project.GetObjectPoints().at(i), points[static_cast<std::size_t>(i)]);
  }
  tarn::Camera& camera = project.AddCamera();
  EXPECT_EQ(project.GetCameras().at(0), &camera);
  EXPECT_EQ(&project.photographs(), project.GetPhotoCollection());
}

TEST_F(ProjectTest, ListsItsLinesAndEdges) {
  tarn::Line& line = project.AddLine();
  tarn::Line& secondLine = project.AddLine();
  tarn::Edge& edge = project.AddEdge();
  ASSERT_EQ(project.GetLines().size(), 2);
  EXPECT_EQ(project.GetLines().at(0), &line);
  EXPECT_EQ(project.GetLines().at(1), &secondLine);
  ASSERT_EQ(project.GetEdges().size(), 1);
  EXPECT_EQ(project.GetEdges().at(0), &edge);
}

TEST_F(ProjectTest, ListsEveryKindOfPointByItself) {
  const auto* offset = &project.AddOffsetPoint();
  const auto* check = &project.AddCheckPoint();
  const auto* derived = &project.AddThreeDPoint();
  const auto* affine = &project.AddAffineObjectNPoint();
  const auto expectOnly = [](const tarn::VOrdCollect& all, const tarn::VObject* object) {
    ASSERT_EQ(all.size(), 1);
    EXPECT_EQ(all.at(0), object);
  };
  expectOnly(project.GetOffsetPoints(), offset);
  expectOnly(project.GetCheckPoints(), check);
  expectOnly(project.GetThreeDPoints(), derived);
  expectOnly(project.GetAffineObjects(), affine);
  EXPECT_EQ(project.GetObjectPoints().size(), 0);
}

TEST_F(ProjectTest, FindsAnImportedPointByName) {
  project.AddImportedPoint().SetName("K1");
  tarn::ImportedPoint& point = project.AddImportedPoint();
  point.SetName("K7");
  project.AddImportedPoint().SetName("K7");
  EXPECT_EQ(project.FindImportedPoint("K7"), &point) << "the first of that name";
  EXPECT_EQ(project.FindImportedPoint("K"), nullptr);
}

TEST_F(ProjectTest, FindsAnObjectPointByNumberAndAStationByName) {
  project.AddObjectPoint().SetNumber(1);
  tarn::ObjectPoint& point = project.AddObjectPoint();
  point.SetNumber(123456789012L);
  project.AddCameraStation().SetName("a.jpg");
  tarn::CameraStation& station = project.AddCameraStation();
  station.SetName("left eye/b.jpg");
  EXPECT_EQ(project.FindObjectPoint(123456789012L), &point);
  EXPECT_EQ(project.FindObjectPoint(2), nullptr);
  EXPECT_EQ(project.FindCameraStation("left eye/b.jpg"), &station);
  EXPECT_EQ(project.FindCameraStation("b.jpg"), nullptr);
}

TEST_F(ProjectTest, ExtentsHoldPointsAndOrientedStations) {
  fill();
  expectBox(project.GetProjectExtents(nullptr, 1, 0), {-30.0, -5.0, 3.0}, {4.0, 2.0, 20.0});
}

TEST_F(ProjectTest, ExtentsWithoutStationsHoldPointsOnly) {
  fill();
  expectBox(project.GetProjectExtents(nullptr, 0, 0), {0.0, -5.0, 3.0}, {4.0, 2.0, 20.0});
}

TEST_F(ProjectTest, ExtentsOfProcessedPointsLeaveOutTheOthers) {
  fill();
  expectBox(project.GetProjectExtents(nullptr, 0, 1), {0.0, 0.0, 3.0}, {1.0, 2.0, 20.0});
}

TEST_F(ProjectTest, ExtentsHoldEveryKindOfPointThatHasAPosition) {
  place(project.AddObjectPoint(), {0.0, 0.0, 0.0}, 1);
  place(project.AddCheckPoint(), {0.0, 0.0, 20.0}, 0);
  place(project.AddThreeDPoint(), {0.0, 30.0, 0.0}, 0);
  project.AddAffineObjectNPoint().SetPosition({-40.0, 0.0, 0.0});
  project.AddOffsetPoint();
  project.AddCheckPoint();
  project.AddThreeDPoint();
  project.AddAffineObjectNPoint();
  expectBox(project.GetProjectExtents(nullptr, 0, 1), {-40.0, 0.0, 0.0}, {0.0, 30.0, 20.0});
}

TEST_F(ProjectTest, ExtentsHoldTheCornersOfSurfacesAndTheEndsOfLines) {
  tarn::ImportedSurface& surface = project.AddImportedSurface();
  surface.AddTriangle(surface.AddTriangleSet(), &surface.AddPoint({1.0, 2.0, 3.0}),
                      &surface.AddPoint({4.0, -5.0, 6.0}), nullptr);
  surface.AddPoint({100.0, 100.0, 100.0});  // of no triangle
  tarn::ImportedPoint& end = project.AddImportedPoint();
  end.SetApproximation(tarn::Point3DRandom(tarn::Point3DDouble(2.0, 0.0, 70.0)));
  project.AddImportedLine().SetThreeDPoints(nullptr, &end);
  tarn::ThreeDPoint far;
  far.SetApproximation(tarn::Point3DRandom(tarn::Point3DDouble(-8.0, 0.0, 4.0)));
  tarn::ThreeDPoint nowhere;
  project.AddSurfaceGroup().AddElement(&far, &nowhere, &far);
  expectBox(project.GetProjectExtents(nullptr, 0, 1), {-8.0, -5.0, 3.0}, {4.0, 2.0, 70.0});
  tarn::BasicAffine shift;
  shift.SetTranslation({}, {100.0, 200.0, 300.0});
  expectBox(project.GetProjectExtents(&shift, 0, 1), {92.0, 195.0, 303.0}, {104.0, 202.0, 370.0});
}

TEST_F(ProjectTest, ExtentsWithoutPositionsAreEmptyWhateverIsListed) {
  project.AddOffsetPoint();
  project.AddCheckPoint();
  project.AddThreeDPoint();
  project.AddAffineObjectNPoint();
  EXPECT_TRUE(project.GetProjectExtents(nullptr, 1, 0).IsEmpty());
}

TEST_F(ProjectTest, ExtentsOfProcessedPointsLeaveOutOffsetPointsFromOthers) {
  tarn::ObjectPoint& from = project.AddObjectPoint();
  place(from, {1.0, 2.0, 3.0}, 0);
  project.AddOffsetPoint().SetOffset(&from, {10.0, 0.0, 0.0});
  expectBox(project.GetProjectExtents(nullptr, 0, 0), {1.0, 2.0, 3.0}, {11.0, 2.0, 3.0});
  EXPECT_TRUE(project.GetProjectExtents(nullptr, 0, 1).IsEmpty());
  from.SetProcessed(1);
  expectBox(project.GetProjectExtents(nullptr, 0, 1), {1.0, 2.0, 3.0}, {11.0, 2.0, 3.0});
}

TEST_F(ProjectTest, ExtentsGoThroughTheAffineInItsDirection) {
  fill();
  BasicAffine affine;
  affine.SetScale(2.0);
  affine.SetTranslation({}, {100.0, 200.0, 300.0});
  expectBox(project.GetProjectExtents(&affine, 0, 0), {100.0, 190.0, 306.0}, {108.0, 204.0, 340.0});
  affine.DoInversion(1);
  expectBox(project.GetProjectExtents(&affine, 0, 0), {-50.0, -102.5, -148.5},
            {-48.0, -99.0, -140.0});
}

TEST_F(ProjectTest, AnAffineThatCannotBeSetUpIsLeftOut) {
  fill();
  BasicAffine affine;
  affine.SetTranslation({}, {100.0, 200.0, 300.0});
  affine.SetScale(0.0);
  expectBox(project.GetProjectExtents(&affine, 0, 0), {0.0, -5.0, 3.0}, {4.0, 2.0, 20.0});
}

TEST_F(ProjectTest, TheOtherFormGrowsTheExtentsGiven) {
  fill();
  Extents extents;
  extents.Add({50.0, 0.0, 0.0});
  project.GetProjectExtents(extents, nullptr, 0, 1);
  expectBox(extents, {0.0, 0.0, 0.0}, {50.0, 2.0, 20.0});
}

TEST_F(ProjectTest, ListsItsPointMeshesInTheOrderOfAdding) {
  tarn::PointMesh& first = project.AddPointMesh();
  tarn::PointMesh& second = project.AddPointMesh();
  ASSERT_EQ(project.GetPointMeshes().size(), 2);
  EXPECT_EQ(project.GetPointMeshes().at(0), &first);
  EXPECT_EQ(project.GetPointMeshes().at(1), &second);
}

TEST_F(ProjectTest, ProjectExtentsHoldMeshesWhereTheyAre) {
  addMesh({1, 2, 3, 4, 5, 6});
  expectBox(project.GetProjectExtents(nullptr, 0, 1), {1001.0, 2.0, 3.0}, {1004.0, 5.0, 6.0});
}

TEST_F(ProjectTest, PointMeshExtentsHoldMeshesAsTheyAreStoredAndNothingElse) {
  fill();
  addMesh({1, 2, 3, 4, 5, 6});
  addMesh({-1, 2, 3, 4, 5, 60});
  project.AddPointMesh();
  Extents extents;
  project.GetPointMeshExtents(extents, nullptr);
  expectBox(extents, {-1.0, 2.0, 3.0}, {4.0, 5.0, 60.0});
}

TEST_F(ProjectTest, PointMeshExtentsGoThroughTheAffineAndGrowWhatIsGiven) {
  addMesh({1, 2, 3, 4, 5, 6});
  BasicAffine affine;
  affine.SetScale(2.0);
  Extents extents;
  extents.Add({0.0, 0.0, 100.0});
  project.GetPointMeshExtents(extents, &affine);
  expectBox(extents, {0.0, 0.0, 6.0}, {8.0, 10.0, 100.0});
}

TEST_F(ProjectTest, PointMeshExtentsOfAProjectWithoutMeshesAreEmpty) {
  fill();
  Extents extents;
  project.GetPointMeshExtents(extents, nullptr);
  EXPECT_TRUE(extents.IsEmpty());
}

TEST_F(ProjectTest, GivesItsAffineTransform) {
  BasicAffine affine;
  project.SetAffineTransform(&affine);
  EXPECT_EQ(project.GetAffineTransform(1), &affine);
  project.SetAffineTransform(nullptr);
  EXPECT_EQ(project.GetAffineTransform(0), nullptr);
}

TEST_F(ProjectTest, CountsInMetresUntilAUnitIsSet) {
  ASSERT_NE(project.GetUnits(), nullptr);
  EXPECT_STREQ(project.GetUnits()->GetName().text(), "m");
  tarn::Units feet;
  feet.SetUnit("ft");
  project.SetUnits(feet);
  EXPECT_STREQ(project.GetUnits()->GetName().text(), "ft");
  EXPECT_DOUBLE_EQ(project.GetUnits()->UnitsToMeters(10.0), 3.048);
}

TEST_F(ProjectTest, ItsGroundIsTheXYPlaneUntilAHeightIsSet) {
  EXPECT_EQ(project.GetVolumeAboveXY_ZLevel(), 0.0);
  project.SetVolumeAboveXY_ZLevel(-12.5);
  EXPECT_EQ(project.GetVolumeAboveXY_ZLevel(), -12.5);
}

TEST_F(ProjectTest, ADerivedProjectAnswersFromItsOwnCollections) {
  class OwnPoints : public Project {
  public:
    OwnPoints() {
      own.SetNumber(77);
      place(own, {1.0, 2.0, 3.0}, 1);
      points.add(&own);
      affineObjects.add(&noPoint);
    }
    const tarn::VOrdCollect& GetObjectPoints() const override { return points; }
    const tarn::VOrdCollect& GetAffineObjects() const override { return affineObjects; }
    tarn::ObjectPoint own;
    tarn::AffineObject noPoint;
    tarn::VOrdCollect points;
    tarn::VOrdCollect affineObjects;
  };
  const OwnPoints derived;
  EXPECT_EQ(derived.FindObjectPoint(77), &derived.own);
  expectBox(derived.GetProjectExtents(nullptr, 0, 1), {1.0, 2.0, 3.0}, {1.0, 2.0, 3.0});
}
