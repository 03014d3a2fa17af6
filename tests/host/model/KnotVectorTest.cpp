#include "host/model/KnotVector.h"

#include "tests/support/SplineReference.h"
#include "tests/support/TarnTest.h"

using tarn::HomogeneousPoint;
using tarn::KnotVector;
using tarn::Point3DDouble;
using ::testing::ElementsAre;

class KnotVectorTest : public TarnTest {
protected:
  static KnotVector made(int degree, const std::vector<double>& knots) {
    return KnotVector::make(degree, knots).value();
  }
  // Cubic; a knot alone, and one that is repeated three times.
  const KnotVector clamped = made(3, {0, 0, 0, 0, 0.3, 1, 1, 1, 2.5, 2.5, 2.5, 2.5});
  const KnotVector unclamped = made(2, {0, 1, 2, 4, 5, 6, 7});
  // Its last knot is repeated before the end, where a span without length is.
  const KnotVector repeatedAtEnd = made(3, {0, 1, 2, 3, 5, 5, 6, 7, 8});
};

TEST_F(KnotVectorTest, TheParameterRunsBetweenTheKnotsNumberedByTheDegree) {
  EXPECT_EQ(clamped.begin(), 0.0);
  EXPECT_EQ(clamped.end(), 2.5);
  EXPECT_EQ(clamped.controlPoints(), 8);
  EXPECT_EQ(unclamped.begin(), 2.0);
  EXPECT_EQ(unclamped.end(), 5.0);
  EXPECT_EQ(unclamped.controlPoints(), 4);
}

TEST_F(KnotVectorTest, SpansLieBetweenKnotsThatDiffer) {
  const auto spans = clamped.spans();
  ASSERT_EQ(spans.size(), 3U);
  EXPECT_EQ(spans[0].begin, 0.0);
  EXPECT_EQ(spans[0].knot, 3);
  EXPECT_EQ(spans[1].begin, 0.3);
  EXPECT_EQ(spans[1].end, 1.0);
  EXPECT_EQ(spans[1].knot, 4);
  EXPECT_EQ(spans[2].knot, 7);
  EXPECT_EQ(spans[2].end, 2.5);
  EXPECT_EQ(unclamped.spans().size(), 2U);
}

TEST_F(KnotVectorTest, SplinesPassThroughControlPointsAtRepeatedKnots) {
  EXPECT_EQ(clamped.interpolatedAt(0.0), 0);
  EXPECT_EQ(clamped.interpolatedAt(0.3), -1);
  EXPECT_EQ(clamped.interpolatedAt(0.7), -1);
  EXPECT_EQ(clamped.interpolatedAt(1.0), 4);
  EXPECT_EQ(clamped.interpolatedAt(2.5), 7);
  EXPECT_EQ(unclamped.interpolatedAt(2.0), -1);
  EXPECT_EQ(unclamped.interpolatedAt(5.0), -1);
}

TEST_F(KnotVectorTest, KinksAreBetweenTheEnds) {
  EXPECT_FALSE(clamped.mayKinkAt(0.0));
  EXPECT_FALSE(clamped.mayKinkAt(0.3));
  EXPECT_TRUE(clamped.mayKinkAt(1.0));
  EXPECT_FALSE(clamped.mayKinkAt(2.5));
}

TEST_F(KnotVectorTest, TheBasisIsThatOfTheDefinition) {
  for (const KnotVector& knots : {clamped, unclamped, repeatedAtEnd}) {
    std::vector<double> parameters;
    for (int i = 0; i <= 20; ++i) {
      parameters.push_back(knots.begin() + (knots.end() - knots.begin()) * i / 20);
    }
    const auto table = knots.basisAt(parameters);
    ASSERT_EQ(table.size(), 21);
    for (int i = 0; i < 21; ++i) {
      for (int control = 0; control < knots.controlPoints(); ++control) {
        const double expected =
            SplineReference::basis(knots.knots(), knots.degree(), static_cast<std::size_t>(control),
                                   parameters[static_cast<std::size_t>(i)]);
        const int listed = control - table[i].first;
        const bool isListed = listed >= 0 && listed <= knots.degree();
        EXPECT_NEAR(isListed ? table[i].values[listed] : 0.0, expected, 1e-15) << i << control;
      }
    }
  }
}

