#include "host/model/HeightLevels.h"

#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>

using ::testing::DoubleEq;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace HeightLevels = tarn::HeightLevels;

class HeightLevelsTest : public TarnTest {
protected:
  static constexpr double infinity = std::numeric_limits<double>::infinity();
  static constexpr double nan = std::numeric_limits<double>::quiet_NaN();
};

TEST_F(HeightLevelsTest, ASpacingGivesItsMultiplesEndsIncluded) {
  EXPECT_THAT(HeightLevels::bySpacing(10.0, 20.0, 5.0), ElementsAre(10.0, 15.0, 20.0));
  EXPECT_THAT(HeightLevels::bySpacing(9.9, 19.9, 5.0), ElementsAre(10.0, 15.0));
  EXPECT_THAT(HeightLevels::bySpacing(-4.0, 4.0, 2.5), ElementsAre(-2.5, 0.0, 2.5));
  EXPECT_THAT(HeightLevels::bySpacing(1.1, 1.9, 1.0), IsEmpty());
  EXPECT_THAT(HeightLevels::bySpacing(3.0, 3.0, 1.0), ElementsAre(3.0));
}

TEST_F(HeightLevelsTest, ZeroHasNoSign) {
  EXPECT_FALSE(std::signbit(HeightLevels::bySpacing(-0.5, 0.5, 1.0)[0]));
}

TEST_F(HeightLevelsTest, RoundingOfASpacingDoesNotAddUp) {
  const auto levels = HeightLevels::bySpacing(0.0, 9999.95, 0.1);
  ASSERT_EQ(levels.size(), 100'000U);
  EXPECT_EQ(levels[77777], 77777 * 0.1);
}

TEST_F(HeightLevelsTest, ASpacingThatIsNoneOrTooSmallGivesNoLevels) {
  for (const double spacing : {0.0, -1.0, nan, infinity, 1e-9, 1e-320}) {
    EXPECT_THAT(HeightLevels::bySpacing(0.0, 100.0, spacing), IsEmpty()) << spacing;
  }
  EXPECT_THAT(HeightLevels::bySpacing(0.0, 100'000.0, 1.0), IsEmpty()) << "one too many";
  EXPECT_EQ(HeightLevels::bySpacing(0.0, 99'999.0, 1.0).size(), 100'000U);
}

TEST_F(HeightLevelsTest, ASpacingTooSmallForTheHeightGivesNoLevels) {
  EXPECT_THAT(HeightLevels::bySpacing(5e6, 5e6, 1e-10), IsEmpty());
  EXPECT_THAT(HeightLevels::bySpacing(-5e6, -5e6, 1e-10), IsEmpty());
  EXPECT_THAT(HeightLevels::bySpacing(1e300, 1e300, 1.0), IsEmpty());
  EXPECT_THAT(HeightLevels::bySpacing(5e6, 5e6 + 0.002, 0.001),
              ElementsAre(5e6, 5e6 + 0.001, 5e6 + 0.002));
}

TEST_F(HeightLevelsTest, ARangeThatIsNoneGivesNoLevels) {
  EXPECT_THAT(HeightLevels::bySpacing(20.0, 10.0, 1.0), IsEmpty());
  EXPECT_THAT(HeightLevels::bySpacing(nan, 10.0, 1.0), IsEmpty());
  EXPECT_THAT(HeightLevels::bySpacing(0.0, infinity, 1.0), IsEmpty());
  EXPECT_THAT(HeightLevels::byCount(10.0, 10.0, 3), IsEmpty());
  EXPECT_THAT(HeightLevels::byCount(20.0, 10.0, 3), IsEmpty());
  EXPECT_THAT(HeightLevels::byCount(0.0, nan, 3), IsEmpty());
  EXPECT_THAT(HeightLevels::byCount(0.0, infinity, 3), IsEmpty());
}

TEST_F(HeightLevelsTest, ACountDividesTheRangeIntoEqualParts) {
  EXPECT_THAT(HeightLevels::byCount(10.0, 14.0, 3),
              ElementsAre(DoubleEq(11.0), DoubleEq(12.0), DoubleEq(13.0)));
  EXPECT_THAT(HeightLevels::byCount(-1.0, 1.0, 1), ElementsAre(0.0));
}

TEST_F(HeightLevelsTest, ACountOutOfRangeGivesNoLevels) {
  for (const int count : {0, -1, 100'001}) {
    EXPECT_THAT(HeightLevels::byCount(0.0, 1.0, count), IsEmpty()) << count;
  }
}
