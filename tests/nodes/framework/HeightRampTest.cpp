#include "nodes/framework/HeightRamp.h"

#include "host/general/Colour.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double notANumber = std::numeric_limits<double>::quiet_NaN();

// The colour of one height as the text of the ramp says it, by the host's routine alone.
SbColor expected(const FalseColour& colours, double lowest, double highest, double height) {
  const double hue = colours.startHue +
                     (colours.endHue - colours.startHue) * (height - lowest) / (highest - lowest);
  tarn::Colour host;
  host.SetAsHSL(hue, colours.saturation, colours.lightness);
  return SbColor(static_cast<float>(host.bytes()[0] / 255.0),
                 static_cast<float>(host.bytes()[1] / 255.0),
                 static_cast<float>(host.bytes()[2] / 255.0));
}

template <typename Height>
std::vector<SbColor> painted(const HeightRamp& ramp, const std::vector<Height>& heights) {
  std::vector<SbColor> result(heights.size());
  ramp.paint(result.data(), static_cast<int>(heights.size()),
             [&heights](int i) { return heights[static_cast<std::size_t>(i)]; });
  return result;
}

}  // namespace

class HeightRampTest : public TarnTest {
protected:
  /// Paints many heights in and around the range, all steps of it among them, and compares
  /// each with the host's routine.
  template <typename Height>
  static void expectTheRoutinesColours(const FalseColour& colours, double lowest, double highest) {
    std::mt19937 random(7);
    std::uniform_real_distribution<double> places(-0.1, 1.1);
    std::vector<Height> heights{static_cast<Height>(lowest), static_cast<Height>(highest),
                                static_cast<Height>(infinity), static_cast<Height>(-infinity),
                                static_cast<Height>(notANumber)};
    while (heights.size() < 20000) {
      heights.push_back(static_cast<Height>(lowest + places(random) * (highest - lowest)));
    }
    addBothSidesOfSteps(colours, lowest, highest, heights);
    const std::vector<SbColor> result = painted(HeightRamp(colours, lowest, highest), heights);
    int wrong = 0;
    for (std::size_t i = 0; i < heights.size(); ++i) {
      const auto height = static_cast<double>(heights[i]);
      if (result[i] == expected(colours, lowest, highest, height)) continue;
      if (++wrong < 4) ADD_FAILURE() << "height " << height << " of " << lowest << ".." << highest;
    }
    EXPECT_EQ(wrong, 0);
  }

private:
  // Neighbouring heights between which the colour changes.
  template <typename Height>
  static void addBothSidesOfSteps(const FalseColour& colours, double lowest, double highest,
                                  std::vector<Height>& heights) {
    const auto colourAt = [&](Height height) {
      return expected(colours, lowest, highest, static_cast<double>(height));
    };
    constexpr int parts = 3000;
    for (int i = 0; i < parts; ++i) {
      auto low = static_cast<Height>(lowest + (highest - lowest) * i / parts);
      auto high = static_cast<Height>(lowest + (highest - lowest) * (i + 1) / parts);
      const SbColor first = colourAt(low);
      if (first == colourAt(high)) continue;
      for (Height middle = low + (high - low) / 2; low < middle && middle < high;
           middle = low + (high - low) / 2) {
        (colourAt(middle) == first ? low : high) = middle;
      }
      heights.push_back(low);
      heights.push_back(high);
    }
  }
};

TEST_F(HeightRampTest, TheLowestHeightHasTheFirstHueAndTheHighestTheLast) {
  const FalseColour colours;
  const HeightRamp ramp(colours, 100.0, 300.0);
  EXPECT_EQ(ramp.at(100.0), colours.at(0.0));
  EXPECT_EQ(ramp.at(200.0), colours.at(0.4));
  EXPECT_EQ(ramp.at(300.0), colours.at(0.8));
}

TEST_F(HeightRampTest, HeightsOutsideGoOnAlongTheHues) {
  const FalseColour colours{.startHue = 0.25, .endHue = 0.5};
  const HeightRamp ramp(colours, 0.0, 1.0);
  EXPECT_EQ(ramp.at(3.0), colours.at(1.0));
  EXPECT_EQ(ramp.at(-2.0), colours.at(-0.25));
  EXPECT_NE(ramp.at(3.0), ramp.at(1.0));
}

TEST_F(HeightRampTest, WithoutARangeEveryHeightHasTheHueOfZero) {
  const FalseColour colours{.startHue = 0.25, .endHue = 0.5};
  const HeightRamp ramp(colours, 4.0, 4.0);
  EXPECT_EQ(ramp.at(4.0), colours.at(0.0));
  EXPECT_EQ(ramp.at(5.0), colours.at(0.0));
  const std::vector<float> heights(20000, 4.0F);
  EXPECT_THAT(painted(ramp, heights), ::testing::Each(colours.at(0.0)));
}

