#include "host/model/ChordSubdivision.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarn {

namespace {

constexpr double shortestPiece = 1.0 / 65536.0;  // of a span

using Piece = std::array<HomogeneousPoint, KnotVector::highestDegree + 1>;

double distanceFromSegment(const Point3DDouble& point, const Point3DDouble& begin,
                           const Point3DDouble& end) {
  const auto dot = [](const Point3DDouble& a, const Point3DDouble& b) {
    return a.x * b.x + a.y * b.y + a.z * b.z;
  };
  const Point3DDouble along = end - begin;
  const double length2 = dot(along, along);
  const double at = length2 > 0.0 ? std::clamp(dot(point - begin, along) / length2, 0.0, 1.0) : 0.0;
  return (point - begin - at * along).length();
}

// How far a Bézier curve may be from its chord.
double deviation(const Piece& points, int degree) {
  if (degree < 2) return 0.0;
  const Point3DDouble begin = points[0].point();
  const auto last = static_cast<std::size_t>(degree);
  const Point3DDouble end = points[last].point();
  double farthest = 0.0;
  double heaviest = 0.0;
  for (std::size_t i = 1; i < last; ++i) {
    farthest = std::max(farthest, distanceFromSegment(points[i].point(), begin, end));
    heaviest = std::max(heaviest, points[i].w);
  }
  // The ends' polynomials sum to 2^(1 - degree) at least.
  const double ends = std::ldexp(std::min(points[0].w, points[last].w), 1 - degree);
  const double between = heaviest * (1.0 - std::ldexp(1.0, 1 - degree));
  return farthest * between / (between + ends);
}

// De Casteljau (The NURBS Book, A1.5): the part before `t`, and the part behind it.
void cut(const HomogeneousPoint* curve, int degree, double t, Piece& before, Piece& behind) {
  std::copy_n(curve, degree + 1, behind.begin());
  before[0] = behind[0];
  for (int level = 1; level <= degree; ++level) {
    for (std::size_t i = 0; i <= static_cast<std::size_t>(degree - level); ++i) {
      behind[i] = HomogeneousPoint::between(behind[i], behind[i + 1], t);
    }
    before[static_cast<std::size_t>(level)] = behind[0];
  }
}

// All curves over one span.
class SpanCutter {
public:
  SpanCutter(const KnotVector& knots, const KnotVector::Span& span,
             const std::vector<std::vector<HomogeneousPoint>>& curves, double tolerance)
      : degree(knots.degree()), tolerance(tolerance) {
    whole.reserve(curves.size() * order());
    for (const auto& curve : curves) knots.appendBezier(span, curve, whole);
    rest = whole;
  }

  // Where the next piece ends, 0 to 1 of the span, and its deviation.
  double next(double& reached) {
    double at = 1.0;
    reached = deviationTo(at);
    if (!(reached <= tolerance)) at = farthest(reached);
    begin = at < 1.0 ? begin + at * (1.0 - begin) : 1.0;
    moveRest();
    return begin;
  }

private:
  std::size_t order() const { return static_cast<std::size_t>(degree) + 1; }

  // How much of the rest stays within the tolerance, to half a percent; at least the shortest
  // piece. `reached` holds the rest's deviation, and then that of the piece.
  double farthest(double& reached) const {
    const double shortest = std::min(shortestPiece / (1.0 - begin), 1.0);
    double near = 0.0;
    double tooFar = 1.0;
    // A deviation grows with the square of a piece's length.
    double guess = std::sqrt(tolerance / reached);
    while (tooFar > shortest && near < 0.995 * tooFar) {
      if (!(guess > near && guess < tooFar)) guess = 0.5 * (near + tooFar);
      guess = std::max(guess, shortest);
      const double deviation = deviationTo(guess);
      const double scaled = 0.998 * guess * std::sqrt(tolerance / deviation);
      if (deviation <= tolerance) {
        near = guess;
        reached = deviation;
      } else {
        tooFar = guess;
      }
      guess = scaled;
    }
    if (near > 0.0) return near;
    reached = deviationTo(shortest);
    return shortest;
  }

  // The largest deviation of the pieces from `begin` to `at` of the rest, or the first one
  // above the tolerance.
  double deviationTo(double at) const {
    double largest = 0.0;
    Piece before;
    Piece behind;
    for (std::size_t i = 0; i < rest.size(); i += order()) {
      cut(rest.data() + i, degree, at, before, behind);
      largest = std::max(largest, deviation(before, degree));
      if (largest > tolerance) break;
    }
    return largest;
  }

  // From the whole each time: rounding must not add up.
  void moveRest() {
    Piece before;
    Piece behind;
    for (std::size_t i = 0; i < rest.size(); i += order()) {
      cut(whole.data() + i, degree, begin, before, behind);
      std::copy_n(behind.begin(), order(), rest.data() + i);
    }
  }

  int degree;
  double tolerance;
  double begin = 0.0;
  std::vector<HomogeneousPoint> whole;
  std::vector<HomogeneousPoint> rest;
};

}  // namespace

double ChordSubdivision::largestDeviation() const {
  return deviations.empty() ? 0.0 : *std::max_element(deviations.begin(), deviations.end());
}

ChordSubdivision ChordSubdivision::of(const KnotVector& knots,
                                      const std::vector<std::vector<HomogeneousPoint>>& curves,
                                      double tolerance, std::size_t most) {
  ChordSubdivision result;
  result.parameters.push_back(knots.begin());
  for (const KnotVector::Span& span : knots.spans()) {
    SpanCutter cutter(knots, span, curves, tolerance);
    for (double at = 0.0; at < 1.0;) {
      if (result.deviations.size() == most) return {};
      double reached = 0.0;
      at = cutter.next(reached);
      const double parameter = span.begin + at * (span.end - span.begin);
      // Between knots that are next to each other doubles may have no room.
      if (at < 1.0 && !(parameter > result.parameters.back() && parameter < span.end)) continue;
      result.parameters.push_back(at < 1.0 ? parameter : span.end);
      result.deviations.push_back(reached);
    }
  }
  return result;
}

}  // namespace tarn
