#include "host/model/Line.h"

namespace tarn {

VClass LineCls("Line", &FeatureCls, []() -> VObject* { return new Line; });

ThreeDPoint* Line::GetThreeDPoint(int index) const {
  return index == 0 || index == 1 ? _ends[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace tarn
