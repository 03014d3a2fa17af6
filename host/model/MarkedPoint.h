#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/general/Point2DDouble.h"

namespace tarn {

class ObjectPoint;
class Photograph;

extern TARN_HOST_EXPORT VClass MarkedPointCls;

/// A point marked on a photograph: an image measurement.
class TARN_HOST_EXPORT MarkedPoint : public VObject {
public:
  MarkedPoint() = default;
  MarkedPoint(Photograph* photograph, const Point2DDouble& position, int subPixel = 0)
      : _photograph(photograph), _position(position), _subPixel(subPixel != 0) {}

  virtual Photograph* GetPhotograph() const { return _photograph; }
  /// The object point that the mark belongs to; null for a mark not yet referenced.
  virtual ObjectPoint* GetObjectPoint() const { return _objectPoint; }
  /// Where it was marked, in pixels.
  virtual Point2DDouble GetPosition() const { return _position; }
  /// Marked minus projected position, in pixels; returns 0 when it is not known.
  virtual int GetResidual(Point2DDouble& residual) const;
  /// Non-zero when it was measured to a fraction of a pixel by a target's shape.
  virtual int IsSubPixel() const { return _subPixel; }

  void SetObjectPoint(ObjectPoint* point) { _objectPoint = point; }
  void SetResidual(const Point2DDouble& residual);
  void SetSubPixel(int subPixel) { _subPixel = subPixel != 0; }

  VClass* iam() const override { return &MarkedPointCls; }

private:
  Photograph* _photograph = nullptr;
  ObjectPoint* _objectPoint = nullptr;
  Point2DDouble _position;
  Point2DDouble _residual;
  bool _hasResidual = false;
  bool _subPixel = false;
};

}  // namespace tarn
