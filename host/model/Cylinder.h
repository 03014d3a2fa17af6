#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/general/Point3DDouble.h"

#include <array>

namespace tarn {

extern TARN_HOST_EXPORT VClass CylinderCls;

/// A measured cylinder: its axis between two end points, and its radius.
class TARN_HOST_EXPORT Cylinder : public VObject {
public:
  /// Both ends of the axis, in model coordinates.
  virtual void GetEndPoints(Point3DDouble ends[2]) const;
  virtual double GetRadius() const { return _radius; }
  /// How many times its measured length the axis is drawn, prolonged alike beyond both ends;
  /// 1 and below: not prolonged. Hosts rely on the spelling.
  virtual double GetThreeDExtenstionFactor() const { return _threeDExtensionFactor; }

  void SetEndPoints(const Point3DDouble& first, const Point3DDouble& second) {
    _ends = {first, second};
  }
  void SetRadius(double radius) { _radius = radius; }
  void SetThreeDExtenstionFactor(double factor) { _threeDExtensionFactor = factor; }

  VClass* iam() const override { return &CylinderCls; }

private:
  std::array<Point3DDouble, 2> _ends{};
  double _radius = 0.0;
  double _threeDExtensionFactor = 1.0;
};

}  // namespace tarn
