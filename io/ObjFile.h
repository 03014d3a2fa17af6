#pragma once

#include "io/ReadProgress.h"
#include "io/SurfaceModel.h"
#include "io/TextFields.h"

#include <cstdint>
#include <functional>
#include <map>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarn {

/// The text of an OBJ file (Wavefront). Taken are its points (v), texture coordinates (vt),
/// normals (vn), and faces (f) with the objects (o) and materials (usemtl) that they belong to;
/// groups (g) count as objects where a file has no objects. Faces of more than three corners are
/// cut into triangles. Lines, points, curves and whatever else there is are passed over.
///
/// Positions are read as doubles: a surveyor's coordinates keep their millimetres.
class ObjFile {
public:
  /// Whether the text's first record is one of an OBJ file.
  static bool isObj(std::string_view text);

  /// Neither the path nor the text is copied: both outlive this object.
  ObjFile(const std::string& path, std::string_view text);

  /// Reads the file into the model: all but what the materials look like, of which it has the
  /// names. Refuses numbers that are missing or not finite, corners that the file does not have,
  /// faces of fewer than three corners, and a file without faces.
  void read(SurfaceModel& model, ReadProgress& progress);

  /// The files of materials as the file names them, with the line.
  struct Library {
    std::string name;
    long long line = 0;
  };
  const std::vector<Library>& libraries() const { return _libraries; }

  /// What was passed over, in words; empty when nothing was.
  std::vector<std::string> passedOver() const;

private:
  // What corners name: points, texture coordinates or normals.
  struct Kind {
    const char* name;
    std::int64_t farthest = 0;  // the largest number that a corner named
    long long line = 0;         // where that was
  };
  struct Passed {
    long long count = 0;
    long long line = 0;  // of the first
    void add(long long at) {
      if (count++ == 0) line = at;
    }
  };

  bool nextRecord(std::string_view& record);
  void readRecord(std::string_view keyword, TextFields& fields, SurfaceModel& model);
  void readPoint(TextFields& fields, SurfaceModel& model) const;
  void readUv(TextFields& fields, SurfaceModel& model) const;
  void readNormal(TextFields& fields, SurfaceModel& model);
  void readFace(TextFields& fields, SurfaceModel& model);
  SurfaceModel::Corner corner(std::string_view field, const SurfaceModel& model);
  int index(std::string_view number, Kind& kind, std::size_t count, std::string_view field) const;
  SurfaceModel::Set& currentSet(SurfaceModel& model);

  const std::string& _path;
  TextLines _lines;
  Place _place;         // of the record
  std::string _joined;  // a record that goes on over several lines
  bool _hasObjects;     // else groups stand for them
  Kind _points{"point"};
  Kind _uvs{"texture coordinate"};
  Kind _normals{"normal"};
  std::vector<SurfaceModel::Corner> _corners;  // of one face
  std::vector<Point3DDouble> _polygon;         // likewise
  std::vector<std::array<int, 3>> _triangles;  // likewise
  std::string _objectName;
  std::string _materialName;
  SurfaceModel::Set* _set = nullptr;  // of both; null when either has changed
  std::unordered_map<std::string, std::size_t> _objectNumbers;
  std::unordered_map<std::string, int> _materialNumbers;
  std::map<std::pair<std::size_t, int>, std::size_t> _setNumbers;  // by object and material
  std::vector<Library> _libraries;
  std::map<std::string, Passed, std::less<>> _passed;  // by keyword
  Passed _badNormals;
};

}  // namespace tarn
