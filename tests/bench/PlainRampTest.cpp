#include "bench/PlainRamp.h"

#include <gtest/gtest.h>

#include "host/general/Colour.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace {

// The bytes red, green, blue of the plain ramp and of the host's routine.
void expectTheRoutinesBytes(const std::vector<float>& heights, float lowest, float highest) {
  std::vector<std::array<float, 3>> points;
  for (const float height : heights) points.push_back({0, 0, height});
  std::vector<float*> rows;
  for (auto& point : points) rows.push_back(point.data());
  bench::PlainRamp ramp(static_cast<double>(lowest), static_cast<double>(highest));
  for (std::size_t first = 0; first < rows.size(); first += bench::PlainRamp::strip) {
    const std::size_t length = std::min<std::size_t>(bench::PlainRamp::strip, rows.size() - first);
    ramp.next(&rows[first], static_cast<int>(length));
    for (std::size_t i = 0; i < length; ++i) {
      tarn::Colour colour;
      colour.SetAsHSL(ramp.hueAt(heights[first + i]), 0.5, 0.5);
      const std::array<int, 3> routine{colour.bytes()[2], colour.bytes()[1], colour.bytes()[0]};
      const std::array<int, 3> plain{ramp.red[i], ramp.green[i], ramp.blue[i]};
      ASSERT_EQ(plain, routine) << "at height " << heights[first + i];
    }
  }
}

}  // namespace

TEST(PlainRampTest, HasTheBytesOfTheRoutineAtAMillionHeights) {
  std::vector<float> heights;
  for (int i = 0; i <= 1000000; ++i) heights.push_back(static_cast<float>(i) / 1e6F);
  expectTheRoutinesBytes(heights, 0, 1);
}

TEST(PlainRampTest, HasThemOnBothSidesOfEveryStep) {
  std::vector<float> heights;
  for (int i = 0; i <= 4096; ++i) {
    // About a sector's end, and everywhere a component may step.
    float height = 100.0F + static_cast<float>(i) / 4096.0F;
    for (int k = 0; k < 3; ++k) height = std::nextafter(height, 0.0F);
    for (int k = 0; k < 7 && height <= 101.0F; ++k) {
      heights.push_back(std::max(height, 100.0F));
      height = std::nextafter(height, 200.0F);
    }
  }
  expectTheRoutinesBytes(heights, 100, 101);
}

TEST(PlainRampTest, BeginsAtRedAndEndsBeforeViolet) {
  std::array<float, 3> low{0, 0, 2};
  std::array<float, 3> high{0, 0, 4};
  std::array<float*, 2> rows{low.data(), high.data()};
  bench::PlainRamp ramp(2, 4);
  ramp.next(rows.data(), 2);
  EXPECT_DOUBLE_EQ(ramp.hueAt(2), 0.0);
  EXPECT_DOUBLE_EQ(ramp.hueAt(4), 0.8);
  EXPECT_EQ((std::array{ramp.red[0], ramp.green[0], ramp.blue[0]}), (std::array{191, 64, 64}));
  EXPECT_EQ((std::array{ramp.red[1], ramp.green[1], ramp.blue[1]}), (std::array{166, 64, 191}));
}

TEST(PlainRampTest, TakesPointsOneAfterTheOtherToo) {
  const std::array<float, 6> points{9, 9, 2, 9, 9, 4};
  bench::PlainRamp ramp(2, 4);
  ramp.next(points.data(), 2);
  EXPECT_EQ((std::array{ramp.red[0], ramp.red[1]}), (std::array{191, 166}));
}
