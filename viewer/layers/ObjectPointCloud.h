#pragma once

#include <memory>
#include <span>

namespace tarn {
class ObjectPoint;
class PointMesh;
}  // namespace tarn

/// Object points as one point mesh: point i of the mesh is the i-th object point.
namespace ObjectPointCloud {

/// Stored less the view offset, which is the mesh's local affine. With the points' colours where
/// any of them has one; the others are then light grey. All points must have positions.
std::unique_ptr<tarn::PointMesh> of(std::span<tarn::ObjectPoint* const> points);

}  // namespace ObjectPointCloud
