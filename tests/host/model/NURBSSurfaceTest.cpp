#include "host/model/NURBSSurface.h"

#include "host/model/ControlPoints.h"
#include "host/model/Material.h"
#include "host/model/SurfaceGrid.h"
#include "tests/support/SplineSurfaces.h"
#include "tests/support/TarnTest.h"

#include <array>
#include <limits>
#include <map>
#include <set>

using SplineReference::vectorOf;
using tarn::NURBSSurface;
using tarn::Point3DDouble;
using ::testing::ElementsAre;

namespace {

const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double infinite = std::numeric_limits<double>::infinity();

Point3DDouble positionOf(const tarn::ThreeDPoint* point) {
  tarn::Point3DRandom position;
  EXPECT_TRUE(point->GetApproximation(position));
  return position.position();
}

}  // namespace

class NURBSSurfaceTest : public TarnTest {
protected:
  void set(const SurfaceData& data) {
    ASSERT_TRUE(surface.SetSurface(data.degreeU, data.knotsU, data.degreeV, data.knotsV,
                                   data.points, data.weights));
  }
  std::vector<const tarn::Triangle*> triangles() {
    std::vector<const tarn::Triangle*> result;
    for (int i = 0; i < surface.GetTriangles()->size(); ++i) {
      result.push_back(static_cast<const tarn::Triangle*>(surface.GetTriangles()->at(i)));
    }
    return result;
  }
  std::array<double, 2> uvOf(const tarn::Triangle* triangle, int corner) {
    const auto* matrix = static_cast<tarn::MatrixDouble*>(
        surface.GetUvMatrices()->atKey(const_cast<tarn::Triangle*>(triangle)));
    if (!matrix) return {-1, -1};
    return {(*matrix)(corner + 1, 1), (*matrix)(corner + 1, 2)};
  }
  // How often each edge, from one place to another, is gone along.
  std::map<std::array<double, 6>, int> edges() {
    std::map<std::array<double, 6>, int> result;
    for (const tarn::Triangle* triangle : triangles()) {
      for (int k = 0; k < 3; ++k) {
        const auto a = positionOf(triangle->GetPoint(k));
        const auto b = positionOf(triangle->GetPoint((k + 1) % 3));
        ++result[{a.x, a.y, a.z, b.x, b.y, b.z}];
      }
    }
    return result;
  }
  // Edges without the same one the other way round.
  std::size_t openEdges() {
    const auto all = edges();
    std::size_t open = 0;
    for (const auto& [edge, count] : all) {
      EXPECT_EQ(count, 1);
      open += !all.contains({edge[3], edge[4], edge[5], edge[0], edge[1], edge[2]});
    }
    return open;
  }

  NURBSSurface surface;
};

TEST_F(NURBSSurfaceTest, ANewOneIsNotSet) {
  EXPECT_EQ(surface.GetDegreeU(), 0);
  EXPECT_EQ(surface.GetDegreeV(), 0);
  EXPECT_TRUE(surface.GetControlPoints().empty());
  EXPECT_FALSE(surface.Tessellate(0.1));
  EXPECT_EQ(surface.GetNumTriangleSets(), 0);
}

TEST_F(NURBSSurfaceTest, TellsWhatItWasSetTo) {
  const SurfaceData data = SurfaceData::free();
  set(data);
  EXPECT_EQ(surface.GetDegreeU(), 2);
  EXPECT_EQ(surface.GetDegreeV(), 3);
  EXPECT_EQ(surface.GetKnotsU(), data.knotsU);
  EXPECT_EQ(surface.GetKnotsV(), data.knotsV);
  EXPECT_EQ(surface.GetControlPoints(), data.points);
  EXPECT_EQ(surface.GetWeights(), data.weights);
}

// --- Triangles

TEST_F(NURBSSurfaceTest, ARectangleIsTwoTriangles) {
  set({1, {0, 0, 1, 1}, 1, {0, 0, 1, 1}, {{0, 0, 1}, {4, 0, 1}, {0, 3, 1}, {4, 3, 1}}, {}});
  ASSERT_TRUE(surface.Tessellate(1e-9));
  EXPECT_EQ(surface.GetNumTriangleSets(), 1);
  const auto all = triangles();
  ASSERT_EQ(all.size(), 2U);
  const auto corners = [](const tarn::Triangle* t) {
    return std::array{positionOf(t->GetPoint(0)), positionOf(t->GetPoint(1)),
                      positionOf(t->GetPoint(2))};
  };
  EXPECT_THAT(corners(all[0]),
              ElementsAre(Point3DDouble(0, 0, 1), Point3DDouble(4, 0, 1), Point3DDouble(4, 3, 1)));
  EXPECT_THAT(corners(all[1]),
              ElementsAre(Point3DDouble(0, 0, 1), Point3DDouble(4, 3, 1), Point3DDouble(0, 3, 1)));
  EXPECT_EQ(all[0]->GetPoint(0), all[1]->GetPoint(0)) << "neighbours share their corners";
}

