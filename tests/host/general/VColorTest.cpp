#include "host/general/VColor.h"

#include "tests/support/TarnTest.h"

using tarn::fIniToVColor;
using tarn::VColor;

class VColorTest : public TarnTest {
protected:
  static void expectComponents(const VColor& colour, int red, int green, int blue) {
    EXPECT_EQ(colour.getRed(), red);
    EXPECT_EQ(colour.getGreen(), green);
    EXPECT_EQ(colour.getBlue(), blue);
  }
};

TEST_F(VColorTest, IsPackedWithRedInTheLowestByte) {
  EXPECT_EQ(VColor(0x11, 0x22, 0x33).packed(), 0x332211U);
  expectComponents(VColor(0x332211U), 0x11, 0x22, 0x33);
}

TEST_F(VColorTest, IsBlackWhenNew) { expectComponents(VColor(), 0, 0, 0); }

TEST_F(VColorTest, TheDefaultsOfThePreferencesAreGreys) {
  expectComponents(fIniToVColor(7), 192, 192, 192);
  expectComponents(fIniToVColor(8), 128, 128, 128);
}

TEST_F(VColorTest, SmallIndexesNameThePalette) {
  expectComponents(fIniToVColor(0), 0, 0, 0);
  expectComponents(fIniToVColor(1), 128, 0, 0);
  expectComponents(fIniToVColor(6), 0, 128, 128);
  expectComponents(fIniToVColor(9), 255, 0, 0);
  expectComponents(fIniToVColor(12), 0, 0, 255);
  expectComponents(fIniToVColor(15), 255, 255, 255);
}

TEST_F(VColorTest, TheDigitsOfLargerValuesAreRedGreenBlue) {
  expectComponents(fIniToVColor(16), 0, 0, 16);
  expectComponents(fIniToVColor(44043255), 44, 43, 255);
  expectComponents(fIniToVColor(255000128), 255, 0, 128);
}

TEST_F(VColorTest, AComponentAbove255CountsAs255) {
  expectComponents(fIniToVColor(999300256), 255, 255, 255);
  expectComponents(fIniToVColor(4294967295U), 255, 255, 255);
}
