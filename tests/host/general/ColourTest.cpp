#include "host/general/Colour.h"

#include "tests/support/TarnTest.h"

#include <cmath>
#include <limits>

using tarn::Colour;

namespace {
Colour hsl(double hue, double saturation, double lightness) {
  Colour colour;
  colour.SetAsHSL(hue, saturation, lightness);
  return colour;
}
}  // namespace

namespace tarn {
void PrintTo(const Colour& colour, std::ostream* out) {
  *out << int{colour.red()} << ", " << int{colour.green()} << ", " << int{colour.blue()};
}
}  // namespace tarn

class ColourTest : public TarnTest {};

TEST_F(ColourTest, StoresItsBytesInTheOrderBlueGreenRed) {
  const Colour colour(10, 20, 30);
  EXPECT_EQ(colour.bytes()[0], 30);
  EXPECT_EQ(colour.bytes()[1], 20);
  EXPECT_EQ(colour.bytes()[2], 10);
  EXPECT_EQ(colour.red(), 10);
  EXPECT_EQ(colour.green(), 20);
  EXPECT_EQ(colour.blue(), 30);
}

TEST_F(ColourTest, IsBlackWhenNew) { EXPECT_EQ(Colour(), Colour(0, 0, 0)); }

TEST_F(ColourTest, PrimaryAndSecondaryHuesAreExact) {
  EXPECT_EQ(hsl(0.0, 1.0, 0.5), Colour(255, 0, 0));
  EXPECT_EQ(hsl(1.0 / 6.0, 1.0, 0.5), Colour(255, 255, 0));
  EXPECT_EQ(hsl(1.0 / 3.0, 1.0, 0.5), Colour(0, 255, 0));
  EXPECT_EQ(hsl(0.5, 1.0, 0.5), Colour(0, 255, 255));
  EXPECT_EQ(hsl(2.0 / 3.0, 1.0, 0.5), Colour(0, 0, 255));
  EXPECT_EQ(hsl(5.0 / 6.0, 1.0, 0.5), Colour(255, 0, 255));
}

TEST_F(ColourTest, BetweenTheHuesOneComponentRunsLinearly) {
  EXPECT_EQ(hsl(1.0 / 12.0, 1.0, 0.5), Colour(255, 128, 0));
  EXPECT_EQ(hsl(0.25, 1.0, 0.5), Colour(128, 255, 0));
  EXPECT_EQ(hsl(7.0 / 12.0, 1.0, 0.5), Colour(0, 128, 255));
}

TEST_F(ColourTest, LightnessRunsFromBlackToWhite) {
  EXPECT_EQ(hsl(0.4, 1.0, 0.0), Colour(0, 0, 0));
  EXPECT_EQ(hsl(0.0, 1.0, 0.25), Colour(128, 0, 0));
  EXPECT_EQ(hsl(0.0, 1.0, 0.75), Colour(255, 128, 128));
  EXPECT_EQ(hsl(0.4, 1.0, 1.0), Colour(255, 255, 255));
}

TEST_F(ColourTest, WithoutSaturationEveryHueIsGrey) {
  for (const double hue : {0.0, 0.3, 0.9}) EXPECT_EQ(hsl(hue, 0.0, 0.5), Colour(128, 128, 128));
}

TEST_F(ColourTest, TheHueWraps) {
  EXPECT_EQ(hsl(1.0, 1.0, 0.5), Colour(255, 0, 0));
  EXPECT_EQ(hsl(1.25, 0.8, 0.4), hsl(0.25, 0.8, 0.4));
  EXPECT_EQ(hsl(-0.25, 0.8, 0.4), hsl(0.75, 0.8, 0.4));
  EXPECT_EQ(hsl(-3.0, 1.0, 0.5), Colour(255, 0, 0));
  EXPECT_EQ(hsl(1e17, 1.0, 0.5), Colour(255, 0, 0)) << "a whole number of turns";
  EXPECT_EQ(hsl(-1e-18, 1.0, 0.5), Colour(255, 0, 0)) << "wraps to exactly 1";
}

TEST_F(ColourTest, ANonFiniteHueIsZero) {
  for (const double hue :
       {std::numeric_limits<double>::quiet_NaN(), std::numeric_limits<double>::infinity(),
        -std::numeric_limits<double>::infinity()}) {
    EXPECT_EQ(hsl(hue, 1.0, 0.5), Colour(255, 0, 0));
  }
}

TEST_F(ColourTest, SaturationAndLightnessAreClamped) {
  EXPECT_EQ(hsl(0.0, 7.0, 0.5), Colour(255, 0, 0));
  EXPECT_EQ(hsl(0.0, -1.0, 0.5), Colour(128, 128, 128));
  EXPECT_EQ(hsl(0.0, 1.0, 2.0), Colour(255, 255, 255));
  EXPECT_EQ(hsl(0.0, 1.0, -1.0), Colour(0, 0, 0));
  const double nan = std::numeric_limits<double>::quiet_NaN();
  EXPECT_EQ(hsl(0.0, nan, 0.5), Colour(128, 128, 128));
  EXPECT_EQ(hsl(0.0, 1.0, nan), Colour(0, 0, 0));
}

TEST_F(ColourTest, AgreesWithTheTextbookOverTheWholeRange) {
  // Chroma form (Smith's hexcone): independent of the trapezoids of the class.
  for (int i = 0; i <= 360; ++i) {
    for (int j = 0; j <= 8; ++j) {
      for (int k = 0; k <= 8; ++k) {
        const double s = j / 8.0;
        const double l = k / 8.0;
        const double chroma = (1.0 - std::abs(2.0 * l - 1.0)) * s;
        const double sector = i / 60.0;
        const double x = chroma * (1.0 - std::abs(std::fmod(sector, 2.0) - 1.0));
        const double table[6][3] = {{chroma, x, 0}, {x, chroma, 0}, {0, chroma, x},
                                    {0, x, chroma}, {x, 0, chroma}, {chroma, 0, x}};
        const double* rgb = table[i / 60 % 6];
        const double low = l - chroma / 2.0;
        const Colour found = hsl(i / 360.0, s, l);
        EXPECT_NEAR(found.red(), 255.0 * (rgb[0] + low), 0.5 + 1e-9);
        EXPECT_NEAR(found.green(), 255.0 * (rgb[1] + low), 0.5 + 1e-9);
        EXPECT_NEAR(found.blue(), 255.0 * (rgb[2] + low), 0.5 + 1e-9);
      }
    }
  }
}
