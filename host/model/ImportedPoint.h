#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VString.h"
#include "host/model/ThreeDPoint.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass ImportedPointCls;

/// A point brought into the project from outside: a surveyed control point. While it
/// is active its imported position is its position, unless SetApproximation gave
/// another (an adjusted one); an inactive point has an imported position only.
class TARN_HOST_EXPORT ImportedPoint : public ThreeDPoint {
public:
  int GetApproximation(Point3DRandom& position) const override;

  virtual const VString& GetName() const { return _name; }
  virtual int GetIDNumber() const { return _number; }
  /// Non-zero while the point takes part. `orLinked` is for hosts that tell apart
  /// points that take part themselves (0) or also through an object point (1).
  virtual int IsActive(int orLinked) const;
  /// The position as it was imported, whether the point is active or not; the origin
  /// when none was.
  virtual Point3DRandom GetStoredPosition() const { return _stored; }

  void SetName(const VString& name) { _name = name; }
  void SetIDNumber(int number) { _number = number; }
  void SetActive(int active) { _active = active; }
  void SetStoredPosition(const Point3DRandom& position);

  VClass* iam() const override { return &ImportedPointCls; }

private:
  VString _name;
  int _number = 0;
  int _active = 1;
  int _hasStored = 0;
  Point3DRandom _stored;
};

}  // namespace tarn
