#pragma once

#include <Inventor/SbColor.h>

#include "host/general/Colour.h"
#include "host/general/Preferences.h"
#include "host/general/VColor.h"

#include <array>
#include <cstdint>

/// Host colours as scene colours.
namespace SceneColor {

/// Red, green and blue of 0 to 1: each byte divided by 255. The host's bytes stand in the
/// order blue, green, red.
inline std::array<double, 3> componentsOf(const tarn::Colour& colour) {
  const std::uint8_t* bytes = colour.bytes();
  return {bytes[2] / 255.0, bytes[1] / 255.0, bytes[0] / 255.0};
}

/// The same as a scene colour, narrowed after the division.
inline SbColor from(const tarn::Colour& colour) {
  const auto [red, green, blue] = componentsOf(colour);
  return SbColor(static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue));
}

/// The same of a packed colour.
inline SbColor from(const tarn::VColor& colour) {
  return SbColor(static_cast<float>(colour.getRed() / 255.0),
                 static_cast<float>(colour.getGreen() / 255.0),
                 static_cast<float>(colour.getBlue() / 255.0));
}

/// The colour of a preference that holds a colour's index, in the section "Colors".
inline tarn::VColor indexed(const char* key, int defaultIndex) {
  return tarn::fIniToVColor(
      static_cast<unsigned int>(tarn::gPref->GetPreference(key, defaultIndex, "Colors")));
}

}  // namespace SceneColor
