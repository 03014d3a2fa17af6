#include "host/model/Shape.h"

#include "host/model/Extents.h"

namespace tarn {

VClass ShapeCls("Shape", &VObjectCls, []() -> VObject* { return new Shape; });

double Shape::GetMaxSize(int) const {
  Extents extents;
  const VOrdCollect& vertices = GetVertices();
  Point3DRandom position;
  for (int i = 0; i < vertices.size(); ++i) {
    const auto* vertex = static_cast<const ShapeVertex*>(vertices.at(i));
    if (vertex->GetApproximation(position)) extents.Add(position.position());
  }
  return extents.GetLongestSide();
}

ShapeFace& Shape::AddFace(const VString& name) {
  ShapeFace& face = _faces.emplace_back(this);
  _allFaces.add(&face);
  face.SetName(name);
  return face;
}

ShapeEdge& Shape::AddEdge(ShapeVertex* first, ShapeVertex* second) {
  ShapeEdge& edge = _edges.emplace_back(this);
  _allEdges.add(&edge);
  edge.SetVertices(first, second);
  return edge;
}

ShapeVertex& Shape::AddVertex(const Point3DDouble& position) {
  ShapeVertex& vertex = _vertices.emplace_back(this);
  _allVertices.add(&vertex);
  vertex.SetApproximation(Point3DRandom(position));
  return vertex;
}

}  // namespace tarn
