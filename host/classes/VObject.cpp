#include "host/classes/VObject.h"

#include <cstdint>

namespace tarn {

VClass VObjectCls("VObject");

VObject::~VObject() = default;

int VObject::isA(const VClass& record) const { return iam()->isDerivedFrom(record); }

std::uint64_t VObject::hash() const {
  // Heap addresses differ in their middle bits; a multiplication spreads them
  // over the whole word (Knuth, The Art of Computer Programming, vol. 3, 6.4).
  return static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(this)) * 0x9E3779B97F4A7C15ULL;
}

}  // namespace tarn
