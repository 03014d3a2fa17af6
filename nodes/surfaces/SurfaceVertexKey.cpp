#include "nodes/surfaces/SurfaceVertexKey.h"

tarn::VClass SurfaceVertexKeyCls("SurfaceVertexKey", &tarn::VObjectCls,
                                 []() -> tarn::VObject* { return new SurfaceVertexKey; });

namespace {
std::uint64_t hashOf(const tarn::VObject* object) { return object ? object->hash() : 0; }
}  // namespace

std::uint64_t SurfaceVertexKey::hash() const {
  // Masked before and after the sum: hosts rely on the number.
  constexpr std::uint64_t allButTheTopBit = 0x7FFFFFFFFFFFFFFF;
  return ((hashOf(ownerName) & allButTheTopBit) + hashOf(vertex)) & allButTheTopBit;
}

int SurfaceVertexKey::isEqual(const tarn::VObject* other) const {
  if (!other || !other->isA(SurfaceVertexKeyCls)) return 0;
  const auto* key = static_cast<const SurfaceVertexKey*>(other);
  return key->ownerName == ownerName && key->vertex == vertex;
}
