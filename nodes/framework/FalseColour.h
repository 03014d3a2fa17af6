#pragma once

#include <Inventor/SbColor.h>

#include "nodes/TarnOIExport.h"

/// The colours of the false-colour ramp: hues from one end to the other, all of the same
/// saturation and lightness.
struct TARNOI_EXPORT FalseColour {
  double startHue = 0.0;
  double endHue = 0.8;
  double saturation = 0.5;
  double lightness = 0.5;

  /// Reads the preferences "StartHue" (0.0) and "EndHue" (0.8) of the section "FalseColor", "S"
  /// and "L" (0.5 each) of "DenseStereo".
  static FalseColour fromPreferences();

  /// The ramp's colour of a hue, by tarn::Colour::SetAsHSL, which wraps it. The bytes of the
  /// host's colour are taken in the order they are stored in, so that red and blue are
  /// exchanged: hosts rely on this look of the ramp and of its legend.
  SbColor at(double hue) const;
};
