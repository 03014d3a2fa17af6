#include "host/model/ImportedLine.h"

namespace tarn {

VClass ImportedLineCls("ImportedLine", &FeatureCls, []() -> VObject* { return new ImportedLine; });

ThreeDPoint* ImportedLine::GetThreeDPoint(int index) const {
  return index == 0 || index == 1 ? _ends[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace tarn
