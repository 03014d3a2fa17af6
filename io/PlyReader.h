#pragma once

#include "io/ProgressHandler.h"
#include "io/TarnOIIOExport.h"

#include <string>

namespace tarn {

class PointMesh;
class Project;

/// Reads a PLY file, text or binary of either byte order, into a point mesh.
///
/// Taken are the vertices' x, y and z, their colours (red, green and blue, or diffuse_red and
/// so on: bytes, 16 bits, or floats up to 1), and the faces: polygons become fans of triangles,
/// "tristrips" their triangles, and the triangles get the vertices' normals (nx, ny, nz), made
/// as long as 1. All other properties and elements are passed over.
///
/// Positions keep the file's frame and units. Where their middle is far from the origin (1,000
/// units in x or y, 10,000 in z) and the file has them more exact than floats, they are stored
/// less a shift of whole units, which is the mesh's local affine.
class TARN_IO_EXPORT PlyReader {
public:
  /// Whether the file begins as a PLY file does; false where it cannot be read.
  static bool IsPlyFile(const std::string& path);

  /// Reads the file and adds it to the project as a mesh of the file's name without extension.
  /// Throws ReadError when the file is refused; the project is then as it was before.
  ///
  /// Points with an infinite coordinate, or one that is no number, are left out together with
  /// their triangles, and data behind the last element are not read: either is said in one
  /// tarn::warning.
  static PointMesh& Read(const std::string& path, Project& project,
                         const ProgressHandler& progress = {});
};

}  // namespace tarn
