#include "host/model/ImportedPoint.h"

namespace tarn {

VClass ImportedPointCls("ImportedPoint", &ThreeDPointCls,
                        []() -> VObject* { return new ImportedPoint; });

int ImportedPoint::IsActive(int) const { return _active; }

}  // namespace tarn
