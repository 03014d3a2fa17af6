#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/ThreeDPoint.h"

namespace tarn {

class Shape;

extern TARN_HOST_EXPORT VClass ShapeVertexCls;

/// A corner of a shape.
class TARN_HOST_EXPORT ShapeVertex : public ThreeDPoint {
public:
  explicit ShapeVertex(Shape* shape = nullptr) : _shape(shape) {}

  /// The shape that it is a corner of.
  virtual Shape* GetShape() const { return _shape; }

  VClass* iam() const override { return &ShapeVertexCls; }

private:
  Shape* _shape;
};

}  // namespace tarn
