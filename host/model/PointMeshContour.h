#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/general/Point3DDouble.h"
#include "host/model/PointTriples.h"

#include <span>

namespace tarn {

class Material;

extern TARN_HOST_EXPORT VClass PointMeshContourCls;

/// A line derived from a point mesh, such as one of equal height: a polyline, open or closed.
class TARN_HOST_EXPORT PointMeshContour : public VObject {
public:
  virtual int GetNumberOfPoints() const { return _points.count(); }
  /// Pointers to the three coordinates of each point, which stay the contour's; null where it
  /// has none. `inModel` is for hosts that keep a second form; here 1 and 0 both give model
  /// coordinates, the mesh's local affine applied.
  virtual double** GetPoints(int inModel) const;
  /// Non-zero when the line returns to its first point, which then is its last one again.
  virtual int IsClosed() const { return _closed; }
  /// The height that the line runs at, in the model.
  virtual double GetHeight() const { return _height; }
  /// Its material; null where it has none. Not owned.
  virtual Material* GetMaterial() const { return _material; }

  /// Copies the points, which are in model coordinates.
  void SetPoints(std::span<const Point3DDouble> points);
  void SetClosed(int closed) { _closed = closed != 0; }
  void SetHeight(double height) { _height = height; }
  void SetMaterial(Material* material) { _material = material; }

  VClass* iam() const override { return &PointMeshContourCls; }

private:
  PointTriples<double> _points;
  double _height = 0.0;
  Material* _material = nullptr;
  int _closed = 0;
};

}  // namespace tarn