TEST_F(NURBSSurfaceTest, APlaneIsTwoTrianglesHoweverItIsRunThrough) {
  set(SurfaceData::plane());
  ASSERT_TRUE(surface.Tessellate(1e-6));
  EXPECT_EQ(triangles().size(), 2U);
}

TEST_F(NURBSSurfaceTest, TextureCoordinatesReadRightlyFromTheSideOfTheNormals) {
  set({1, {2, 2, 6, 6}, 1, {5, 5, 7, 7}, {{0, 0, 1}, {4, 0, 1}, {0, 3, 1}, {4, 3, 1}}, {}});
  ASSERT_TRUE(surface.Tessellate(1e-9));
  // Right is along u, and downwards, as pictures count, against v.
  for (const tarn::Triangle* triangle : triangles()) {
    for (int k = 0; k < 3; ++k) {
      const Point3DDouble place = positionOf(triangle->GetPoint(k));
      EXPECT_THAT(uvOf(triangle, k), ElementsAre(place.x / 4, 1 - place.y / 3));
      ASSERT_NE(triangle->GetNormal(k), nullptr);
      EXPECT_EQ(*triangle->GetNormal(k), Point3DDouble(0, 0, 1));
    }
  }
}

TEST_F(NURBSSurfaceTest, ASphereIsRoundAndClosedAndItsNormalsPointOutwards) {
  set(SurfaceData::sphere());
  ASSERT_TRUE(surface.Tessellate(0.01));
  const Eigen::Vector3d centre(5, 6, 7);
  for (const tarn::Triangle* triangle : triangles()) {
    Eigen::Vector3d corners[3];
    for (int k = 0; k < 3; ++k) {
      corners[k] = vectorOf(positionOf(triangle->GetPoint(k)));
      EXPECT_NEAR((corners[k] - centre).norm(), 2.0, 1e-14);
      ASSERT_NE(triangle->GetNormal(k), nullptr);
      const Eigen::Vector3d normal = vectorOf(*triangle->GetNormal(k));
      EXPECT_NEAR((normal - (corners[k] - centre) / 2).norm(), 0.0, 5e-6) << "also at the poles";
    }
    const Eigen::Vector3d across = (corners[1] - corners[0]).cross(corners[2] - corners[0]);
    EXPECT_GT(across.norm(), 1e-6) << "no triangle without area";
    EXPECT_GT(across.dot(corners[0] - centre), 0.0);
  }
  EXPECT_EQ(openEdges(), 0U);
}

TEST_F(NURBSSurfaceTest, FarFromTheOriginPolesAreClosedAndNormalsAsExact) {
  SurfaceData data = SurfaceData::sphere();
  set(data);
  ASSERT_TRUE(surface.Tessellate(0.01));
  std::vector<Point3DDouble> normals;
  for (const tarn::Triangle* triangle : triangles()) normals.push_back(*triangle->GetNormal(0));
  for (auto& point : data.points) point = point + Point3DDouble{4512345, 5512345, 345};
  set(data);
  ASSERT_TRUE(surface.Tessellate(0.01));
  const auto far = triangles();
  ASSERT_EQ(far.size(), normals.size());
  for (std::size_t i = 0; i < far.size(); ++i) {
    EXPECT_NEAR((*far[i]->GetNormal(0) - normals[i]).length(), 0.0, 1e-5);
  }
  EXPECT_EQ(openEdges(), 0U);
}

TEST_F(NURBSSurfaceTest, NormalsAwayFromPolesAreTheSurfacesOwn) {
  set(SurfaceData::sphere());
  ASSERT_TRUE(surface.Tessellate(0.01));
  for (const tarn::Triangle* triangle : triangles()) {
    for (int k = 0; k < 3; ++k) {
      const Eigen::Vector3d out =
          vectorOf(positionOf(triangle->GetPoint(k))) - Eigen::Vector3d(5, 6, 7);
      if (std::abs(out.z()) > 1.999) continue;
      EXPECT_NEAR((vectorOf(*triangle->GetNormal(k)) - out / 2).norm(), 0.0, 1e-13);
    }
  }
}

