#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/general/Point2DDouble.h"
#include "host/model/Point3DRandom.h"

namespace tarn {

class Photograph;

extern TARN_HOST_EXPORT VClass ThreeDPointCls;

/// Anything that has a position in the model.
class TARN_HOST_EXPORT ThreeDPoint : public VObject {
public:
  /// The position with its covariance. Returns 0 when there is none.
  virtual int GetApproximation(Point3DRandom& position) const;
  /// The position without the local affine of the mesh that the point belongs to, where it
  /// belongs to one that has one; else the same. Returns 0, and changes nothing, when there
  /// is none.
  virtual int GetApproximationNoLocalAffine(Point3DDouble& position) const;
  /// Where the photograph shows the point, in pixels: its projection, lens distortion included.
  /// Returns 0, and leaves `pixel` as it was, where it has no position or the photograph, which
  /// may be null, does not show it.
  virtual int BestProjectionOnto(Photograph* photograph, Point2DDouble& pixel) const;
  /// Non-zero when the position comes from the bundle adjustment.
  virtual int IsProcessed() const { return _processed; }

  void SetApproximation(const Point3DRandom& position);
  void SetProcessed(int processed) { _processed = processed != 0; }

  VClass* iam() const override { return &ThreeDPointCls; }

private:
  // A Point3DRandom taken apart: 24 bytes less a point. Variances are known together.
  Point3DDouble _position;
  double _xx = 0.0;
  double _yy = 0.0;
  double _zz = 0.0;
  double _xy = 0.0;
  double _xz = 0.0;
  double _yz = 0.0;
  bool _hasPosition = false;
  bool _variancesKnown = false;
  bool _processed = false;
};

}  // namespace tarn
