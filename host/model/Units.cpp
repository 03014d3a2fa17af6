#include "host/model/Units.h"

#include <array>
#include <cmath>
#include <utility>

namespace tarn {

VClass UnitsCls("Units", &VObjectCls, []() -> VObject* { return new Units; });

namespace {
constexpr std::array<std::pair<std::string_view, double>, 7> known = {{{"mm", 0.001},
                                                                       {"cm", 0.01},
                                                                       {"m", 1.0},
                                                                       {"km", 1000.0},
                                                                       {"in", 0.0254},
                                                                       {"ft", 0.3048},
                                                                       {"yd", 0.9144}}};
}  // namespace

void Units::UnitsToMeters(Point3DDouble& point) const {
  point = {UnitsToMeters(point.x), UnitsToMeters(point.y), UnitsToMeters(point.z)};
}

void Units::MetersToUnits(Point3DDouble& point) const {
  point = {MetersToUnits(point.x), MetersToUnits(point.y), MetersToUnits(point.z)};
}

int Units::SetUnit(std::string_view name) {
  for (const auto& [knownName, metersPerUnit] : known) {
    if (name == knownName) return SetUnit(name, metersPerUnit);
  }
  return 0;
}

int Units::SetUnit(std::string_view name, double metersPerUnit) {
  if (!std::isfinite(metersPerUnit) || metersPerUnit <= 0.0) return 0;
  _name = name;
  _metersPerUnit = metersPerUnit;
  return 1;
}

}  // namespace tarn
