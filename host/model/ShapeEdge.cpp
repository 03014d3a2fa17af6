#include "host/model/ShapeEdge.h"

namespace tarn {

VClass ShapeEdgeCls("ShapeEdge", &VObjectCls, []() -> VObject* { return new ShapeEdge; });

ShapeVertex* ShapeEdge::GetVertex(int end) const {
  return end == 0 || end == 1 ? _vertices[static_cast<std::size_t>(end)] : nullptr;
}

}  // namespace tarn
