#include "host/model/ThreeDPointFromTarnObject.h"

namespace tarn {

VClass ThreeDPointFromTarnObjectCls("ThreeDPointFromTarnObject", &ThreeDPointCls,
                                    []() -> VObject* { return new ThreeDPointFromTarnObject; });

}  // namespace tarn
