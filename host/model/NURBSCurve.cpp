#include "host/model/NURBSCurve.h"

namespace tarn {

VClass NURBSCurveCls("NURBSCurve", &VObjectCls, []() -> VObject* { return new NURBSCurve; });

}  // namespace tarn
