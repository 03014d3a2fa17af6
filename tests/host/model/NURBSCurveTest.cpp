#include "host/model/NURBSCurve.h"

#include "tests/support/SplineReference.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>

using tarn::NURBSCurve;
using tarn::Point3DDouble;
using ::testing::ElementsAre;

namespace {

struct CurveData {
  int degree;
  std::vector<double> knots;
  std::vector<Point3DDouble> points;
  std::vector<double> weights;
};

const double half = std::sqrt(0.5);
const double notANumber = std::numeric_limits<double>::quiet_NaN();
const double infinite = std::numeric_limits<double>::infinity();

// A circle of radius 10 in the plane x + z = 0, of four quarters.
CurveData circle() {
  const Point3DDouble east{10 * half, 0, -10 * half};
  const Point3DDouble north{0, 10, 0};
  std::vector<Point3DDouble> points;
  constexpr int square[9][2] = {{1, 0},   {1, 1},  {0, 1},  {-1, 1}, {-1, 0},
                                {-1, -1}, {0, -1}, {1, -1}, {1, 0}};
  for (const auto& corner : square) points.push_back(corner[0] * east + corner[1] * north);
  return {2,
          {0, 0, 0, 0.25, 0.25, 0.5, 0.5, 0.75, 0.75, 1, 1, 1},
          points,
          {1, half, 1, half, 1, half, 1, half, 1}};
}

// One cubic with an inflection whose x is its parameter.
CurveData cubic() {
  return {
      3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0, 1}, {1.0 / 3, 4, 2}, {2.0 / 3, -5, 0}, {1, 1, 7}}, {}};
}

// Uneven knots, weights and a kink at 2, where a knot is repeated three times.
CurveData uneven() {
  return {3,
          {0, 0, 0, 0, 0.25, 1, 2, 2, 2, 3.5, 5, 5, 5, 5},
          {{0, 0, 0},
           {1, 2, 1},
           {3, 3, -1},
           {4, 0, 0},
           {5, 1, 2},
           {6, 6, 6},
           {7, 1, 4},
           {9, 0, 0},
           {9, 4, 1},
           {12, 2, 3}},
          {1, 3, 0.5, 2, 1, 4, 0.25, 1, 1, 2}};
}

// Without repeated knots, so that the ends are no control points.
CurveData unclamped() {
  return {
      2, {0, 1, 2, 3, 4, 5, 6, 7}, {{0, 0, 0}, {2, 0, 1}, {2, 2, 0}, {0, 2, 2}, {-1, 5, 0}}, {}};
}

CurveData farAway() {
  CurveData data = circle();
  for (Point3DDouble& point : data.points) point = point + Point3DDouble{4512345, 5512345, 345};
  return data;
}

// A loop of one span that ends where it began: its chord has no length.
CurveData loop() {
  return {3, {0, 0, 0, 0, 1, 1, 1, 1}, {{1, 1, 1}, {9, 3, 0}, {-7, 5, 0}, {1, 1, 1}}, {}};
}

}  // namespace

class NURBSCurveTest : public TarnTest {
protected:
  void set(const CurveData& data) {
    ASSERT_TRUE(curve.SetCurve(data.degree, data.knots, data.points, data.weights));
  }
  std::vector<Point3DDouble> tessellated(double tolerance) {
    std::vector<Point3DDouble> result;
    const tarn::VOrdCollect* points = curve.Tess3D(tolerance, nullptr);
    for (int i = 0; points && i < points->size(); ++i) {
      tarn::Point3DRandom position;
      const auto* point = static_cast<const tarn::ThreeDPoint*>(points->at(i));
      if (!point->isA(tarn::ThreeDPointCls) || !point->GetApproximation(position)) return {};
      result.push_back(position.position());
    }
    return result;
  }

  NURBSCurve curve;
};

TEST_F(NURBSCurveTest, ANewOneIsNotSet) {
  EXPECT_EQ(curve.GetDegree(), 0);
  EXPECT_TRUE(curve.GetKnots().empty());
  EXPECT_TRUE(curve.GetControlPoints().empty());
  EXPECT_TRUE(curve.GetWeights().empty());
  EXPECT_EQ(curve.Tess3D(0.1, nullptr), nullptr);
}

TEST_F(NURBSCurveTest, TellsWhatItWasSetTo) {
  const CurveData data = circle();
  set(data);
  EXPECT_EQ(curve.GetDegree(), 2);
  EXPECT_EQ(curve.GetKnots(), data.knots);
  EXPECT_EQ(curve.GetControlPoints(), data.points);
  EXPECT_EQ(curve.GetWeights(), data.weights);
}

