#include "nodes/framework/FalseColour.h"

#include "host/general/Colour.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;

class FalseColourTest : public TarnTest {};

TEST_F(FalseColourTest, AsksThePreferencesForHuesSaturationAndLightness) {
  const FalseColour colour = FalseColour::fromPreferences();
  EXPECT_EQ(colour.startHue, 0.0);
  EXPECT_EQ(colour.endHue, 0.8);
  EXPECT_EQ(colour.saturation, 0.5);
  EXPECT_EQ(colour.lightness, 0.5);
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(PreferenceRead{PreferenceRead::eDouble, "StartHue", "0", "FalseColor"},
                          PreferenceRead{PreferenceRead::eDouble, "EndHue", "0.80000000000000004",
                                         "FalseColor"},
                          PreferenceRead{PreferenceRead::eDouble, "S", "0.5", "DenseStereo"},
                          PreferenceRead{PreferenceRead::eDouble, "L", "0.5", "DenseStereo"}));
}

TEST_F(FalseColourTest, TakesWhatThePreferencesSay) {
  preferences.Set("StartHue", "0.25", "FalseColor");
  preferences.Set("EndHue", "0.375", "FalseColor");
  preferences.Set("S", "0.75", "DenseStereo");
  preferences.Set("L", "0.625", "DenseStereo");
  const FalseColour colour = FalseColour::fromPreferences();
  EXPECT_EQ(colour.startHue, 0.25);
  EXPECT_EQ(colour.endHue, 0.375);
  EXPECT_EQ(colour.saturation, 0.75);
  EXPECT_EQ(colour.lightness, 0.625);
}

TEST_F(FalseColourTest, RedAndBlueAreExchanged) {
  const FalseColour full{.saturation = 1.0, .lightness = 0.5};
  EXPECT_EQ(full.at(0.0), SbColor(0.0F, 0.0F, 1.0F)) << "the hue of red";
  EXPECT_EQ(full.at(1.0 / 3.0), SbColor(0.0F, 1.0F, 0.0F));
  EXPECT_EQ(full.at(2.0 / 3.0), SbColor(1.0F, 0.0F, 0.0F)) << "the hue of blue";
}

TEST_F(FalseColourTest, ComponentsAreTheHostColoursBytesDividedBy255) {
  const FalseColour colour{.saturation = 0.5, .lightness = 0.5};
  tarn::Colour host;
  host.SetAsHSL(0.1, 0.5, 0.5);
  EXPECT_EQ(colour.at(0.1), SbColor(static_cast<float>(host.blue() / 255.0),
                                    static_cast<float>(host.green() / 255.0),
                                    static_cast<float>(host.red() / 255.0)));
}
