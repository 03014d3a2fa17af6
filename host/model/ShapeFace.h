#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VString.h"
#include "host/model/TessellatedSurface.h"

#include <array>
#include <optional>
#include <vector>

namespace tarn {

class Shape;
class ShapeVertex;

extern TARN_HOST_EXPORT VClass ShapeFaceCls;

/// A face of a shape: a surface with a name, and with a place for that name.
class TARN_HOST_EXPORT ShapeFace : public TessellatedSurface {
public:
  explicit ShapeFace(Shape* shape = nullptr) : _shape(shape) {}

  virtual const VString& GetName() const { return _name; }
  /// The shape that it is a face of.
  virtual Shape* GetShape() const { return _shape; }
  /// The two points between which the name stands, upright along the direction from the first
  /// to the second, in model coordinates. Returns 0, and changes neither, where there is no
  /// place for it. `side` is for hosts that place it on either side.
  virtual int GetNameUprightVectorPoints(Point3DDouble& first, Point3DDouble& second,
                                         int side) const;
  /// Where between these points its middle stands: 0 at the first, 1 at the second.
  virtual double GetNameCenterRatio() const { return _nameCenterRatio; }

  /// Fills the face with one set of triangles between corners of the shape, which are not
  /// owned, all with the normal of the face; the sets before are dropped. The outline, which
  /// may be concave, stands counter-clockwise seen from outside; `holes` stand either way.
  /// The first triangle, on which the name lies, is the largest.
  /// Returns 0, and changes nothing, where a corner is null or has no position, and where
  /// there is nothing to fill (see PolygonTriangulation).
  int SetOutline(const std::vector<ShapeVertex*>& outline,
                 const std::vector<std::vector<ShapeVertex*>>& holes = {});
  void SetName(const VString& name) { _name = name; }
  void SetNameUprightVectorPoints(const Point3DDouble& first, const Point3DDouble& second) {
    _nameUprightVector = {first, second};
  }
  void SetNameCenterRatio(double ratio) { _nameCenterRatio = ratio; }

  VClass* iam() const override { return &ShapeFaceCls; }

private:
  Shape* _shape;
  VString _name;
  std::optional<std::array<Point3DDouble, 2>> _nameUprightVector;
  double _nameCenterRatio = 0.5;
};

}  // namespace tarn