TEST_F(NURBSCurveTest, WithoutWeightsAllAreOne) {
  set(cubic());
  EXPECT_THAT(curve.GetWeights(), ElementsAre(1, 1, 1, 1));
}

TEST_F(NURBSCurveTest, AStraightLineHasTwoPoints) {
  set({1, {0, 0, 1, 1}, {{1.1, 2.2, 3.3}, {4.4, -5.5, 6.6}}, {2, 0.3}});
  EXPECT_THAT(tessellated(1e-9),
              ElementsAre(Point3DDouble(1.1, 2.2, 3.3), Point3DDouble(4.4, -5.5, 6.6)));
  // Of a higher degree, unevenly run through.
  set({3, {0, 0, 0, 0, 1, 1, 1, 1}, {{0, 0, 0}, {1, 1, 1}, {7, 7, 7}, {8, 8, 8}}, {}});
  EXPECT_THAT(tessellated(1e-9), ElementsAre(Point3DDouble(0, 0, 0), Point3DDouble(8, 8, 8)));
}

TEST_F(NURBSCurveTest, APolylineIsItself) {
  const std::vector<Point3DDouble> corners{{0.1, 0.7, 0.3}, {1.9, 0.3, 5.1}, {2.3, 2.7, 0.9}};
  set({1, {0, 0, 0.3, 1, 1}, corners, {1, 0.7, 3}});
  EXPECT_EQ(tessellated(0.001), corners);
}

TEST_F(NURBSCurveTest, ACircleIsRound) {
  set(circle());
  for (const Point3DDouble& point : tessellated(0.001)) {
    EXPECT_NEAR(point.length(), 10.0, 1e-14);
    EXPECT_NEAR(point.x + point.z, 0.0, 1e-14);
  }
}

TEST_F(NURBSCurveTest, ACircleHasHardlyMorePointsThanItsToleranceAsksFor) {
  set(circle());
  for (const double tolerance : {0.1, 0.01, 0.001, 1e-5}) {
    // Of as many equal chords each has a sagitta of the tolerance.
    const double needed = M_PI / std::acos(1 - tolerance / 10);
    const auto points = static_cast<double>(tessellated(tolerance).size());
    EXPECT_GE(points, needed);
    // Each quarter ends with a chord that may be short; a bound is no distance.
    EXPECT_LE(points, 1.02 * needed + 5) << tolerance;
  }
}

TEST_F(NURBSCurveTest, TheChordsOfACircleAreAboutEquallyLong) {
  set(circle());
  for (const double tolerance : {2.0, 0.1, 0.001}) {
    const auto points = tessellated(tolerance);
    double shortest = 20.0;
    double longest = 0.0;
    for (std::size_t i = 1; i < points.size(); ++i) {
      const double length = (points[i] - points[i - 1]).length();
      shortest = std::min(shortest, length);
      longest = std::max(longest, length);
    }
    EXPECT_LT(longest, 1.5 * shortest) << tolerance;
  }
}

TEST_F(NURBSCurveTest, AParabolaHasHardlyMorePointsThanItsToleranceAsksFor) {
  // y = 100 z x^2: chords of equal width in x have equal sagittas along y, but not across.
  set({2, {0, 0, 0, 1, 1, 1}, {{0, 0, 3}, {0.5, 0, 3}, {1, 0.01, 3}}, {}});
  const auto points = tessellated(1e-6);
  EXPECT_NEAR(static_cast<double>(points.size()), 1 + std::sqrt(0.01 / 4 / 1e-6), 1.5);
}

TEST_F(NURBSCurveTest, ACubicsPointsAreThoseOfDeCasteljau) {
  const CurveData data = cubic();
  set(data);
  const auto points = tessellated(0.001);
  ASSERT_GT(points.size(), 20U);
  for (const Point3DDouble& point : points) {
    std::vector<Point3DDouble> level = data.points;
    while (level.size() > 1) {
      for (std::size_t i = 0; i + 1 < level.size(); ++i) {
        level[i] = (1 - point.x) * level[i] + point.x * level[i + 1];
      }
      level.pop_back();
    }
    EXPECT_NEAR((level.front() - point).length(), 0.0, 1e-14);
  }
}

