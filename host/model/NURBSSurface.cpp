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

// Adds the triangles of a grid to a set. The surface is seen from its first control point.
class TriangleMaker {
public:
  TriangleMaker(TessellatedSurface& target, int set, const SurfaceSpline& surface,
                const std::vector<Point3DDouble>& controlPoints, const SurfaceGrid& grid)
      : target(target),
        set(set),
        surface(surface),
        controlPoints(controlPoints),
        grid(grid),
        sidesU(surface.knotsU, grid.u),
        sidesV(surface.knotsV, grid.v),
        rows(surface, sidesU.parameters, sidesV.parameters),
        normals(surface, sizeOf(controlPoints)),
        nothing(1e-13 * sizeOf(controlPoints)) {}

  void make() {
    target.Reserve(set, static_cast<int>(2 * (grid.u.size() - 1) * (grid.v.size() - 1)));
    setCorners(low, 0, nullptr);
    setNormals(low, sidesV.behind[0]);
    for (std::size_t j = 1; j < grid.v.size(); ++j) {
      setCorners(high, j, &low);
      setNormals(high, sidesV.before[j]);
      for (std::size_t i = 1; i < grid.u.size(); ++i) addCell(i);
      if (sidesV.behind[j] != sidesV.before[j]) setNormals(high, sidesV.behind[j]);
      std::swap(low, high);
    }
  }

private:
  // What the cells on one side of a row of corners see of it.
  struct Row {
    std::vector<ThreeDPoint*> points;
    std::vector<Point3DDouble> places;
    std::vector<const Point3DDouble*> normals;  // for each of sidesU
    double v = 0.0;                             // downwards, 0 to 1
  };
  struct Corner {
    ThreeDPoint* point;
    const Point3DDouble* normal;
    std::array<double, 2> uv;
  };

  // Corners at one place are one, at a pole those of a whole row.
  void setCorners(Row& row, std::size_t j, const Row* below) {
    const auto& places = rows.row(static_cast<int>(sidesV.behind[j]));
    const int throughV = surface.knotsV.interpolatedAt(grid.v[j]);
    row.v = 1.0 - shareOf(surface.knotsV, grid.v[j]);
    row.points.resize(grid.u.size());
    row.places.resize(grid.u.size());
    for (std::size_t i = 0; i < grid.u.size(); ++i) {
      row.places[i] = places[sidesU.behind[i]].point;
      const auto isAt = [&](const Point3DDouble& other) {
        return (row.places[i] - other).length() <= nothing;
      };
      if (i > 0 && isAt(row.places[i - 1])) {
        row.points[i] = row.points[i - 1];
      } else if (below && isAt(below->places[i])) {
        row.points[i] = below->points[i];
      } else {
        // What the surface passes through is not left to rounding.
        const int throughU = throughV < 0 ? -1 : surface.knotsU.interpolatedAt(grid.u[i]);
        row.points[i] =
            &target.AddPoint(throughU < 0 ? controlPoints.front() + row.places[i]
                                          : controlPoints[surface.at(throughU, throughV)]);
      }
    }
  }

  void setNormals(Row& row, std::size_t side) {
    const auto& places = rows.row(static_cast<int>(side));
    row.normals.resize(places.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
      const auto normal = normals.at(places[i], sidesU.parameters[i], sidesV.parameters[side]);
      row.normals[i] = normal ? &target.AddNormal(*normal) : nullptr;
    }
  }

  // The cell between columns i - 1 and i.
  void addCell(std::size_t i) {
    const auto corner = [this](const Row& row, std::size_t column, std::size_t side) {
      return Corner{
          row.points[column], row.normals[side], {shareOf(surface.knotsU, grid.u[column]), row.v}};
    };
    const Corner lowLeft = corner(low, i - 1, sidesU.behind[i - 1]);
    const Corner lowRight = corner(low, i, sidesU.before[i]);
    const Corner highRight = corner(high, i, sidesU.before[i]);
    const Corner highLeft = corner(high, i - 1, sidesU.behind[i - 1]);
    addTriangle({lowLeft, lowRight, highRight});
    addTriangle({lowLeft, highRight, highLeft});
  }

  void addTriangle(const std::array<Corner, 3>& corners) {
    const auto& [a, b, c] = corners;
    if (a.point == b.point || b.point == c.point || c.point == a.point) return;
    Triangle& triangle = target.AddTriangle(set, a.point, b.point, c.point);
    triangle.SetNormal(0, a.normal);
    triangle.SetNormal(1, b.normal);
    triangle.SetNormal(2, c.normal);
    target.SetTextureCoordinates(triangle, {a.uv, b.uv, c.uv});
  }

  // From 0 to 1 over the whole spline.
  static double shareOf(const KnotVector& knots, double parameter) {
    return (parameter - knots.begin()) / (knots.end() - knots.begin());
  }

  TessellatedSurface& target;
  const int set;
  const SurfaceSpline& surface;
  const std::vector<Point3DDouble>& controlPoints;
  const SurfaceGrid& grid;
  const Sides sidesU;
  const Sides sidesV;
  SurfaceRows rows;
  const Normals normals;
  const double nothing;
  Row low;
  Row high;
};

}  // namespace

int NURBSSurface::SetSurface(int degreeU, const std::vector<double>& knotsU, int degreeV,
                             const std::vector<double>& knotsV,
                             const std::vector<Point3DDouble>& controlPoints,
                             const std::vector<double>& weights) {
  auto madeU = KnotVector::make(degreeU, knotsU);
  auto madeV = KnotVector::make(degreeV, knotsV);
  if (!madeU || !madeV) return 0;
  const auto count = static_cast<std::size_t>(madeU->controlPoints()) *
                     static_cast<std::size_t>(madeV->controlPoints());
  if (!ControlPoints::areUsable(controlPoints, weights, count)) return 0;
  _knotsU = *std::move(madeU);
  _knotsV = *std::move(madeV);
  _controlPoints = controlPoints;
  _weights = ControlPoints::weightsOrOnes(controlPoints, weights);
  return 1;
}

int NURBSSurface::Tessellate(double tolerance) {
  if (_knotsU.isEmpty() || !(tolerance > 0.0) || !std::isfinite(tolerance)) return 0;
  const auto weighted = ControlPoints::weighted(_controlPoints, _weights, _controlPoints.front());
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
  TriangleMaker(*this, set, surface, _controlPoints, *grid).make();
  return 1;
}

}  // namespace tarn
