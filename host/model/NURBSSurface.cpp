#include "host/model/NURBSSurface.h"

#include <Eigen/Geometry>

#include "host/model/ControlPoints.h"
#include "host/model/SurfaceGrid.h"
#include "host/model/SurfaceRows.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <optional>
#include <utility>

namespace tarn {

VClass NURBSSurfaceCls("NURBSSurface", &TessellatedSurfaceCls,
                       []() -> VObject* { return new NURBSSurface; });

namespace {

// The parameters of a grid in one direction as normals need them: at a kink there are two, the
// first of them just before it, so that its derivatives are those of that side.
struct Sides {
  std::vector<double> parameters;
  std::vector<std::size_t> before;  // of each parameter of the grid, as cells before it see it
  std::vector<std::size_t> behind;  // and as those behind it do

  Sides(const KnotVector& knots, const std::vector<double>& grid) {
    for (const double parameter : grid) {
      if (knots.mayKinkAt(parameter)) {
        parameters.push_back(std::nextafter(parameter, knots.begin()));
        before.push_back(parameters.size() - 1);
        parameters.push_back(parameter);
      } else {
        parameters.push_back(parameter);
        before.push_back(parameters.size() - 1);
      }
      behind.push_back(parameters.size() - 1);
    }
  }
};

// The normals of a surface.
class Normals {
public:
  Normals(const SurfaceSpline& surface, double size)
      : surface(surface),
        leastAlongU(1e-9 * size / (surface.knotsU.end() - surface.knotsU.begin())),
        leastAlongV(1e-9 * size / (surface.knotsV.end() - surface.knotsV.begin())) {}

  // At a pole u or v leads nowhere, and the normal is that of a place a little inside.
  std::optional<Point3DDouble> at(const SurfaceRows::Place& place, double u, double v) const {
    if (const auto normal = of(place)) return normal;
    const double insideU = inside(surface.knotsU, u);
    const double insideV = inside(surface.knotsV, v);
    const std::array<std::array<double, 2>, 3> tried = {
        {{u, insideV}, {insideU, v}, {insideU, insideV}}};
    for (const auto& [nearU, nearV] : tried) {
      if (const auto normal = of(SurfaceRows(surface, {nearU}, {nearV}).row(0)[0])) return normal;
    }
    return std::nullopt;
  }

private:
  std::optional<Point3DDouble> of(const SurfaceRows::Place& place) const {
    const double u = place.alongU.length();
    const double v = place.alongV.length();
    if (!(u > leastAlongU && v > leastAlongV)) return std::nullopt;
    const Eigen::Vector3d alongU(place.alongU.x / u, place.alongU.y / u, place.alongU.z / u);
    const Eigen::Vector3d alongV(place.alongV.x / v, place.alongV.y / v, place.alongV.z / v);
    const Eigen::Vector3d across = alongU.cross(alongV);
    const double sine = across.norm();
    if (!(sine > 1e-9)) return std::nullopt;
    return Point3DDouble(across.x() / sine, across.y() / sine, across.z() / sine);
  }
  static double inside(const KnotVector& knots, double parameter) {
    return parameter + 1e-6 * (0.5 * (knots.begin() + knots.end()) - parameter);
  }

