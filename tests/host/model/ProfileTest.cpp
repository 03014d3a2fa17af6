#include "host/model/Profile.h"

#include "host/model/PointMesh.h"
#include "tests/support/TarnTest.h"

#include <limits>

using tarn::Plane3D;
using tarn::Point3DDouble;
using tarn::PointMesh;
using tarn::Profile;
using ::testing::ElementsAre;
using ::testing::UnorderedElementsAre;

namespace {

MATCHER_P2(PointAt, distance, height, "") {
  return std::abs(arg.distance - distance) < 1e-6 && std::abs(arg.height - height) < 1e-6;
}

}  // namespace

class ProfileTest : public TarnTest {
protected:
  static Plane3D planeThrough(const Point3DDouble& a, const Point3DDouble& b,
                              const Point3DDouble& c) {
    Plane3D plane;
    EXPECT_TRUE(plane.SetThreePoints(a, b, c));
    return plane;
  }
  static void fill(PointMesh& mesh, const std::vector<Point3DDouble>& points) {
    mesh.Allocate(static_cast<int>(points.size()), 0);
    for (std::size_t i = 0; i < points.size(); ++i) {
      mesh.GetPoints()[i][0] = static_cast<float>(points[i].x);
      mesh.GetPoints()[i][1] = static_cast<float>(points[i].y);
      mesh.GetPoints()[i][2] = static_cast<float>(points[i].z);
    }
    mesh.PointsChanged();
  }

  const Point3DDouble from{1.0, 2.0, 0.0};
  const Point3DDouble to{4.0, 6.0, 0.0};  // five away
  const Plane3D upright = planeThrough(from, to, {1.0, 2.0, 3.0});
};

TEST_F(ProfileTest, TellsDistanceAlongTheCutAndHeight) {
  PointMesh mesh;
  fill(mesh, {{2.5, 4.0, 7.0}, {4.0, 6.0, -1.5}, {1.0, 2.0, 0.25}});
  Profile profile(upright, from, to, 0.01);
  EXPECT_EQ(profile.Add(mesh), 3);
  EXPECT_THAT(profile.GetPoints(),
              ElementsAre(PointAt(0.0, 0.25), PointAt(2.5, 7.0), PointAt(5.0, -1.5)));
}

TEST_F(ProfileTest, TheOrderOfThePlanesPointsDoesNotTurnIt) {
  PointMesh mesh;
  fill(mesh, {{4.0, 6.0, -1.5}});
  const Plane3D turned = planeThrough({1.0, 2.0, 3.0}, to, from);
  Profile profile(turned, from, to, 0.01);
  profile.Add(mesh);
  EXPECT_THAT(profile.GetPoints(), ElementsAre(PointAt(5.0, -1.5)));
}

TEST_F(ProfileTest, PointsBeforeItsBeginningHaveNegativeDistances) {
  PointMesh mesh;
  fill(mesh, {{-2.0, -2.0, 1.0}});
  Profile profile(upright, from, to, 0.01);
  profile.Add(mesh);
  EXPECT_THAT(profile.GetPoints(), ElementsAre(PointAt(-5.0, 1.0)));
}

TEST_F(ProfileTest, KeepsThePointsWithinTheThicknessOnEitherSide) {
  // The cut's normal is (0.8, -0.6, 0).
  PointMesh mesh;
  fill(mesh, {{2.5 + 0.8 * 0.4, 4.0 - 0.6 * 0.4, 1.0},
              {2.5 - 0.8 * 0.4, 4.0 + 0.6 * 0.4, 2.0},
              {2.5 + 0.8 * 0.6, 4.0 - 0.6 * 0.6, 3.0},
              {2.5 - 0.8 * 0.6, 4.0 + 0.6 * 0.6, 4.0}});
  Profile profile(upright, from, to, 0.5);
  EXPECT_EQ(profile.Add(mesh), 2);
  EXPECT_THAT(profile.GetPoints(), UnorderedElementsAre(PointAt(2.5, 1.0), PointAt(2.5, 2.0)));
}

TEST_F(ProfileTest, MeshesAreAddedOneAfterTheOther) {
  PointMesh mesh;
  fill(mesh, {{4.0, 6.0, 1.0}});
  PointMesh other;
  fill(other, {{2.5, 4.0, 2.0}});
  Profile profile(upright, from, to, 0.01);
  profile.Add(mesh);
  EXPECT_THAT(profile.GetPoints(), ElementsAre(PointAt(5.0, 1.0)));
  profile.Add(other);
  EXPECT_THAT(profile.GetPoints(), ElementsAre(PointAt(2.5, 2.0), PointAt(5.0, 1.0)));
}

TEST_F(ProfileTest, SinglePointsAreAddedAmongThoseOfMeshes) {
  PointMesh mesh;
  fill(mesh, {{1.0, 2.0, 0.25}, {4.0, 6.0, -1.5}});
  Profile profile(upright, from, to, 0.01);
  profile.Add(mesh);
  profile.GetPoints();
  EXPECT_EQ(profile.Add(Point3DDouble(2.5, 4.0, 7.0)), 1);
  EXPECT_EQ(profile.Add(Point3DDouble(2.5, 4.5, 7.0)), 0);
  EXPECT_THAT(profile.GetPoints(),
              ElementsAre(PointAt(0.0, 0.25), PointAt(2.5, 7.0), PointAt(5.0, -1.5)));
}

TEST_F(ProfileTest, PointsAreTakenThroughTheMeshsLocalAffine) {
  PointMesh mesh;
  fill(mesh, {{2.5, 4.0, 7.0}});
  tarn::BasicAffine shift;
  shift.SetTranslation({5000000.0, 4000000.0, 100.0}, {});
  mesh.SetLocalAffine(shift);
  const Point3DDouble by{5000000.0, 4000000.0, 100.0};
  const Plane3D far = planeThrough(from + by, to + by, from + by + Point3DDouble(0.0, 0.0, 1.0));
  Profile profile(far, from + by, to + by, 0.01);
  profile.Add(mesh);
  EXPECT_THAT(profile.GetPoints(), ElementsAre(PointAt(2.5, 107.0)));
}

TEST_F(ProfileTest, ALeaningPlanesDistancesAreHorizontal) {
  PointMesh mesh;
  const Plane3D leaning = planeThrough(from, to, {1.8, 1.4, 3.0});
  fill(mesh, {{1.8, 1.4, 3.0}, {4.0, 6.0, 0.0}});
  Profile profile(leaning, from, to, 0.01);
  EXPECT_EQ(profile.Add(mesh), 2);
  EXPECT_THAT(profile.GetPoints(), ElementsAre(PointAt(0.0, 3.0), PointAt(5.0, 0.0)));
}

TEST_F(ProfileTest, AlongAHorizontalPlaneThereIsNoProfile) {
  PointMesh mesh;
  fill(mesh, {{0.0, 0.0, 0.0}});
  Profile profile(Plane3D(), from, to, 1.0);
  EXPECT_FALSE(profile.IsUsable());
  EXPECT_EQ(profile.Add(mesh), 0);
  EXPECT_TRUE(profile.GetPoints().empty());
}

TEST_F(ProfileTest, PointsThatAreNotFiniteAreLeftOut) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  PointMesh mesh;
  fill(mesh, {{nan, 4.0, 7.0}, {2.5, 4.0, 7.0}});
  Profile profile(upright, from, to, 0.01);
  EXPECT_EQ(profile.Add(mesh), 1);
}
