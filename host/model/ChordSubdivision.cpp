#include "host/model/ChordSubdivision.h"

#include "host/general/VectorProducts.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace tarn {

namespace {

constexpr double shortestPiece = 1.0 / 65536.0;  // of a span

using Piece = std::array<HomogeneousPoint, KnotVector::highestDegree + 1>;

double distanceFromSegment(const Point3DDouble& point, const Point3DDouble& begin,
                           const Point3DDouble& end) {
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
void cutAt(double t, const HomogeneousPoint* curve, int degree, Piece& before, Piece& behind) {
  std::copy_n(curve, degree + 1, behind.begin());
  before[0] = behind[0];
  for (int level = 1; level <= degree; ++level) {
    for (std::size_t i = 0; i <= static_cast<std::size_t>(degree - level); ++i) {
      behind[i] = HomogeneousPoint::between(behind[i], behind[i + 1], t);
    }
    before[static_cast<std::size_t>(level)] = behind[0];
  }
}

// The ends of a span's pieces, 0 to 1 of the span, and the deviation of each.
struct Pieces {
  std::vector<double> ends;
  std::vector<double> deviations;
};

// All curves over one span.
class SpanCutter {
public:
  SpanCutter(const KnotVector& knots, const KnotVector::Span& span,
             const std::vector<std::vector<HomogeneousPoint>>& curves)
      : degree(knots.degree()) {
    whole.reserve(curves.size() * order());
    for (const auto& curve : curves) knots.appendBezier(span, curve, whole);
  }

  // As few pieces as the tolerance allows, each as long as the others in what it uses of it.
  // `most` + 1 where there would be more than `most`.
  Pieces cutEvenly(double within, std::size_t most) {
    Pieces pieces = cut(within, most);
    const std::size_t count = pieces.ends.size();
    if (count < 2 || count > most) return pieces;
    // The last piece is what was left over. A deviation grows with the square of a length.
    const double left = std::sqrt(pieces.deviations.back() / within);
    const double share = (static_cast<double>(count - 1) + left) / static_cast<double>(count);
    Pieces even = cut(std::min(1.1 * share * share, 1.0) * within, count);
    return even.ends.size() == count ? even : pieces;
  }

private:
  std::size_t order() const { return static_cast<std::size_t>(degree) + 1; }

  Pieces cut(double within, std::size_t most) {
    tolerance = within;
    begin = 0.0;
    length = 0.0;
    rest = whole;
    Pieces pieces;
    while (begin < 1.0 && pieces.ends.size() <= most) {
      double at = 1.0;
      double reached = deviationTo(at);
      if (!(reached <= tolerance)) at = farthest(reached);
      begin = at < 1.0 ? begin + at * (1.0 - begin) : 1.0;
      pieces.ends.push_back(begin);
      pieces.deviations.push_back(reached);
      moveRest();
    }
    return pieces;
  }

  // How much of the rest stays within the tolerance, to about one percent; at least the shortest
  // piece. `reached` holds the rest's deviation, and then that of the piece.
  double farthest(double& reached) {
    const double shortest = std::min(shortestPiece / (1.0 - begin), 1.0);
    double near = 0.0;
    double tooFar = 1.0;
    // A deviation grows with the square of a piece's length; the piece before is a better guess.
    double guess = length > 0.0 ? length / (1.0 - begin) : std::sqrt(tolerance / reached);
    while (tooFar > shortest && near < 0.99 * tooFar) {
      if (!(guess > near && guess < tooFar)) guess = 0.5 * (near + tooFar);
      guess = std::max(guess, shortest);
      const double deviation = deviationTo(guess);
      const double scaled = 0.997 * guess * std::sqrt(tolerance / deviation);
      if (deviation <= tolerance) {
        near = guess;
        reached = deviation;
        if (deviation > 0.98 * tolerance) break;
      } else {
        tooFar = guess;
      }
      guess = scaled;
    }
    if (near == 0.0) {
      near = shortest;
      reached = deviationTo(near);
    }
    length = near * (1.0 - begin);
    return near;
  }

  // The largest deviation of the pieces from `begin` to `at` of the rest, or one above the
  // tolerance. The curve that was farthest off the last time comes first.
  double deviationTo(double at) {
    double largest = deviationOf(farthestCurve, at);
    for (std::size_t i = 0; i < rest.size() && largest <= tolerance; i += order()) {
      const double deviation = deviationOf(i, at);
      if (deviation > largest) {
        largest = deviation;
        farthestCurve = i;
      }
    }
    return largest;
  }
  double deviationOf(std::size_t curve, double at) {
    cutAt(at, rest.data() + curve, degree, before, behind);
    return deviation(before, degree);
  }

  // From the whole each time: rounding must not add up.
  void moveRest() {
    for (std::size_t i = 0; i < rest.size(); i += order()) {
      cutAt(begin, whole.data() + i, degree, before, behind);
      std::copy_n(behind.begin(), order(), rest.data() + i);
    }
  }

  int degree;
  double tolerance = 0.0;
  double begin = 0.0;             // of the next piece
  double length = 0.0;            // of the piece before, where it did not reach the end
  std::size_t farthestCurve = 0;  // its first point's index
  std::vector<HomogeneousPoint> whole;
  std::vector<HomogeneousPoint> rest;
  Piece before;  // room to cut in
  Piece behind;
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
    const std::size_t room = most - result.deviations.size();
    const Pieces pieces = SpanCutter(knots, span, curves).cutEvenly(tolerance, room);
    if (pieces.ends.size() > room) return {};
    for (std::size_t i = 0; i < pieces.ends.size(); ++i) {
      const bool last = i + 1 == pieces.ends.size();
      const double parameter =
          last ? span.end : span.begin + pieces.ends[i] * (span.end - span.begin);
      // Between knots that are next to each other doubles may have no room.
      if (!last && !(parameter > result.parameters.back() && parameter < span.end)) continue;
      result.parameters.push_back(parameter);
      result.deviations.push_back(pieces.deviations[i]);
    }
  }
  return result;
}

std::vector<double> ChordSubdivision::deviationsOf(
    const KnotVector& knots, const std::vector<std::vector<HomogeneousPoint>>& curves,
    const std::vector<double>& parameters) {
  const int degree = knots.degree();
  const std::size_t order = static_cast<std::size_t>(degree) + 1;
  std::vector<double> result;
  std::vector<HomogeneousPoint> whole;
  Piece before;
  Piece behind;
  Piece unused;
  for (const KnotVector::Span& span : knots.spans()) {
    whole.clear();
    for (const auto& curve : curves) knots.appendBezier(span, curve, whole);
    while (result.size() + 1 < parameters.size() && parameters[result.size()] < span.end) {
      const double length = span.end - span.begin;
      const double begin = (parameters[result.size()] - span.begin) / length;
      const double end = (parameters[result.size() + 1] - span.begin) / length;
      double largest = 0.0;
      for (std::size_t i = 0; i < whole.size(); i += order) {
        cutAt(begin, whole.data() + i, degree, before, behind);
        cutAt((end - begin) / (1.0 - begin), behind.data(), degree, before, unused);
        largest = std::max(largest, deviation(before, degree));
      }
      result.push_back(largest);
    }
  }
  return result;
}

}  // namespace tarn
