#include "host/model/AffineObject.h"

namespace tarn {

VClass AffineObjectCls("AffineObject", &VObjectCls, []() -> VObject* { return new AffineObject; });

}  // namespace tarn
