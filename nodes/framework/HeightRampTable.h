#pragma once

#include <Inventor/SbColor.h>

#include "nodes/TarnOIExport.h"

#include <cmath>
#include <cstddef>
#include <vector>

class HeightRamp;

/// A ramp's colours, found out beforehand. Colours have bytes, so that a ramp is a staircase of
/// some hundreds of steps. The table cuts the range of heights into cells so narrow that a cell
/// has one step at most, and holds the colours on both sides of the step and the very height
/// where it is, found by bisecting the ramp.
class TARNOI_EXPORT HeightRampTable {
public:
  /// Knows no colour.
  HeightRampTable() = default;

  /// The table of a ramp for heights of type float or double. Knows no colour where the ramp
  /// has no range of heights, or so many turns of hue that cells would hold more than a step.
  template <typename Height>
  static HeightRampTable of(const HeightRamp& ramp);

  /// The ramp's colour at a height, which has to be a value of the table's type. Null where the
  /// table does not know: outside the range, and in the few cells where one component's last
  /// step lies beside another's first.
  const SbColor* find(double height) const {
    const double place = (height - lowest) * cellsPerUnit;
    if (!(place >= 0.0 && place < cellCount)) return nullptr;
    const Cell& cell = cells[static_cast<std::size_t>(place)];
    if (std::isnan(cell.step)) return nullptr;
    // An index and not a branch: which side it is cannot be guessed.
    return cell.colours + static_cast<std::ptrdiff_t>(height >= cell.step);
  }

private:
  struct Cell {
    double step;  ///< the first height of the second colour; NaN where the table does not know
    SbColor colours[2];
  };

  double lowest = 0.0;
  double cellsPerUnit = 0.0;
  double cellCount = 0.0;
  std::vector<Cell> cells;
};

extern template TARNOI_EXPORT HeightRampTable HeightRampTable::of<float>(const HeightRamp& ramp);
extern template TARNOI_EXPORT HeightRampTable HeightRampTable::of<double>(const HeightRamp& ramp);
