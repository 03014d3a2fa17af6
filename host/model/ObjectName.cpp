#include "host/model/ObjectName.h"

namespace tarn {

VClass ObjectNameCls("ObjectName", &VObjectCls, []() -> VObject* { return new ObjectName; });

namespace {
ObjectName defaultName;
}

ObjectName* const ObjectName::gDefault = &defaultName;

}  // namespace tarn
