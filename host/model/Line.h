#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/Feature.h"

#include <array>

namespace tarn {

extern TARN_HOST_EXPORT VClass LineCls;

/// A straight line of the model between two points.
class TARN_HOST_EXPORT Line : public Feature {
public:
  /// The end of that index, 0 or 1; null for one that is not set and for any other index.
  ThreeDPoint* GetThreeDPoint(int index) const override;
  /// How many times its measured length the line is drawn, prolonged alike beyond both ends;
  /// 1 and below: not prolonged. Hosts rely on the spelling.
  virtual double GetThreeDExtenstionFactor() const { return _threeDExtensionFactor; }

  /// Sets both ends, points of any kind. Not owned; either may be null.
  void SetThreeDPoints(ThreeDPoint* first, ThreeDPoint* second) { _ends = {first, second}; }
  void SetThreeDExtenstionFactor(double factor) { _threeDExtensionFactor = factor; }

  VClass* iam() const override { return &LineCls; }

private:
  std::array<ThreeDPoint*, 2> _ends{};
  double _threeDExtensionFactor = 1.0;
};

}  // namespace tarn
