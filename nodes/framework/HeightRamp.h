#pragma once

#include <Inventor/SbColor.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/FalseColour.h"
#include "nodes/framework/HeightRampTable.h"

/// Heights as false colours: the ramp's first hue at the lowest, its last at the highest. The
/// hue is not limited: heights outside go on along the hues, which wrap. Where the lowest is
/// the highest, no hue is finite, and SetAsHSL takes it as 0.
class TARNOI_EXPORT HeightRamp {
public:
  HeightRamp(const FalseColour& colours, double lowest, double highest)
      : colours(colours), lowestHeight(lowest), highestHeight(highest) {}

  const FalseColour& falseColour() const { return colours; }
  double lowest() const { return lowestHeight; }
  double highest() const { return highestHeight; }

  /// The colour of a height.
  SbColor at(double height) const {
    return colours.at(colours.startHue + (colours.endHue - colours.startHue) *
                                             (height - lowestHeight) /
                                             (highestHeight - lowestHeight));
  }

  /// Writes the colours of the heights that `heightOf(i)` gives, i from 0 to count - 1: the
  /// same colours as `at` gives, to the last bit, but many times as fast. Heights may be float
  /// or double.
  template <typename HeightOf>
  void paint(SbColor* painted, int count, HeightOf heightOf) const {
    using Height = decltype(heightOf(0));
    constexpr int worthATable = 10000;
    const HeightRampTable table =
        count < worthATable ? HeightRampTable() : HeightRampTable::of<Height>(*this);
    // In a cloud that is flat every height is the one asked before.
    Height asked = Height();
    SbColor answer = at(static_cast<double>(asked));
    for (int i = 0; i < count; ++i) {
      const Height height = heightOf(i);
      if (const SbColor* known = table.find(static_cast<double>(height))) {
        painted[i] = *known;
        continue;
      }
      if (height != asked) {
        asked = height;
        answer = at(static_cast<double>(asked));
      }
      painted[i] = answer;
    }
  }

private:
  FalseColour colours;
  double lowestHeight;
  double highestHeight;
};
