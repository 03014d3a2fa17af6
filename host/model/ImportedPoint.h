#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VString.h"
#include "host/model/ThreeDPoint.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass ImportedPointCls;

/// A point brought into the project from outside: a surveyed control point.
class TARN_HOST_EXPORT ImportedPoint : public ThreeDPoint {
public:
  virtual const VString& GetName() const { return _name; }
  virtual int GetIDNumber() const { return _number; }
  /// Non-zero while the point takes part. `orLinked` non-zero also counts a point
  /// that takes part through an object point only.
  virtual int IsActive(int orLinked) const;
  /// The position as it was imported, whether the point is active or not.
  virtual Point3DRandom GetStoredPosition() const { return _stored; }

  void SetName(const VString& name) { _name = name; }
  void SetIDNumber(int number) { _number = number; }
  void SetActive(int active) { _active = active; }
  void SetStoredPosition(const Point3DRandom& position) { _stored = position; }

  VClass* iam() const override { return &ImportedPointCls; }

private:
  VString _name;
  int _number = 0;
  int _active = 1;
  Point3DRandom _stored;
};

}  // namespace tarn
