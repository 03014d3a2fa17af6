#pragma once

#include "host/general/Point3DDouble.h"
#include "io/PlyHeader.h"
#include "io/PlySource.h"
#include "io/ReadProgress.h"

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

namespace tarn {

class PointMesh;

/// The vertices of a PLY file on their way into a point mesh: their positions, their colours
/// and normals where all three of either are given. Other properties are passed over.
///
/// Positions that are far from the origin are stored less a shift, a whole number that is
/// subtracted in double before they are narrowed to float. What stands in the file as a float,
/// or as a smaller number, is exact as it is and keeps its value.
class PlyVertices {
public:
  /// Where the middle of the points counts as far: a float's step is 0.06 mm at 1,000 m and
  /// 1 mm at 10,000 m. Heights keep their values longer, for scales show them as stored.
  static constexpr double farInPlan = 1000.0;
  static constexpr double farInHeight = 10000.0;

  /// Refuses an element without x, y or z, or with a list in place of a number. Normals are
  /// read only `withNormals`. The element outlives this object.
  PlyVertices(const PlyElement& element, bool withNormals);

  /// Reads the element, which the source has begun, into the mesh.
  void read(PlySource& source, PointMesh& mesh, ReadProgress& progress);

  /// Takes those points out of the mesh whose position is infinite or not a number, and
  /// returns the new index of each point, -1 for those. Empty when all of them stay.
  std::vector<int> dropUnusable(PointMesh& mesh);

  /// What was subtracted; in the model's units.
  Point3DDouble shift() const { return {_shift[0], _shift[1], _shift[2]}; }
  /// Normals of length 1 for each point of the mesh, or none; zero where the file has one
  /// without direction. They are moved out.
  std::vector<Point3DDouble> takeNormals() { return std::move(_normals); }

private:
  // A number of a point: where it stands in each record.
  struct Column {
    std::size_t property = 0;
    std::size_t offset = 0;  // in bytes, where all records have one size
    PlyType type = PlyType::eFloat32;
  };
  using Columns = std::array<Column, 3>;
  // Points that are being written, the first of them and how many.
  struct Block {
    float* xyz;
    unsigned char* bgr;      // null without colours
    Point3DDouble* normals;  // null without normals
    std::size_t count;
  };

  std::optional<Columns> columns(const std::array<const char*, 3>& names) const;
  void readPoints(PlySource& source, PointMesh& mesh, std::size_t count, ReadProgress& progress);
  template <std::endian order>
  void readRows(PlySource& source, const Block& block) const;
  void readRecords(PlySource& source, const Block& block) const;
  bool improveShift(const PointMesh& mesh, std::size_t points, const std::array<double, 3>& limits);

  const PlyElement& _element;
  Columns _positions;
  std::optional<Columns> _colours;     // blue, green, red, as the mesh has them
  std::optional<Columns> _directions;  // of the normals
  std::vector<bool> _isUsed;           // of each property, whether it is in one of these
  std::array<bool, 3> _isExact{};      // whether floats hold a coordinate as it stands
  std::array<double, 3> _shift{};
  std::vector<Point3DDouble> _normals;
  bool _hasUnusable = false;
};

}  // namespace tarn
