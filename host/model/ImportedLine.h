#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/Feature.h"

#include <array>

namespace tarn {

extern TARN_HOST_EXPORT VClass ImportedLineCls;

/// A straight line brought into the project from outside.
class TARN_HOST_EXPORT ImportedLine : public Feature {
public:
  /// The end of that index, 0 or 1; null for one that is not set and for any other index.
  ThreeDPoint* GetThreeDPoint(int index) const override;

  /// Sets both ends, points of any kind. Not owned; either may be null.
  void SetThreeDPoints(ThreeDPoint* first, ThreeDPoint* second) { _ends = {first, second}; }

  VClass* iam() const override { return &ImportedLineCls; }

private:
  std::array<ThreeDPoint*, 2> _ends{};
};

}  // namespace tarn
