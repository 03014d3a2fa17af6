#pragma once

#include "io/ReadProgress.h"
#include "io/SurfaceModel.h"

#include <string>
#include <string_view>
#include <vector>

/// Files that the library Assimp reads: of surfaces, and of OBJ files' materials.
namespace tarn::assimpFile {

/// Whether files of that extension, in small letters and with its dot, are read: STL, OFF, glTF,
/// FBX and 3DS. The library knows many more, but ends the program, or takes all memory, with
/// damaged ones of them.
bool isKnown(std::string_view extension);

/// Reads the surfaces of a file, as they are placed in it, points at one place as one. Throws
/// ReadError when the library refuses it, a coordinate is not finite, or there are no triangles.
void read(const std::string& path, SurfaceModel& model, ReadProgress& progress);

/// Reads the materials of an OBJ file (MTL), in their order. Throws ReadError when the file cannot
/// be read or the library refuses it.
std::vector<SurfaceModel::Material> readMaterials(const std::string& path);

}  // namespace tarn::assimpFile
