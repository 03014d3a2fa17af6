#pragma once

#include "nodes/TarnOIExport.h"

class SoGroup;
class SoMaterial;

/// The material in front of all other children, which a host sets for a corner of a shape.
namespace FrontMaterial {

/// Replaces the first child of `node`, where it is a material, by `material`, which becomes a
/// child and may be shared; null only takes the material out.
TARNOI_EXPORT void set(SoGroup& node, SoMaterial* material);

}  // namespace FrontMaterial
