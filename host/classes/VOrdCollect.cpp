#include "host/classes/VOrdCollect.h"

#include <algorithm>

namespace tarn {

VClass VOrdCollectCls("VOrdCollect", &VObjectCls, []() -> VObject* { return new VOrdCollect; });

VOrdCollect::VOrdCollect(int capacity) { reserve(capacity); }

void VOrdCollect::reserve(int capacity) {
  if (capacity > 0) _slots.reserve(static_cast<std::size_t>(capacity));
}

int VOrdCollect::indexOf(const VObject* object) const {
  const auto found =
      std::find(_slots.begin(), _slots.end(), reinterpret_cast<std::intptr_t>(object));
  return found == _slots.end() ? -1 : static_cast<int>(found - _slots.begin());
}

}  // namespace tarn
