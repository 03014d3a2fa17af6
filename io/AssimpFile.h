#pragma once

#include "io/ReadProgress.h"
#include "io/SurfaceModel.h"

#include <string>
#include <vector>

namespace tarn {

/// Files that the library Assimp reads, of surfaces (STL, OFF, Collada, glTF, 3DS and others) and
/// of OBJ files' materials.
namespace assimpFile {

/// Whether the library reads files of that extension, its dot included.
bool isKnown(const std::string& extension);

/// Reads the surfaces of a file, as they are placed in it, points at one place as one. Throws
/// ReadError when the library refuses it, a coordinate is not finite, or there are no triangles.
void read(const std::string& path, SurfaceModel& model, ReadProgress& progress);

/// Reads the materials of an OBJ file (MTL), in their order. Throws ReadError when the file cannot
/// be read or the library refuses it.
std::vector<SurfaceModel::Material> readMaterials(const std::string& path);

}  // namespace assimpFile

}  // namespace tarn
