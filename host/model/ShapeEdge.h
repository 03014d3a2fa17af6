#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"

#include <array>

namespace tarn {

class Shape;
class ShapeVertex;

extern TARN_HOST_EXPORT VClass ShapeEdgeCls;

/// A straight edge of a shape, between two of its corners.
class TARN_HOST_EXPORT ShapeEdge : public VObject {
public:
  explicit ShapeEdge(Shape* shape = nullptr) : _shape(shape) {}

  /// The corner at that end, 0 or 1; null for one that is not set and for any other end.
  virtual ShapeVertex* GetVertex(int end) const;
  /// The shape that it is an edge of.
  virtual Shape* GetShape() const { return _shape; }

  /// Not owned; either may be null.
  void SetVertices(ShapeVertex* first, ShapeVertex* second) { _vertices = {first, second}; }

  VClass* iam() const override { return &ShapeEdgeCls; }

private:
  Shape* _shape;
  std::array<ShapeVertex*, 2> _vertices{};
};

}  // namespace tarn
