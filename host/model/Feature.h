#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"

namespace tarn {

class ThreeDPoint;

extern TARN_HOST_EXPORT VClass FeatureCls;

/// A feature of the object that is told by points: a line by two, a triangle by three.
class TARN_HOST_EXPORT Feature : public VObject {
public:
  /// The point of that index, counted from 0; null where the feature has none. Not owned.
  virtual ThreeDPoint* GetThreeDPoint(int index) const = 0;

  VClass* iam() const override { return &FeatureCls; }
};

}  // namespace tarn
