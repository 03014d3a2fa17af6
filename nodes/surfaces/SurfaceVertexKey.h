#pragma once

#include "host/classes/VObject.h"
#include "nodes/TarnOIExport.h"

extern TARNOI_EXPORT tarn::VClass SurfaceVertexKeyCls;

/// The key of a normal in the dictionary that TarnOISurfaceSeparator::AddOrUpdateNormals reads:
/// a vertex, and the name of the surface group whose normal it is, for groups that share a
/// vertex have different normals there. Keys are equal only where both objects are the same.
///
///     SurfaceVertexKey key(name ? name : tarn::ObjectName::gDefault, &point);
///     normals.atKeyPut(&key, &normal);
class TARNOI_EXPORT SurfaceVertexKey : public tarn::VObject {
public:
  SurfaceVertexKey() = default;
  /// @param ownerName the tarn::ObjectName of the group
  /// @param vertex    its tarn::ThreeDPoint
  SurfaceVertexKey(tarn::VObject* ownerName, tarn::VObject* vertex)
      : ownerName(ownerName), vertex(vertex) {}

  std::uint64_t hash() const override;
  int isEqual(const tarn::VObject* other) const override;
  tarn::VClass* iam() const override { return &SurfaceVertexKeyCls; }

  tarn::VObject* ownerName = nullptr;  ///< not owned
  tarn::VObject* vertex = nullptr;     ///< not owned
};