TEST_F(NURBSCurveTest, EachKnotHasAPoint) {
  const CurveData data = uneven();
  set(data);
  tarn::VOrdCollect* atKnots = nullptr;
  const tarn::VOrdCollect* all = curve.Tess3D(0.01, &atKnots);
  ASSERT_NE(all, nullptr);
  ASSERT_NE(atKnots, nullptr);
  ASSERT_EQ(atKnots->size(), 6);
  const double knots[] = {0, 0.25, 1, 2, 3.5, 5};
  for (int i = 0; i < 6; ++i) {
    tarn::Point3DRandom position;
    const auto* point =
        static_cast<const tarn::ThreeDPoint*>(all->at(static_cast<int>(atKnots->indexAt(i))));
    point->GetApproximation(position);
    const auto there =
        SplineReference::curvePoint(data.degree, data.knots, data.points, data.weights, knots[i]);
    EXPECT_NEAR((SplineReference::vectorOf(position.position()) - there).norm(), 0.0, 1e-14) << i;
  }
  EXPECT_EQ(atKnots->indexAt(0), 0);
  EXPECT_EQ(atKnots->indexAt(5), all->size() - 1);
}

TEST_F(NURBSCurveTest, EndsAndKinksAreExactlyTheirControlPoints) {
  CurveData data = uneven();
  for (Point3DDouble& point : data.points) point = 1.1 * point;
  data.weights = {0.3, 3, 0.5, 2, 1, 0.7, 0.25, 1, 1, 1.7};
  set(data);
  const auto points = tessellated(0.01);
  ASSERT_FALSE(points.empty());
  EXPECT_EQ(points.front(), data.points.front());
  EXPECT_EQ(points.back(), data.points.back());
  EXPECT_EQ(std::count(points.begin(), points.end(), data.points[5]), 1);
}

TEST_F(NURBSCurveTest, PointsFollowEachOtherWithoutRepetition) {
  set(uneven());
  const auto points = tessellated(0.001);
  EXPECT_EQ(std::adjacent_find(points.begin(), points.end()), points.end());
}

TEST_F(NURBSCurveTest, PointsStayUntilTheNextCall) {
  set(circle());
  const tarn::VOrdCollect* first = curve.Tess3D(0.1, nullptr);
  const int count = first->size();
  EXPECT_GT(curve.Tess3D(0.001, nullptr)->size(), count);
  EXPECT_EQ(curve.Tess3D(0.1, nullptr)->size(), count);
}

TEST_F(NURBSCurveTest, ATooSmallOrImpossibleToleranceGivesNothing) {
  set(circle());
  for (const double tolerance : {0.0, -1.0, notANumber, infinite}) {
    tarn::VOrdCollect other;
    tarn::VOrdCollect* atKnots = &other;
    EXPECT_EQ(curve.Tess3D(tolerance, &atKnots), nullptr) << tolerance;
    EXPECT_EQ(atKnots, nullptr);
  }
}

TEST_F(NURBSCurveTest, WeightsThatAreAllTheSameChangeNothingHoweverLargeOrSmall) {
  CurveData data = uneven();
  data.weights.assign(data.points.size(), 1.0);
  set(data);
  const std::size_t count = tessellated(0.01).size();
  for (const double weight : {1e60, 1e-60}) {
    data.weights.assign(data.points.size(), weight);
    set(data);
    EXPECT_EQ(tessellated(0.01).size(), count) << weight;
  }
}

TEST_F(NURBSCurveTest, TheLargestCoordinatesStayNumbers) {
  ASSERT_TRUE(curve.SetCurve(2, {0, 0, 0, 1, 1, 1}, {{-1e60, 0, 0}, {0, 1e60, 0}, {1e60, 0, 0}},
                             {1, 2, 1}));
  const auto points = tessellated(1e57);
  EXPECT_GT(points.size(), 10U);
  for (const Point3DDouble& point : points) EXPECT_TRUE(std::isfinite(point.length()));
}

TEST_F(NURBSCurveTest, ATinyToleranceEnds) {
  set(circle());
  const auto* points = curve.Tess3D(1e-300, nullptr);
  ASSERT_NE(points, nullptr);
  EXPECT_LE(points->size(), 4 * 65536 + 5);
}

// --- The tolerance

struct NamedCurve {
  const char* name;
  CurveData (*make)();
  friend void PrintTo(const NamedCurve& named, std::ostream* out) { *out << named.name; }
};
class NURBSCurveToleranceTest : public NURBSCurveTest,
                                public ::testing::WithParamInterface<NamedCurve> {};

