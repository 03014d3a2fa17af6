#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/CollectionIndex.h"
#include "host/classes/VOrdCollect.h"
#include "host/model/Surface.h"
#include "host/model/SurfaceElement.h"

#include <deque>

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
  ObjectName* _nameObject = nullptr;
};

}  // namespace tarn
