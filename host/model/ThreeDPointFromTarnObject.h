#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/ThreeDPoint.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass ThreeDPointFromTarnObjectCls;

/// A 3D point that the host derives from an object of its model: the middle of a line, the
/// centre of a circle. Its position is what the host has computed.
class TARN_HOST_EXPORT ThreeDPointFromTarnObject : public ThreeDPoint {
public:
  /// The object that it is derived from; null when there is none.
  virtual VObject* GetTarnObject() const { return _object; }

  /// Sets that object, which is not owned.
  void SetTarnObject(VObject* object) { _object = object; }

  VClass* iam() const override { return &ThreeDPointFromTarnObjectCls; }

private:
  VObject* _object = nullptr;
};

}  // namespace tarn
