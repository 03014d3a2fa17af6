#pragma once

#include "io/ProgressHandler.h"
#include "io/TarnOIIOExport.h"

#include <string>
#include <vector>

namespace tarn {

class ImportedSurface;
class Project;

/// Reads a file of surfaces into imported surfaces: OBJ (Wavefront) with its materials, PLY, and
/// STL, OFF, glTF, FBX and 3DS by the library Assimp. It is named for what it makes: a mesh is in
/// this project a cloud with triangles, without textures.
///
/// Each object of the file becomes a surface, named after it, or after the file where it has no
/// name. A surface has a set of triangles for each of its materials, with its texture and its
/// material; points are shared between its triangles. Faces of more corners are cut into
/// triangles; lines and points are passed over. Of a material its colours, its shininess and its
/// texture are taken: transparency, and a scale or an offset of the texture, are not.
///
/// Positions keep the file's frame and units. Those of OBJ files are exact, also far from the
/// origin, and those of PLY files as PlyReader has them; the library reads others as floats.
///
/// Triangles turn as their normals say. A surface is single-sided where nobody can look at its
/// back: where it has normals, no border, and its volume inside.
class TARN_IO_EXPORT SurfaceReader {
public:
  /// Whether it is a file that begins as an OBJ or a PLY file does, or has the extension of one
  /// that is read; false where there is none.
  static bool IsSurfaceFile(const std::string& path);

  /// Reads the file and adds its surfaces to the project, which owns them. Throws ReadError when
  /// the file is refused; the project is then as it was before.
  ///
  /// Files of materials and textures that are missing, materials that are not defined, normals and
  /// texture coordinates that are missing and elements that are passed over are no errors: each is
  /// said in a tarn::warning.
  static std::vector<ImportedSurface*> Read(const std::string& path, Project& project,
                                            const ProgressHandler& progress = {});
};

}  // namespace tarn
