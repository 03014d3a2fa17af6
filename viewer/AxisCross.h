#pragma once

#include "host/general/Point3DDouble.h"
#include "nodes/framework/NodeRef.h"

#include <array>

class SoSwitch;
class ViewFraming;

/// The axes X, Y and Z of the project: at its origin, or in the object's middle when the
/// origin is far from the object. They are a round number of units long (1, 2 or 5 times a
/// power of ten), at most three tenths of the object's diagonal, and nothing hides them.
class AxisCross {
public:
  explicit AxisCross(const ViewFraming& framing);
  ~AxisCross();

  SoSwitch* root() const { return axisSwitch.get(); }
  void show(bool on);
  bool isShown() const;

  double length() const { return axisLength; }
  const tarn::Point3DDouble& origin() const { return points[0]; }

  /// Has the framing hold the axes while they are shown.
  void includeIn(ViewFraming& all) const;

private:
  double axisLength;
  std::array<tarn::Point3DDouble, 4> points;  // the origin and the three ends
  NodeRef<SoSwitch> axisSwitch;
};