TEST_F(KnotVectorTest, DerivativesAreThoseOfTheSpanThatBegins) {
  constexpr double step = 1e-6;
  for (const double parameter : {0.0, 0.1, 0.3, 1.0, 2.0}) {
    const auto table = clamped.basisAt({parameter});
    for (int k = 0; k <= 3; ++k) {
      const auto control = static_cast<std::size_t>(table[0].first + k);
      const auto value = [&](double at) {
        return SplineReference::basis(clamped.knots(), 3, control, at);
      };
      // Three points on one side: exact for squares.
      const double expected =
          (-3 * value(parameter) + 4 * value(parameter + step) - value(parameter + 2 * step)) /
          (2 * step);
      EXPECT_NEAR(table[0].derivatives[k], expected, 1e-6) << parameter;
    }
  }
}

TEST_F(KnotVectorTest, ASpanAsABezierCurveIsTheSameCurve) {
  for (const KnotVector& knots : {clamped, unclamped, repeatedAtEnd}) {
    std::vector<Point3DDouble> points;
    std::vector<double> weights;
    std::vector<HomogeneousPoint> weighted;
    for (int i = 0; i < knots.controlPoints(); ++i) {
      points.emplace_back(i, i * i - 3, 7 - i % 3);
      weights.push_back(1 + i % 2);
      weighted.emplace_back(points.back(), weights.back());
    }
    const auto degree = static_cast<std::size_t>(knots.degree());
    const std::vector<double> bezierKnots = [&] {
      std::vector<double> result(degree + 1, 0.0);
      result.resize(2 * degree + 2, 1.0);
      return result;
    }();
    for (const KnotVector::Span& span : knots.spans()) {
      std::vector<HomogeneousPoint> bezier;
      knots.appendBezier(span, weighted, bezier);
      ASSERT_EQ(bezier.size(), degree + 1);
      std::vector<Point3DDouble> bezierPoints;
      std::vector<double> bezierWeights;
      for (const HomogeneousPoint& point : bezier) {
        bezierPoints.push_back(point.point());
        bezierWeights.push_back(point.w);
      }
      for (const double t : {0.0, 0.2, 0.5, 0.9}) {
        const auto expected =
            SplineReference::curvePoint(knots.degree(), knots.knots(), points, weights,
                                        span.begin + t * (span.end - span.begin));
        const auto point = SplineReference::curvePoint(knots.degree(), bezierKnots, bezierPoints,
                                                       bezierWeights, t);
        EXPECT_NEAR((point - expected).norm(), 0.0, 1e-13);
      }
    }
  }
}

TEST_F(KnotVectorTest, TheHighestDegreeIsEvaluatedAndTheNextRefused) {
  const int degree = KnotVector::highestDegree;
  std::vector<double> knots(static_cast<std::size_t>(degree) + 1, 0.0);
  knots.resize(2 * knots.size(), 1.0);
  const auto table = made(degree, knots).basisAt({0.5});
  double sum = 0.0;
  for (int k = 0; k <= degree; ++k) sum += table[0].values[k];
  EXPECT_NEAR(sum, 1.0, 1e-14);
  knots.insert(knots.begin(), 0.0);
  knots.push_back(1.0);
  EXPECT_FALSE(KnotVector::make(degree + 1, knots));
}

TEST_F(KnotVectorTest, AParameterWithoutRoomIsRefused) {
  // Each knot is repeated seldom enough, but the parameter begins where it ends.
  EXPECT_FALSE(KnotVector::make(2, {0, 0, 1, 1, 2, 2}));
}

TEST_F(KnotVectorTest, KnotsThatAreTooNearToEachOtherAreNone) {
  EXPECT_TRUE(KnotVector::make(2, {0, 0, 0, 1e-60, 1, 1, 1}));
  EXPECT_FALSE(KnotVector::make(2, {0, 0, 0, 9e-61, 1, 1, 1}));
}
