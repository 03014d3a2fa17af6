#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"

namespace tarn {

class ObjectPoint;

extern TARN_HOST_EXPORT VClass Ray3DCls;

/// The rays from an object point to its camera stations, as one object of the model: what is
/// found where they are picked in the scene.
class TARN_HOST_EXPORT Ray3D : public VObject {
public:
  /// The point, which is not owned, must outlive the rays.
  explicit Ray3D(ObjectPoint* point = nullptr) : _objectPoint(point) {}

  /// The point that the rays begin at; null when there is none.
  virtual ObjectPoint* GetObjectPoint() const { return _objectPoint; }

  VClass* iam() const override { return &Ray3DCls; }

private:
  ObjectPoint* _objectPoint;
};

}  // namespace tarn
