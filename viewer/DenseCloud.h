#pragma once

#include <string>

/// The dense cloud or mesh that belongs to a COLMAP model.
namespace DenseCloud {

/// Where it is, by the names that COLMAP gives it (fused.ply, meshed-poisson.ply,
/// meshed-delaunay.ply) or as cloud.ply: in the folder itself, beside the model in it and in
/// "dense" and "dense/0" there; where `folder` is the model's own, beside that. A cloud comes
/// before a mesh. Empty when there is none.
std::string find(const std::string& folder);

}  // namespace DenseCloud