TEST_F(NURBSSurfaceTest, ASphereHasHardlyMoreTrianglesThanItsToleranceAsksFor) {
  set(SurfaceData::sphere());
  const double tolerance = 0.002;
  ASSERT_TRUE(surface.Tessellate(tolerance));
  // Meridians and parallels that are apart by half of the tolerance each.
  const double angle = 2 * std::acos(1 - 0.5 * tolerance / 2);
  const double needed = 2 * (2 * M_PI / angle) * (M_PI / angle - 1);
  const auto count = static_cast<double>(triangles().size());
  EXPECT_GT(count, 0.9 * needed);
  EXPECT_LT(count, 1.25 * needed);
}

TEST_F(NURBSSurfaceTest, ASaddleHasHardlyMoreTrianglesThanItsToleranceAsksFor) {
  set(SurfaceData::saddle());
  ASSERT_TRUE(surface.Tessellate(0.0001));
  // The diagonals of a cell of edge h are apart by h^2 / 2 along z, twice as far as the saddle is
  // from its triangles.
  const double needed = 2 / (2 * 0.0001);
  const auto count = static_cast<double>(triangles().size());
  EXPECT_GE(count, 0.5 * needed);
  EXPECT_LE(count, 1.1 * needed);
}

TEST_F(NURBSSurfaceTest, EdgesAreOpenAtTheBorderOnly) {
  set(SurfaceData::free());
  ASSERT_TRUE(surface.Tessellate(0.01));
  std::size_t border = 0;
  for (const tarn::Triangle* triangle : triangles()) {
    for (int k = 0; k < 3; ++k) {
      const auto a = uvOf(triangle, k);
      const auto b = uvOf(triangle, (k + 1) % 3);
      for (const std::size_t i : {0U, 1U}) border += a[i] == b[i] && (a[i] == 0.0 || a[i] == 1.0);
    }
  }
  EXPECT_EQ(openEdges(), border);
}

TEST_F(NURBSSurfaceTest, PointsAreTheSurfacesAtTheirTextureCoordinates) {
  const SurfaceData data = SurfaceData::free();
  set(data);
  ASSERT_TRUE(surface.Tessellate(0.05));
  for (const tarn::Triangle* triangle : triangles()) {
    const auto [u, v] = uvOf(triangle, 1);
    const auto there = data.at({3.5 * u}, {2.0 * (1 - v)});
    EXPECT_NEAR((vectorOf(positionOf(triangle->GetPoint(1))) - there[0]).norm(), 0.0, 1e-13);
  }
}

TEST_F(NURBSSurfaceTest, CornersAreExactlyTheirControlPoints) {
  const SurfaceData data = SurfaceData::free();
  set(data);
  ASSERT_TRUE(surface.Tessellate(0.05));
  std::set<std::array<double, 3>> places;
  for (const tarn::Triangle* triangle : triangles()) {
    for (int k = 0; k < 3; ++k) {
      const auto place = positionOf(triangle->GetPoint(k));
      places.insert({place.x, place.y, place.z});
    }
  }
  for (const std::size_t i : {0U, 5U, 24U, 29U}) {
    const auto& corner = data.points[i];
    EXPECT_TRUE(places.contains({corner.x, corner.y, corner.z})) << i;
  }
}

TEST_F(NURBSSurfaceTest, NormalsAreAcrossTheSurfaceAndDifferOnTheSidesOfAKink) {
  const SurfaceData data = SurfaceData::free();
  set(data);
  ASSERT_TRUE(surface.Tessellate(0.05));
  constexpr double step = 1e-6;
  int atKink = 0;
  for (const tarn::Triangle* triangle : triangles()) {
    double middle = 0.0;
    for (int k = 0; k < 3; ++k) middle += 3.5 * uvOf(triangle, k)[0] / 3;
    for (int k = 0; k < 3; ++k) {
      const double u = 3.5 * uvOf(triangle, k)[0];
      const double v = 2.0 * (1 - uvOf(triangle, k)[1]);
      // Differences into the triangle's own side.
      const double du = u > middle ? -step : step;
      const double dv = v > 1.0 ? -step : step;
      const auto at = data.at({u, u + du}, {v, v + dv});
      const Eigen::Vector3d alongU = (at[1] - at[0]) / du;
      const Eigen::Vector3d alongV = (at[2] - at[0]) / dv;
      const Eigen::Vector3d expected = alongU.cross(alongV).normalized();
      ASSERT_NE(triangle->GetNormal(k), nullptr);
      EXPECT_NEAR((vectorOf(*triangle->GetNormal(k)) - expected).norm(), 0.0, 1e-4)
          << u << " " << v;
      atKink += std::abs(u - 2.0) < 1e-12;
    }
  }
  EXPECT_GT(atKink, 0);
}

