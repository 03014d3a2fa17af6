#include "host/model/SurfaceGrid.h"

#include <Eigen/Core>

#include "host/model/ChordSubdivision.h"
#include "host/model/SurfaceRows.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <limits>

namespace tarn {

namespace {

using Curves = std::vector<std::vector<HomogeneousPoint>>;

Eigen::Vector3d vectorOf(const Point3DDouble& p) { return {p.x, p.y, p.z}; }

// As many parameters in each span as it has orders; the last end is one more.
std::vector<double> sampled(const KnotVector& knots) {
  std::vector<double> result;
  const int count = knots.degree() + 1;
  for (const KnotVector::Span& span : knots.spans()) {
    for (int i = 0; i < count; ++i) {
      result.push_back(span.begin + i * (span.end - span.begin) / count);
    }
  }
  result.push_back(knots.end());
  return result;
}

Curves curvesAlongU(const SurfaceSpline& surface, const std::vector<double>& v) {
  const auto basis = surface.knotsV.basisAt(v);
  Curves curves(v.size());
  for (int j = 0; j < basis.size(); ++j) {
    surface.combineRows(basis[j].first, basis[j].values, curves[static_cast<std::size_t>(j)]);
  }
  return curves;
}

Curves curvesAlongV(const SurfaceSpline& surface, const std::vector<double>& u) {
  const auto basis = surface.knotsU.basisAt(u);
  const int rows = surface.knotsV.controlPoints();
  Curves curves(u.size());
  for (int i = 0; i < basis.size(); ++i) {
    auto& curve = curves[static_cast<std::size_t>(i)];
    curve.resize(static_cast<std::size_t>(rows));
    for (int j = 0; j < rows; ++j) {
      const HomogeneousPoint* points = surface.controlPoints.data() + surface.at(basis[i].first, j);
      for (int k = 0; k <= surface.knotsU.degree(); ++k) {
        curve[static_cast<std::size_t>(j)].add(basis[i].values[k], points[k]);
      }
    }
  }
  return curves;
}

// The distance between two segments that are the diagonals of a cell.
double gapOf(const Point3DDouble& a0, const Point3DDouble& a1, const Point3DDouble& b0,
             const Point3DDouble& b1) {
  const Eigen::Vector3d from = vectorOf(a0) - vectorOf(b0);
  const Eigen::Vector3d a = vectorOf(a1) - vectorOf(a0);
  const Eigen::Vector3d b = vectorOf(b1) - vectorOf(b0);
  const double aa = a.squaredNorm();
  const double bb = b.squaredNorm();
  const double ab = a.dot(b);
  // Eberly, Geometric Tools for Computer Graphics, 10.8: from the closest points of the lines,
  // clamped to the one segment and then to the other.
  const auto within = [](double number) { return std::clamp(number, 0.0, 1.0); };
  const double denominator = aa * bb - ab * ab;
  double s = denominator > 0.0 ? within((ab * b.dot(from) - bb * a.dot(from)) / denominator) : 0.0;
  const double t = bb > 0.0 ? within((b.dot(from) + s * ab) / bb) : 0.0;
  if (aa > 0.0) s = within((t * ab - a.dot(from)) / aa);
  return (from + s * a - t * b).norm();
}

// One direction of a grid in the making: pieces that follow the surface's curves, each divided
// into equal parts where the cells' corners are too far from one plane.
struct Direction {
  std::vector<double> ends;        // of the pieces
  std::vector<int> parts;          // of each piece
  std::vector<double> parameters;  // of all parts
  std::vector<std::size_t> piece;  // of each part
  std::vector<double> deviations;  // of each part

  void set(ChordSubdivision cut) {
    ends = std::move(cut.parameters);
    parts.assign(cut.deviations.size(), 1);
    divide();
    deviations = std::move(cut.deviations);
  }
  // Leaves the deviations to be told.
  void divide() {
    parameters.assign(1, ends.front());
    piece.clear();
    for (std::size_t i = 0; i < parts.size(); ++i) {
      for (int k = 1; k <= parts[i]; ++k) {
        const double at =
            k < parts[i] ? ends[i] + k * (ends[i + 1] - ends[i]) / parts[i] : ends[i + 1];
        if (!(at > parameters.back())) continue;
        parameters.push_back(at);
        piece.push_back(i);
      }
    }
  }
  std::size_t count() const { return piece.size(); }
  double largestDeviation() const {
    return *std::max_element(deviations.begin(), deviations.end());
  }
};

std::size_t sumOf(const std::vector<int>& parts) {
  std::size_t sum = 0;
  for (const int part : parts) sum += static_cast<std::size_t>(part);
  return sum;
}

class GridMaker {
public:
  GridMaker(const SurfaceSpline& surface, double tolerance, std::size_t mostCells)
      : surface(surface), tolerance(tolerance), mostCells(mostCells) {
    const double none = std::numeric_limits<double>::infinity();
    alongU = curvesAlongU(surface, sampled(surface.knotsV));
    samples = alongU.size();
    wholeV = ChordSubdivision::of(surface.knotsV, curvesAlongV(surface, sampled(surface.knotsU)),
                                  none, mostCells)
                 .largestDeviation();
  }

