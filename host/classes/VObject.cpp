#include "host/classes/VObject.h"

#include <cstdint>

namespace tarn {

VClass VObjectCls("VObject");

VObject::~VObject() = default;

int VObject::isA(const VClass& record) const { return iam()->isDerivedFrom(record); }

std::uint64_t VObject::hash() const {
  // Heap addresses differ in their middle bits; a multiplication spreads them over the
  // upper part of the word (Knuth, The Art of Computer Programming, vol. 3, 6.4), a
  // shift brings them down to where tables of a power of two look.
  const std::uint64_t spread =
      static_cast<std::uint64_t>(reinterpret_cast<std::uintptr_t>(this)) * 0x9E3779B97F4A7C15ULL;
  return spread ^ (spread >> 32);
}

}  // namespace tarn
