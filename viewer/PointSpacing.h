#pragma once

namespace tarn {
class Project;
}  // namespace tarn

/// How far apart the points of dense clouds and meshes are.
namespace PointSpacing {

/// The median distance from a point to the nearest one of the same mesh that is elsewhere, of
/// some points spread over all meshes; 0 when there are no two. In the model's unit.
double of(const tarn::Project& project);

}  // namespace PointSpacing