  std::optional<SurfaceGrid> make() {
    // A little is left for rounding.
    const double most = 0.999 * tolerance;
    if (!cut(most)) return std::nullopt;
    measure();
    if (worst > tolerance) {
      // Where the diagonals need a share, they need about as much of it in smaller cells.
      if (!cut(std::max(most - 1.05 * widestGap, 0.5 * tolerance))) return std::nullopt;
      measure();
    }
    for (int round = 0; worst > tolerance && round < 16; ++round) {
      if (sumOf(wantedU) > mostCells / sumOf(wantedV)) return std::nullopt;
      u.parts = wantedU;
      v.parts = wantedV;
      u.divide();
      v.divide();
      v.deviations = ChordSubdivision::deviationsOf(
          surface.knotsV, curvesAlongV(surface, u.parameters), v.parameters);
      measure();
    }
    return SurfaceGrid{u.parameters, v.parameters};
  }

private:
  // Cuts so that both deviations together are not above `share`. A direction that needs little
  // leaves the rest to the other: a cylinder is straight along its axis.
  bool cut(double share) {
    const double forU = share - std::min(1.02 * wholeV, 0.5 * share);
    // Each part of u has cells in all spans of v.
    auto cutU = ChordSubdivision::of(surface.knotsU, alongU, forU,
                                     mostCells / surface.knotsV.spans().size());
    if (cutU.parameters.empty()) return false;
    u.set(std::move(cutU));
    const double forV = std::max(share - u.largestDeviation(), 0.25 * share);
    auto cutV = ChordSubdivision::of(surface.knotsV, curvesAlongV(surface, u.parameters), forV,
                                     mostCells / u.count());
    if (cutV.parameters.empty()) return false;
    v.set(std::move(cutV));
    return true;
  }

  // Looks at every cell, and tells into how many parts pieces with cells too far off should go.
  void measure() {
    // Along u, the rows are looked at besides the curves that it was cut by.
    alongU.resize(samples);
    std::ranges::move(curvesAlongU(surface, v.parameters), std::back_inserter(alongU));
    u.deviations = ChordSubdivision::deviationsOf(surface.knotsU, alongU, u.parameters);
    SurfaceRows rows(surface, u.parameters, v.parameters);
    wantedU = u.parts;
    wantedV = v.parts;
    worst = 0.0;
    widestGap = 0.0;
    std::vector<SurfaceRows::Place> below = rows.row(0);
    for (std::size_t j = 0; j < v.count(); ++j) {
      const std::size_t pieceV = v.piece[j];
      const auto& above = rows.row(static_cast<int>(j) + 1);
      for (std::size_t i = 0; i < u.count(); ++i) {
        const std::size_t pieceU = u.piece[i];
        const double gap =
            gapOf(below[i].point, above[i + 1].point, below[i + 1].point, above[i].point);
        const double curved = u.deviations[i] + v.deviations[j];
        widestGap = std::max(widestGap, gap);
        worst = std::max(worst, curved + gap);
        if (curved + gap > tolerance) {
          // Half the width and half the height leave a quarter of either.
          const double times = std::sqrt(std::max(
              gap / std::max(tolerance - curved, 0.25 * tolerance), (curved + gap) / tolerance));
          wantedU[pieceU] = std::max(wantedU[pieceU], more(u.parts[pieceU], times));
          wantedV[pieceV] = std::max(wantedV[pieceV], more(v.parts[pieceV], times));
        }
      }
      below = above;
    }
  }
  static int more(int parts, double times) {
    return std::max(static_cast<int>(std::ceil(std::min(times * parts, 1e9))), parts + 1);
  }

  const SurfaceSpline& surface;
  const double tolerance;
  const std::size_t mostCells;
  Curves alongU;            // at sampled v and, once measured, at those of the rows
  std::size_t samples = 0;  // how many of them are sampled
  double wholeV = 0.0;
  Direction u;
  Direction v;
  double worst = 0.0;
  double widestGap = 0.0;
  std::vector<int> wantedU;
  std::vector<int> wantedV;
};

}  // namespace

std::optional<SurfaceGrid> SurfaceGrid::of(const SurfaceSpline& surface, double tolerance,
                                           std::size_t mostCells) {
  return GridMaker(surface, tolerance, mostCells).make();
}

}  // namespace tarn
