#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/Feature.h"

#include <array>
#include <cstddef>

namespace tarn {

extern TARN_HOST_EXPORT VClass SurfaceElementCls;

/// A triangle of a surface group, between three points of the model. Its points stay what they
/// are, for the group knows which of its triangles share them.
class TARN_HOST_EXPORT SurfaceElement : public Feature {
public:
  SurfaceElement() = default;
  /// The points are not owned, and may be null.
  SurfaceElement(ThreeDPoint* first, ThreeDPoint* second, ThreeDPoint* third)
      : _points{first, second, third} {}

  ThreeDPoint* GetThreeDPoint(int index) const override {
    return index >= 0 && index < 3 ? _points[static_cast<std::size_t>(index)] : nullptr;
  }

  VClass* iam() const override { return &SurfaceElementCls; }

private:
  std::array<ThreeDPoint*, 3> _points{};
};

}  // namespace tarn
