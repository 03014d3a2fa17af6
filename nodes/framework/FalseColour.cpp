#include "nodes/framework/FalseColour.h"

#include "host/general/Colour.h"
#include "host/general/Preferences.h"

FalseColour FalseColour::fromPreferences() {
  const tarn::Preferences& preferences = *tarn::gPref;
  FalseColour result;
  result.startHue = preferences.GetPreference("StartHue", 0.0, "FalseColor");
  result.endHue = preferences.GetPreference("EndHue", 0.8, "FalseColor");
  result.saturation = preferences.GetPreference("S", 0.5, "DenseStereo");
  result.lightness = preferences.GetPreference("L", 0.5, "DenseStereo");
  return result;
}

SbColor FalseColour::at(double hue) const {
  tarn::Colour colour;
  colour.SetAsHSL(hue, saturation, lightness);
  const auto component = [&colour](int i) { return static_cast<float>(colour.bytes()[i] / 255.0); };
  return SbColor(component(0), component(1), component(2));
}