  const SurfaceSpline& surface;
  const double leastAlongU;
  const double leastAlongV;
};

// The diagonal of the box around the points.
double sizeOf(const std::vector<Point3DDouble>& points) {
  Eigen::AlignedBox3d box;
  for (const Point3DDouble& p : points) box.extend(Eigen::Vector3d(p.x, p.y, p.z));
  return box.diagonal().norm();
}

// From 0 to 1 over the whole spline.
std::vector<double> shares(const KnotVector& knots, const std::vector<double>& parameters) {
  std::vector<double> result;
  result.reserve(parameters.size());
  for (const double parameter : parameters) {
    result.push_back((parameter - knots.begin()) / (knots.end() - knots.begin()));
  }
  return result;
}

std::vector<int> interpolatedAt(const KnotVector& knots, const std::vector<double>& parameters) {
  std::vector<int> result;
  result.reserve(parameters.size());
  for (const double parameter : parameters) result.push_back(knots.interpolatedAt(parameter));
  return result;
}

}  // namespace

int NURBSSurface::SetSurface(int degreeU, const std::vector<double>& knotsU, int degreeV,
                             const std::vector<double>& knotsV,
                             const std::vector<Point3DDouble>& controlPoints,
                             const std::vector<double>& weights) {
  const auto countOf = [](const std::vector<double>& knots, int degree) {
    return static_cast<int>(knots.size()) - degree - 1;
  };
  // The degrees are checked first: they may be any numbers.
  const auto inRange = [](int degree) {
    return degree >= 1 && degree <= KnotVector::highestDegree;
  };
  if (!inRange(degreeU) || !inRange(degreeV)) return 0;
  auto madeU = KnotVector::make(degreeU, knotsU, countOf(knotsU, degreeU));
  auto madeV = KnotVector::make(degreeV, knotsV, countOf(knotsV, degreeV));
  if (!madeU || !madeV) return 0;
  const auto count = static_cast<std::size_t>(madeU->controlPoints()) *
                     static_cast<std::size_t>(madeV->controlPoints());
  if (controlPoints.size() != count || !ControlPoints::areUsable(controlPoints, weights)) return 0;
  _knotsU = *std::move(madeU);
  _knotsV = *std::move(madeV);
  _controlPoints = controlPoints;
  _weights = ControlPoints::weightsOrOnes(controlPoints, weights);
  return 1;
}

int NURBSSurface::Tessellate(double tolerance) {
  if (_knotsU.isEmpty() || !(tolerance > 0.0) || !std::isfinite(tolerance)) return 0;
  const auto weighted = ControlPoints::weighted(_controlPoints, _weights);
  const SurfaceSpline surface{_knotsU, _knotsV, weighted};
  const auto grid = SurfaceGrid::of(surface, tolerance, mostTriangles / 2);
  if (!grid) return 0;

  std::optional<VPathString> picture;
  if (GetTextureFile(0)) picture = *GetTextureFile(0);
  Material* const material = GetMaterialOfSet(0);
  Clear();
  const int set = AddTriangleSet();
  if (picture) SetTextureFile(set, *picture);
  SetMaterialOfSet(set, material);

  const Sides sidesU(_knotsU, grid->u);
  const Sides sidesV(_knotsV, grid->v);
  const std::size_t columns = grid->u.size();
  const std::size_t rows = grid->v.size();
  const double size = sizeOf(_controlPoints);
  const double nothing = 1e-13 * size;
  const auto throughU = interpolatedAt(_knotsU, grid->u);
  const auto throughV = interpolatedAt(_knotsV, grid->v);
  const auto shareU = shares(_knotsU, grid->u);
  const auto shareV = shares(_knotsV, grid->v);
  Reserve(set, static_cast<int>(2 * (columns - 1) * (rows - 1)));

  // One row of corners, and of normals as the cells below and above it see them.
  struct Row {
    std::vector<ThreeDPoint*> points;
    std::vector<Point3DDouble> places;
    std::vector<const Point3DDouble*> normals;
  };
  SurfaceRows evaluated(surface, sidesU.parameters, sidesV.parameters);
  const Normals normals(surface, size);
  const auto setNormals = [&](Row& row, std::size_t side) {
    const auto& places = evaluated.row(static_cast<int>(side));
    row.normals.resize(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
      const auto normal = normals.at(places[i], sidesU.parameters[i], sidesV.parameters[side]);
      row.normals[i] = normal ? &AddNormal(*normal) : nullptr;
    }
  };
  // Corners that are at one place are one: at a pole, all of a row.
  const auto setPoints = [&](Row& row, std::size_t j, const Row* below) {
    const auto& places = evaluated.row(static_cast<int>(sidesV.behind[j]));
    row.points.resize(columns);
    row.places.resize(columns);
    for (std::size_t i = 0; i < columns; ++i) {
      const bool exact = throughU[i] >= 0 && throughV[j] >= 0;
      const Point3DDouble place = exact ? _controlPoints[surface.at(throughU[i], throughV[j])]
                                        : places[sidesU.behind[i]].point;
      row.places[i] = place;
      if (i > 0 && (place - row.places[i - 1]).length() <= nothing) {
        row.points[i] = row.points[i - 1];
      } else if (below && (place - below->places[i]).length() <= nothing) {
        row.points[i] = below->points[i];
      } else {
        row.points[i] = &AddPoint(place);
      }
    }
  };
  Row low;
  Row high;
  setPoints(low, 0, nullptr);
  setNormals(low, sidesV.behind[0]);
  for (std::size_t j = 1; j < rows; ++j) {
    setPoints(high, j, &low);
    setNormals(high, sidesV.before[j]);
    for (std::size_t i = 1; i < columns; ++i) {
      struct Corner {
        const Row& row;
        std::size_t column;
        std::size_t side;
        std::array<double, 2> uv;
      };
      // Pictures count downwards.
      const std::array<double, 2> left{shareU[i - 1], shareU[i]};
      const Corner a{low, i - 1, sidesU.behind[i - 1], {left[0], 1.0 - shareV[j - 1]}};
      const Corner b{low, i, sidesU.before[i], {left[1], 1.0 - shareV[j - 1]}};
      const Corner c{high, i, sidesU.before[i], {left[1], 1.0 - shareV[j]}};
      const Corner d{high, i - 1, sidesU.behind[i - 1], {left[0], 1.0 - shareV[j]}};
      const auto add = [&](const Corner& p, const Corner& q, const Corner& r) {
        ThreeDPoint* const first = p.row.points[p.column];
        ThreeDPoint* const second = q.row.points[q.column];
        ThreeDPoint* const third = r.row.points[r.column];
        if (first == second || second == third || third == first) return;
        Triangle& triangle = AddTriangle(set, first, second, third);
        triangle.SetNormal(0, p.row.normals[p.side]);
        triangle.SetNormal(1, q.row.normals[q.side]);
        triangle.SetNormal(2, r.row.normals[r.side]);
        SetTextureCoordinates(triangle, {p.uv, q.uv, r.uv});
      };
      add(a, b, c);
      add(a, c, d);
    }
    if (sidesV.behind[j] != sidesV.before[j]) setNormals(high, sidesV.behind[j]);
    std::swap(low, high);
  }
  return 1;
}

}  // namespace tarn