TEST_P(NURBSCurveToleranceTest, NoPointOfTheCurveIsFartherFromThePolyline) {
  const CurveData data = GetParam().make();
  set(data);
  const double begin = data.knots[static_cast<std::size_t>(data.degree)];
  const double end = data.knots[data.points.size()];
  for (const double tolerance : {1.0, 0.05, 0.002}) {
    std::vector<Eigen::Vector3d> points;
    for (const auto& point : tessellated(tolerance)) {
      points.push_back(SplineReference::vectorOf(point));
    }
    ASSERT_GE(points.size(), 2U);
    // The polyline is followed along the curve.
    std::size_t piece = 0;
    double farthest = 0.0;
    constexpr int samples = 4000;
    for (int i = 0; i <= samples; ++i) {
      const auto at = SplineReference::curvePoint(
          data.degree, data.knots, data.points, data.weights, begin + (end - begin) * i / samples);
      const auto distance = [&](std::size_t k) {
        return SplineReference::distanceFromSegment(at, points[k], points[k + 1]);
      };
      while (piece + 2 < points.size() && distance(piece + 1) < distance(piece)) ++piece;
      farthest = std::max(farthest, distance(piece));
    }
    EXPECT_LE(farthest, tolerance + 1e-8);
    EXPECT_GT(farthest, 0.2 * std::min(tolerance, 0.05)) << "more points than are needed";
  }
}

INSTANTIATE_TEST_SUITE_P(NURBSCurveTest, NURBSCurveToleranceTest,
                         ::testing::Values(NamedCurve{"circle", circle}, NamedCurve{"cubic", cubic},
                                           NamedCurve{"uneven", uneven},
                                           NamedCurve{"unclamped", unclamped},
                                           NamedCurve{"farAway", farAway},
                                           NamedCurve{"loop", loop}));

// --- What is refused

struct Wrong {
  const char* what;
  void (*change)(CurveData&);
  friend void PrintTo(const Wrong& wrong, std::ostream* out) { *out << wrong.what; }
};
class NURBSCurveRefusalTest : public NURBSCurveTest, public ::testing::WithParamInterface<Wrong> {};

TEST_P(NURBSCurveRefusalTest, IsRefusedAndTheCurveStays) {
  const CurveData before = circle();
  set(before);
  const std::size_t count = tessellated(0.1).size();
  CurveData data = uneven();
  GetParam().change(data);
  EXPECT_FALSE(curve.SetCurve(data.degree, data.knots, data.points, data.weights));
  EXPECT_EQ(curve.GetDegree(), 2);
  EXPECT_EQ(curve.GetKnots(), before.knots);
  EXPECT_EQ(curve.GetControlPoints(), before.points);
  EXPECT_EQ(curve.GetWeights(), before.weights);
  EXPECT_EQ(tessellated(0.1).size(), count);
}

INSTANTIATE_TEST_SUITE_P(
    NURBSCurveTest, NURBSCurveRefusalTest,
    ::testing::Values(
        Wrong{"a knot too few", [](CurveData& d) { d.knots.pop_back(); }},
        Wrong{"a knot too many", [](CurveData& d) { d.knots.push_back(5); }},
        Wrong{"no knots", [](CurveData& d) { d.knots.clear(); }},
        Wrong{"knots that fall", [](CurveData& d) { std::swap(d.knots[4], d.knots[5]); }},
        Wrong{"a knot that is no number", [](CurveData& d) { d.knots[5] = notANumber; }},
        Wrong{"an infinite knot", [](CurveData& d) { d.knots.back() = infinite; }},
        Wrong{"a knot repeated more often than the degree", [](CurveData& d) { d.knots[9] = 2; }},
        Wrong{"too many knots at the begin", [](CurveData& d) { d.knots[4] = 0; }},
        Wrong{"knots that are all the same",
              [](CurveData& d) { d.knots.assign(d.knots.size(), 1.0); }},
        Wrong{"degree 0",
              [](CurveData& d) {
                d.degree = 0;
                d.knots.resize(d.points.size() + 1);
              }},
        Wrong{"a negative degree", [](CurveData& d) { d.degree = -3; }},
        Wrong{"a huge degree", [](CurveData& d) { d.degree = 2147483647; }},
        Wrong{"as few control points as the degree",
              [](CurveData& d) {
                d.points.resize(3);
                d.weights.resize(3);
                d.knots = {0, 0, 0, 0, 1, 1, 1};
              }},
        Wrong{"no control points",
              [](CurveData& d) {
                d.points.clear();
                d.weights.clear();
              }},
        Wrong{"a control point that is not finite", [](CurveData& d) { d.points[3].y = infinite; }},
        Wrong{"a coordinate that is too large", [](CurveData& d) { d.points[3].x = -2e60; }},
        Wrong{"a weight that is too small", [](CurveData& d) { d.weights[2] = 9e-61; }},
        Wrong{"a weight that is too large", [](CurveData& d) { d.weights[2] = 2e60; }},
        Wrong{"a weight of 0", [](CurveData& d) { d.weights[2] = 0; }},
        Wrong{"a negative weight", [](CurveData& d) { d.weights[2] = -1; }},
        Wrong{"a weight that is no number", [](CurveData& d) { d.weights[2] = notANumber; }},
        Wrong{"a weight too few", [](CurveData& d) { d.weights.pop_back(); }}));
