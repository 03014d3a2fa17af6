#include "host/model/ChordSubdivision.h"

#include "tests/support/SplineReference.h"
#include "tests/support/TarnTest.h"

#include <limits>

using tarn::ChordSubdivision;
using tarn::HomogeneousPoint;
using tarn::KnotVector;
using tarn::Point3DDouble;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ChordSubdivisionTest : public TarnTest {
protected:
  using Points = std::vector<Point3DDouble>;

  static std::vector<HomogeneousPoint> weighted(const Points& points) {
    std::vector<HomogeneousPoint> result;
    for (std::size_t i = 0; i < points.size(); ++i) {
      result.emplace_back(points[i], weightOf(i));
    }
    return result;
  }
  static double weightOf(std::size_t i) { return i == 2 ? 2.5 : 1.0; }
  ChordSubdivision cut(const std::vector<Points>& curves, double tolerance,
                       std::size_t most = 1000) const {
    std::vector<std::vector<HomogeneousPoint>> all;
    for (const Points& curve : curves) all.push_back(weighted(curve));
    return ChordSubdivision::of(knots, all, tolerance, most);
  }

  const std::vector<double> numbers{0, 0, 0, 0, 1, 3, 3, 3, 3};
  const KnotVector knots = KnotVector::make(3, numbers).value();
  const Points bent{{0, 0, 0}, {1, 4, 0}, {3, -4, 1}, {6, 2, 5}, {7, 0, 0}};
  const Points flatter{{0, 0, 9}, {1, 0.1, 9}, {3, 0.4, 9}, {6, 0.2, 9}, {7, 0, 9}};
  const Points straight{{0, 0, 0}, {1, 1, 1}, {2, 2, 2}, {3, 3, 3}, {9, 9, 9}};
};

TEST_F(ChordSubdivisionTest, AnInfiniteToleranceCutsAtKnotsAlone) {
  const auto pieces = cut({bent}, std::numeric_limits<double>::infinity());
  EXPECT_THAT(pieces.parameters, ElementsAre(0, 1, 3));
  EXPECT_EQ(pieces.deviations.size(), 2U);
  EXPECT_EQ(pieces.largestDeviation(), std::max(pieces.deviations[0], pieces.deviations[1]));
}

TEST_F(ChordSubdivisionTest, StraightLinesAreCutAtKnotsAloneAndHaveNoDeviation) {
  const auto pieces = cut({straight}, 1e-9);
  EXPECT_THAT(pieces.parameters, ElementsAre(0, 1, 3));
  EXPECT_NEAR(pieces.largestDeviation(), 0.0, 1e-14);
}

TEST_F(ChordSubdivisionTest, DeviationsAreBoundsAndNotMuchMore) {
  for (const double tolerance : {1.0, 0.1, 0.001}) {
    const auto pieces = cut({bent}, tolerance);
    for (std::size_t i = 0; i < pieces.deviations.size(); ++i) {
      EXPECT_LE(pieces.deviations[i], tolerance);
      std::vector<double> weights;
      for (std::size_t k = 0; k < bent.size(); ++k) weights.push_back(weightOf(k));
      const auto at = [&](double share) {
        return SplineReference::curvePoint(
            3, numbers, bent, weights,
            (1 - share) * pieces.parameters[i] + share * pieces.parameters[i + 1]);
      };
      double farthest = 0.0;
      for (int k = 1; k < 50; ++k) {
        farthest =
            std::max(farthest, SplineReference::distanceFromSegment(at(k / 50.0), at(0), at(1)));
      }
      EXPECT_LE(farthest, pieces.deviations[i] * (1 + 1e-9));
      if (tolerance == 0.001) {
        EXPECT_GE(farthest, 0.7 * pieces.deviations[i]);
      }
    }
  }
}

TEST_F(ChordSubdivisionTest, CurvesAreCutTogetherAsTheMostBentOneAsks) {
  const auto alone = cut({bent}, 0.01);
  const auto together = cut({flatter, bent, straight}, 0.01);
  ASSERT_EQ(together.parameters.size(), alone.parameters.size());
  EXPECT_LT(cut({flatter}, 0.01).parameters.size(), alone.parameters.size());
}

TEST_F(ChordSubdivisionTest, TellsTheDeviationsOfPiecesThatAreCutAlready) {
  const auto pieces = cut({flatter, bent}, 0.01);
  const auto told =
      ChordSubdivision::deviationsOf(knots, {weighted(flatter), weighted(bent)}, pieces.parameters);
  ASSERT_EQ(told.size(), pieces.deviations.size());
  for (std::size_t i = 0; i < told.size(); ++i) EXPECT_NEAR(told[i], pieces.deviations[i], 1e-12);
}

TEST_F(ChordSubdivisionTest, MorePiecesThanAllowedAreNotMade) {
  const std::size_t count = cut({bent}, 0.01).deviations.size();
  EXPECT_EQ(cut({bent}, 0.01, count).deviations.size(), count);
  EXPECT_THAT(cut({bent}, 0.01, count - 1).parameters, IsEmpty());
}
