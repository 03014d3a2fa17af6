#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VOrdCollect.h"
#include "host/model/ShapeEdge.h"
#include "host/model/ShapeFace.h"
#include "host/model/ShapeVertex.h"

#include <deque>

namespace tarn {

extern TARN_HOST_EXPORT VClass ShapeCls;

/// A modelled solid with its faces, edges and corners, which it owns; references to them stay
/// valid.
class TARN_HOST_EXPORT Shape : public VObject {
public:
  Shape() = default;
  Shape(const Shape&) = delete;
  Shape& operator=(const Shape&) = delete;

  /// In the order they were added: of class ShapeFace, ShapeEdge, ShapeVertex.
  virtual const VOrdCollect& GetFaces() const { return _allFaces; }
  virtual const VOrdCollect& GetEdges() const { return _allEdges; }
  virtual const VOrdCollect& GetVertices() const { return _allVertices; }
  /// Non-zero when it is a hollow that is seen from within: its faces are turned inwards.
  virtual int GetInsideOut() const { return _insideOut; }
  /// The longest side of the box of its corners, in project units; 0 without any. `kind` is for
  /// hosts that measure in other ways.
  virtual double GetMaxSize(int kind) const;

  ShapeFace& AddFace(const VString& name);
  ShapeEdge& AddEdge(ShapeVertex* first, ShapeVertex* second);
  ShapeVertex& AddVertex(const Point3DDouble& position);
  void SetInsideOut(int insideOut) { _insideOut = insideOut != 0; }

  VClass* iam() const override { return &ShapeCls; }

private:
  std::deque<ShapeFace> _faces;
  std::deque<ShapeEdge> _edges;
  std::deque<ShapeVertex> _vertices;
  VOrdCollect _allFaces;
  VOrdCollect _allEdges;
  VOrdCollect _allVertices;
  int _insideOut = 0;
};

}  // namespace tarn
