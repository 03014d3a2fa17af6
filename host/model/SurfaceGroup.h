#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/CollectionIndex.h"
#include "host/classes/VOrdCollect.h"
#include "host/model/Surface.h"
#include "host/model/SurfaceElement.h"

#include <array>
#include <deque>
#include <vector>

namespace tarn {

class ObjectName;
class Project;

extern TARN_HOST_EXPORT VClass SurfaceGroupCls;

/// A surface of triangles between points of the model, which neighbours share.
///
///     SurfaceGroup& group = project.AddSurfaceGroup();
///     group.AddElement(&a, &b, &c);
///     group.AddElement(&c, &b, &d);
class TARN_HOST_EXPORT SurfaceGroup : public Surface {
public:
  using Corners = std::array<int, 3>;

  SurfaceGroup() = default;
  SurfaceGroup(const SurfaceGroup&) = delete;
  SurfaceGroup& operator=(const SurfaceGroup&) = delete;

  /// The triangles, of class SurfaceElement, in the order they were added. `selection` is for
  /// hosts that tell apart elements in use and others; such a host answers GetVertices too.
  virtual VOrdCollect* GetSelsCollection(int selection);
  /// The distinct points of the triangles that were added, in the order of their first use: a new
  /// collection that the caller deletes. `project`, which may be null, is for hosts that keep the
  /// points.
  virtual VOrdCollect* GetVertices(Project* project);
  /// The positions of each triangle's points among GetVertices, -1 for one that is missing: what
  /// has else to be looked up for every corner. Null for classes that derive from this one, for
  /// they may answer the two above in their own way.
  const std::vector<Corners>* cornerPositions() const;
  /// The name, its layer's, under which the group's normals are kept; null where it has none.
  virtual ObjectName* GetNameObject() const { return _nameObject; }

  /// Adds a triangle; the reference stays valid. The points are not owned, and may be null.
  SurfaceElement& AddElement(ThreeDPoint* first, ThreeDPoint* second, ThreeDPoint* third);
  /// Not owned; null for none.
  void SetNameObject(ObjectName* name) { _nameObject = name; }

  VClass* iam() const override { return &SurfaceGroupCls; }

private:
  std::deque<SurfaceElement> _elements;
  VOrdCollect _allElements;
  VOrdCollect _vertices;
  CollectionIndex _vertexIndex{_vertices};
  std::vector<Corners> _cornerPositions;
  ObjectName* _nameObject = nullptr;
};

}  // namespace tarn
