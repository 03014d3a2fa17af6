#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass AffineObjectCls;

/// An object that ties the project to its own coordinate system.
class TARN_HOST_EXPORT AffineObject : public VObject {
public:
  VClass* iam() const override { return &AffineObjectCls; }
};

}  // namespace tarn
