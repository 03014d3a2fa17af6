#pragma once

#include "host/TarnOIHostExport.h"
#include "host/general/Point3DDouble.h"

namespace tarn {

/// An axis-parallel box of the model; without points it is empty.
class TARN_HOST_EXPORT Extents {
public:
  Extents() = default;
  /// The box that holds both points.
  Extents(const Point3DDouble& first, const Point3DDouble& second);

  /// Grows the box to hold the point. A point with a non-finite coordinate is ignored.
  void Add(const Point3DDouble& point);

  /// The lower and upper corners. Returns 0, and changes nothing, when the box is empty.
  int GetExtents(Point3DDouble& minimum, Point3DDouble& maximum) const;

  int IsEmpty() const { return _empty; }
  /// The middle of the box; the origin when it is empty.
  Point3DDouble GetCentre() const;
  /// The longest of the three sides; 0 when the box is empty.
  double GetLongestSide() const;

private:
  int _empty = 1;
  Point3DDouble _minimum;
  Point3DDouble _maximum;
};

}  // namespace tarn