TEST_F(HeightRampTest, AFewHeightsArePaintedToo) {
  const FalseColour colours;
  const HeightRamp ramp(colours, 1.0, 2.0);
  EXPECT_THAT(painted(ramp, std::vector<float>{1.0F, 2.0F, 1.5F}),
              ::testing::ElementsAre(colours.at(0.0), colours.at(0.8), colours.at(0.4)));
  EXPECT_THAT(painted(ramp, std::vector<float>{}), ::testing::IsEmpty());
}

TEST_F(HeightRampTest, FloatHeightsHaveExactlyTheRoutinesColours) {
  expectTheRoutinesColours<float>(FalseColour(), 0.0, 1.0);
  expectTheRoutinesColours<float>(FalseColour(), -37.25, 118.125);
}

TEST_F(HeightRampTest, DoubleHeightsHaveExactlyTheRoutinesColours) {
  expectTheRoutinesColours<double>(FalseColour(), 0.0, 1.0);
  expectTheRoutinesColours<double>(FalseColour(), -37.25, 118.125);
}

TEST_F(HeightRampTest, ARangeFarFromZeroHasExactlyTheRoutinesColours) {
  // Floats lie 1/16 apart there, wider than the steps of the ramp.
  expectTheRoutinesColours<float>(FalseColour(), 1000000.0, 1000016.0);
  expectTheRoutinesColours<double>(FalseColour(), 1e9, 1e9 + 1e-3);
}

TEST_F(HeightRampTest, AVeryNarrowRangeHasExactlyTheRoutinesColours) {
  expectTheRoutinesColours<float>(FalseColour(), 0.0, 1e-40);
  expectTheRoutinesColours<double>(FalseColour(), 0.0, 1e-308);
  expectTheRoutinesColours<double>(FalseColour(), 0.0, 5e-324);
}

TEST_F(HeightRampTest, AVeryWideRangeHasExactlyTheRoutinesColours) {
  expectTheRoutinesColours<float>(FalseColour(), -1e38, 1e38);
  expectTheRoutinesColours<double>(FalseColour(), -1e308, 1e308);
}

TEST_F(HeightRampTest, ManyTurnsOfHueHaveExactlyTheRoutinesColours) {
  expectTheRoutinesColours<float>({.startHue = -3.0, .endHue = 4.5}, 10.0, 20.0);
  expectTheRoutinesColours<float>({.startHue = 0.0, .endHue = 1e6}, 10.0, 20.0);
  expectTheRoutinesColours<float>({.startHue = 0.0, .endHue = infinity}, 10.0, 20.0);
}

TEST_F(HeightRampTest, AFallingAndAConstantHueHaveExactlyTheRoutinesColours) {
  expectTheRoutinesColours<float>({.startHue = 0.7, .endHue = 0.1}, 10.0, 20.0);
  expectTheRoutinesColours<float>({.startHue = 0.3, .endHue = 0.3}, 10.0, 20.0);
}

TEST_F(HeightRampTest, AnySaturationAndLightnessHasExactlyTheRoutinesColours) {
  for (const double saturation : {0.0, 0.2, 0.8, 1.0, 2.0, notANumber}) {
    for (const double lightness : {0.0, 0.3, 0.5, 0.75, 1.0}) {
      SCOPED_TRACE(testing::Message() << saturation << " " << lightness);
      expectTheRoutinesColours<float>({.saturation = saturation, .lightness = lightness}, 3.0, 7.0);
    }
  }
}

TEST_F(HeightRampTest, ATableKnowsNearlyAllHeightsOfTheRange) {
  for (const double saturation : {0.5, 0.8, 1.0}) {
    const HeightRamp ramp({.saturation = saturation}, 3.0, 7.0);
    const auto table = HeightRampTable::of<float>(ramp);
    int unknown = 0;
    for (int i = 0; i <= 10000; ++i)
      unknown += !table.find(static_cast<float>(3.0 + 4.0 * i / 10000.0));
    EXPECT_LT(unknown, 100) << saturation;
    EXPECT_FALSE(table.find(2.99F));
    EXPECT_FALSE(table.find(7.01F));
    EXPECT_FALSE(table.find(notANumber));
  }
}

TEST_F(HeightRampTest, AnEmptyTableKnowsNothing) {
  EXPECT_FALSE(HeightRampTable().find(0.0));
  EXPECT_FALSE(HeightRampTable::of<float>(HeightRamp(FalseColour(), 4.0, 4.0)).find(4.0));
  EXPECT_FALSE(HeightRampTable::of<float>(HeightRamp(FalseColour(), notANumber, 4.0)).find(4.0));
}
