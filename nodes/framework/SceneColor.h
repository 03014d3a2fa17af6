#pragma once

#include <Inventor/SbColor.h>

#include "host/general/Colour.h"

/// Host colours as scene colours.
namespace SceneColor {

/// Each byte divided by 255 in double, then narrowed. The host's bytes stand in the
/// order blue, green, red.
inline SbColor from(const tarn::Colour& colour) {
  const std::uint8_t* bytes = colour.bytes();
  return SbColor(static_cast<float>(bytes[2] / 255.0), static_cast<float>(bytes[1] / 255.0),
                 static_cast<float>(bytes[0] / 255.0));
}

}  // namespace SceneColor