TEST_F(NURBSSurfaceTest, WhereASurfaceHasNoNormalThereIsNone) {
  // All of it is one line.
  set({1, {0, 0, 1, 1}, 1, {0, 0, 1, 1}, {{0, 0, 0}, {1, 0, 0}, {2, 0, 0}, {3, 0, 0}}, {}});
  ASSERT_TRUE(surface.Tessellate(0.1));
  for (const tarn::Triangle* triangle : triangles()) EXPECT_EQ(triangle->GetNormal(0), nullptr);
}

TEST_F(NURBSSurfaceTest, TessellatingAgainKeepsThePictureAndTheMaterial) {
  tarn::Material material;
  set(SurfaceData::sphere());
  ASSERT_TRUE(surface.Tessellate(0.1));
  surface.SetTextureFile(0, "globe.jpg");
  surface.SetMaterialOfSet(0, &material);
  const std::size_t before = triangles().size();
  ASSERT_TRUE(surface.Tessellate(0.01));
  EXPECT_GT(triangles().size(), before);
  EXPECT_EQ(surface.GetNumTriangleSets(), 1);
  EXPECT_STREQ(surface.GetTextureFile(0)->text(), "globe.jpg");
  EXPECT_EQ(surface.GetMaterialOfSet(0), &material);
  EXPECT_EQ(surface.GetUvMatrices()->size(), static_cast<int>(triangles().size()));
}

TEST_F(NURBSSurfaceTest, AnImpossibleToleranceIsRefusedAndTheTrianglesStay) {
  set(SurfaceData::sphere());
  ASSERT_TRUE(surface.Tessellate(0.1));
  const auto before = triangles();
  for (const double tolerance : {0.0, -1.0, notANumber, infinite, 1e-12}) {
    EXPECT_FALSE(surface.Tessellate(tolerance)) << tolerance;
    EXPECT_EQ(triangles(), before);
  }
}

// --- The tolerance

class NURBSSurfaceToleranceTest : public NURBSSurfaceTest,
                                  public ::testing::WithParamInterface<NamedSurface> {};

TEST_P(NURBSSurfaceToleranceTest, NoPointOfTheSurfaceIsFartherFromItsCell) {
  const SurfaceData data = GetParam().make();
  const auto knotsU = tarn::KnotVector::make(data.degreeU, data.knotsU);
  const auto knotsV = tarn::KnotVector::make(data.degreeV, data.knotsV);
  ASSERT_TRUE(knotsU && knotsV);
  const auto weighted = tarn::ControlPoints::weighted(
      data.points, tarn::ControlPoints::weightsOrOnes(data.points, data.weights), {});
  for (const double tolerance : {0.3, 0.0144}) {
    const auto grid = tarn::SurfaceGrid::of({*knotsU, *knotsV, weighted}, tolerance, 10'000'000);
    ASSERT_TRUE(grid);
    constexpr std::size_t parts = 4;
    const auto refined = [](const std::vector<double>& parameters) {
      std::vector<double> result{parameters.front()};
      for (std::size_t i = 1; i < parameters.size(); ++i) {
        for (std::size_t k = 1; k <= parts; ++k) {
          const double share = static_cast<double>(k) / parts;
          result.push_back((1 - share) * parameters[i - 1] + share * parameters[i]);
        }
      }
      return result;
    };
    const auto fineU = refined(grid->u);
    const auto fineV = refined(grid->v);
    const auto fine = data.at(fineU, fineV);
    const auto at = [&](std::size_t i, std::size_t j) { return fine[j * fineU.size() + i]; };
    double farthest = 0.0;
    for (std::size_t j = 0; j + parts < fineV.size(); j += parts) {
      for (std::size_t i = 0; i + parts < fineU.size(); i += parts) {
        const auto a = at(i, j);
        const auto b = at(i + parts, j);
        const auto c = at(i + parts, j + parts);
        const auto d = at(i, j + parts);
        for (std::size_t l = 0; l <= parts; ++l) {
          for (std::size_t k = 0; k <= parts; ++k) {
            const auto point = at(i + k, j + l);
            farthest =
                std::max(farthest, std::min(SplineReference::distanceFromTriangle(point, a, b, c),
                                            SplineReference::distanceFromTriangle(point, a, c, d)));
          }
        }
      }
    }
    EXPECT_LE(farthest, tolerance + 1e-8);
    if (grid->u.size() * grid->v.size() > 20) {
      EXPECT_GT(farthest, 0.15 * tolerance) << "more cells than are needed";
    }
  }
}

