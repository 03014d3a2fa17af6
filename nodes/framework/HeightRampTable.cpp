#include "nodes/framework/HeightRampTable.h"

#include "nodes/framework/HeightRamp.h"

#include <algorithm>
#include <limits>

namespace {

// In one turn of hue a component rises by 255 bytes in a sixth at most: with this many cells a
// turn, each component has less than one step in a cell.
constexpr double cellsPerTurn = 2048.0;
constexpr double mostTurns = 16.0;

// The first height above `low` whose colour is not that of `low`; `high` has another colour.
template <typename Height>
Height firstOfNextColour(const HeightRamp& ramp, const SbColor& colour, Height low, Height high) {
  for (;;) {
    const Height middle = low + (high - low) / 2;
    if (!(low < middle && middle < high)) return high;
    (ramp.at(static_cast<double>(middle)) == colour ? low : high) = middle;
  }
}

}  // namespace

template <typename Height>
HeightRampTable HeightRampTable::of(const HeightRamp& ramp) {
  HeightRampTable table;
  const double range = ramp.highest() - ramp.lowest();
  const double turns = std::abs(ramp.falseColour().endHue - ramp.falseColour().startHue);
  const double count = cellsPerTurn * std::max(std::ceil(turns), 1.0);
  const double cellsPerUnit = count / range;
  if (!(cellsPerUnit > 0.0 && std::isfinite(cellsPerUnit) && turns <= mostTurns)) return table;
  table.lowest = ramp.lowest();
  table.cellsPerUnit = cellsPerUnit;

  // The last cell begins at the highest height. Each is taken a little wider than it is, for
  // the place of a height is rounded.
  constexpr double margin = 1e-3;
  const auto heightAt = [&table](double place) {
    return static_cast<Height>(table.lowest + place / table.cellsPerUnit);
  };
  table.cellCount = count + 1.0;
  table.cells.reserve(static_cast<std::size_t>(table.cellCount));
  for (double place = 0.0; place < table.cellCount; place += 1.0) {
    const Height low = heightAt(place - margin);
    const Height high = heightAt(place + 1.0 + margin);
    const SbColor first = ramp.at(static_cast<double>(low));
    const SbColor second = ramp.at(static_cast<double>(high));
    double step = std::numeric_limits<double>::infinity();
    if (first != second) {
      step = static_cast<double>(firstOfNextColour(ramp, first, low, high));
      if (ramp.at(step) != second) step = std::numeric_limits<double>::quiet_NaN();
    }
    table.cells.push_back({step, {first, second}});
  }
  return table;
}

template HeightRampTable HeightRampTable::of<float>(const HeightRamp& ramp);
template HeightRampTable HeightRampTable::of<double>(const HeightRamp& ramp);
