#pragma once

#include "host/TarnOIHostExport.h"
#include "host/general/Point3DDouble.h"
#include "host/model/Feature.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass TriangleCls;

/// A triangle of a surface. Its points and normals belong to somebody else, for neighbours
/// share them; they must outlive the triangle.
class TARN_HOST_EXPORT Triangle : public Feature {
public:
  Triangle() = default;
  Triangle(ThreeDPoint* first, ThreeDPoint* second, ThreeDPoint* third)
      : _points{first, second, third} {}

  ThreeDPoint* GetThreeDPoint(int index) const override { return GetPoint(index); }
  /// The corner of that number, 0 to 2; null where there is none.
  virtual ThreeDPoint* GetPoint(int corner) const;
  /// The surface's normal at that corner, in the frame of the points; null where there is none.
  virtual const Point3DDouble* GetNormal(int corner) const;

  /// Corners are numbered 0 to 2; any other number is passed over.
  void SetPoint(int corner, ThreeDPoint* point);
  void SetNormal(int corner, const Point3DDouble* normal);

  VClass* iam() const override { return &TriangleCls; }

private:
  ThreeDPoint* _points[3] = {};
  const Point3DDouble* _normals[3] = {};
};

}  // namespace tarn
