#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"

namespace tarn {

class VOrdCollect;

extern TARN_HOST_EXPORT VClass NURBSCurveCls;

/// A smooth curve, fitted to measured points.
class TARN_HOST_EXPORT NURBSCurve : public VObject {
public:
  NURBSCurve() = default;
  NURBSCurve(const NURBSCurve&) = delete;
  NURBSCurve& operator=(const NURBSCurve&) = delete;

  VClass* iam() const override { return &NURBSCurveCls; }
};

}  // namespace tarn
