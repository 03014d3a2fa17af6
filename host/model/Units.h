#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VString.h"
#include "host/general/Point3DDouble.h"

#include <string_view>

namespace tarn {

extern TARN_HOST_EXPORT VClass UnitsCls;

/// The unit in which a project's lengths are told to its user. The model itself counts in
/// metres; where it has another unit, or none, metres stand for it and nothing is converted.
class TARN_HOST_EXPORT Units : public VObject {
public:
  /// Metres.
  Units() = default;

  /// The unit's short name: "m".
  virtual const VString& GetName() const { return _name; }

  /// A length in this unit in metres, and the other way round.
  virtual double UnitsToMeters(double length) const { return length * _metersPerUnit; }
  virtual double MetersToUnits(double length) const { return length / _metersPerUnit; }
  /// The same for the coordinates of a point, in place.
  void UnitsToMeters(Point3DDouble& point) const;
  void MetersToUnits(Point3DDouble& point) const;

  /// Sets one of the known units: mm, cm, m, km, in, ft (international, 0.3048 m), yd.
  /// Returns 0, and changes nothing, when the name is none of them.
  int SetUnit(std::string_view name);
  /// Sets a unit of that length. Returns 0, and changes nothing, unless that is positive and
  /// finite.
  int SetUnit(std::string_view name, double metersPerUnit);

  VClass* iam() const override { return &UnitsCls; }

private:
  VString _name = "m";
  double _metersPerUnit = 1.0;
};

}  // namespace tarn