INSTANTIATE_TEST_SUITE_P(NURBSSurfaceTest, NURBSSurfaceToleranceTest,
                         ::testing::ValuesIn(namedSurfaces));

// --- What is refused

struct WrongSurface {
  const char* what;
  void (*change)(SurfaceData&);
  friend void PrintTo(const WrongSurface& wrong, std::ostream* out) { *out << wrong.what; }
};
class NURBSSurfaceRefusalTest : public NURBSSurfaceTest,
                                public ::testing::WithParamInterface<WrongSurface> {};

TEST_P(NURBSSurfaceRefusalTest, IsRefusedAndTheSurfaceStays) {
  const SurfaceData before = SurfaceData::sphere();
  set(before);
  SurfaceData data = SurfaceData::free();
  GetParam().change(data);
  EXPECT_FALSE(surface.SetSurface(data.degreeU, data.knotsU, data.degreeV, data.knotsV, data.points,
                                  data.weights));
  EXPECT_EQ(surface.GetDegreeV(), 2);
  EXPECT_EQ(surface.GetKnotsU(), before.knotsU);
  EXPECT_EQ(surface.GetKnotsV(), before.knotsV);
  EXPECT_EQ(surface.GetControlPoints(), before.points);
  EXPECT_EQ(surface.GetWeights(), before.weights);
}

INSTANTIATE_TEST_SUITE_P(
    NURBSSurfaceTest, NURBSSurfaceRefusalTest,
    ::testing::Values(
        WrongSurface{"a knot too few in u", [](SurfaceData& d) { d.knotsU.pop_back(); }},
        WrongSurface{"a knot too many in v", [](SurfaceData& d) { d.knotsV.push_back(2); }},
        WrongSurface{"no knots in u", [](SurfaceData& d) { d.knotsU.clear(); }},
        WrongSurface{"knots that fall in u", [](SurfaceData& d) { d.knotsU[3] = 3; }},
        WrongSurface{"knots that fall in v", [](SurfaceData& d) { d.knotsV[4] = -1; }},
        WrongSurface{"a knot that is no number", [](SurfaceData& d) { d.knotsV[4] = notANumber; }},
        WrongSurface{"degree 0 in u", [](SurfaceData& d) { d.degreeU = 0; }},
        WrongSurface{"a negative degree in v", [](SurfaceData& d) { d.degreeV = -1; }},
        WrongSurface{"the least degree in u", [](SurfaceData& d) { d.degreeU = -2147483647 - 1; }},
        WrongSurface{"a huge degree in v", [](SurfaceData& d) { d.degreeV = 2147483647; }},
        WrongSurface{"a control point too few", [](SurfaceData& d) { d.points.pop_back(); }},
        WrongSurface{"a control point too many", [](SurfaceData& d) { d.points.emplace_back(); }},
        WrongSurface{"a control point that is not finite",
                     [](SurfaceData& d) { d.points[7].z = infinite; }},
        WrongSurface{"a weight that is too large", [](SurfaceData& d) { d.weights[7] = 2e60; }},
        WrongSurface{"knots that are too near to each other",
                     [](SurfaceData& d) {
                       for (double& knot : d.knotsV) knot *= 1e-300;
                     }},
        WrongSurface{"a weight of 0", [](SurfaceData& d) { d.weights[7] = 0; }},
        WrongSurface{"a negative weight", [](SurfaceData& d) { d.weights[7] = -2; }},
        WrongSurface{"a weight too few", [](SurfaceData& d) { d.weights.pop_back(); }}));
