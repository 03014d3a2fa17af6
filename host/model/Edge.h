#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/general/Point3DDouble.h"

#include <array>

namespace tarn {

extern TARN_HOST_EXPORT VClass EdgeCls;

/// A straight edge of the model, measured as a whole: it has end positions, but no points.
class TARN_HOST_EXPORT Edge : public VObject {
public:
  /// The two end positions, in the model frame. Returns 0, and changes neither, while the
  /// edge has none.
  virtual int GetPointsForm(Point3DDouble& p0, Point3DDouble& p1) const;
  /// How many times its measured length the edge is drawn, prolonged alike beyond both ends;
  /// 1 and below: not prolonged. Hosts rely on the spelling.
  virtual double GetThreeDExtenstionFactor() const { return _threeDExtensionFactor; }

  void SetPointsForm(const Point3DDouble& p0, const Point3DDouble& p1);
  void SetThreeDExtenstionFactor(double factor) { _threeDExtensionFactor = factor; }

  VClass* iam() const override { return &EdgeCls; }

private:
  std::array<Point3DDouble, 2> _ends;
  double _threeDExtensionFactor = 1.0;
  bool _measured = false;
};

}  // namespace tarn
