#include "io/ObjFile.h"

#include "io/FaceTriangles.h"
#include "io/ReadError.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <limits>
#include <span>

namespace tarn {

namespace {

// What there is besides that makes nothing to be seen: it is passed over without a word.
constexpr std::string_view settings[] = {
    "s",      "mg",  "vp",         "lod",       "bevel", "c_interp", "d_interp", "usemap", "maplib",
    "cstype", "deg", "bmat",       "step",      "parm",  "trim",     "hole",     "scrv",   "sp",
    "end",    "con", "shadow_obj", "trace_obj", "ctech", "stech",    "call",     "csh",    "g"};
// What is seen in other programs, and not here.
constexpr std::string_view elements[] = {"l", "p", "curv", "curv2", "surf"};
constexpr std::string_view taken[] = {"v", "vt", "vn", "f", "fo", "o", "usemtl", "mtllib"};

bool isAmong(std::span<const std::string_view> keywords, std::string_view keyword) {
  return std::ranges::find(keywords, keyword) != keywords.end();
}

bool isKeyword(std::string_view word) {
  return isAmong(taken, word) || isAmong(settings, word) || isAmong(elements, word);
}

std::string_view firstWord(std::string_view record) {
  constexpr std::string_view blanks = " \t\r\v\f";
  record.remove_prefix(std::min(record.find_first_not_of(blanks), record.size()));
  return record.substr(0, record.find_first_of(blanks));
}

// Far beyond what is measured, and what can be drawn.
constexpr double farthestPlace = 1e30;

double coordinate(TextFields& fields, const char* name) {
  const double value = fields.number(name);
  if (std::abs(value) > farthestPlace) {
    fields.place().refuse(std::string(name) + " beyond 1e30", "a place that can be drawn");
  }
  return value;
}

}  // namespace

bool ObjFile::isObj(std::string_view text) {
  const std::string nowhere;
  TextLines lines(nowhere, text);
  std::string_view record;
  return lines.nextRecord(record) && isKeyword(firstWord(record));
}

ObjFile::ObjFile(const std::string& path, std::string_view text)
    : _path(path),
      _lines(path, text),
      _place(_lines.place()),
      _hasObjects(text.starts_with("o ") || text.find("\no ") != std::string_view::npos) {}

void ObjFile::read(SurfaceModel& model, ReadProgress& progress) {
  std::string_view record;
  bool isFirst = true;
  for (long long i = 0; nextRecord(record); ++i) {
    if (isFirst && !isKeyword(firstWord(record))) {
      _place.refuse(quoted(firstWord(record)), "a record of an OBJ file (v, vt, vn, f, o, mtllib)");
    }
    isFirst = false;
    TextFields fields(_place, record);
    readRecord(fields.word("a keyword"), fields, model);
    if (i % 1024 == 0) progress.at(_lines.done());
  }
  const std::pair<const Kind&, std::size_t> counts[] = {
      {_points, model.points.size()}, {_uvs, model.uvs.size()}, {_normals, model.normals.size()}};
  for (const auto& [kind, count] : counts) {
    if (kind.farthest <= static_cast<std::int64_t>(count)) continue;
    throw ReadError::atLine(_path, static_cast<long>(kind.line),
                            std::string("the ") + kind.name + " " + std::to_string(kind.farthest),
                            "one of the " + std::to_string(count) + " that the file has");
  }
  if (model.objects.empty()) {
    throw ReadError::inFile(_path, "an OBJ file without faces", "at least one (f)");
  }
}

std::vector<std::string> ObjFile::passedOver() const {
  std::vector<std::string> all;
  for (const auto& [keyword, passed] : _passed) {
    all.push_back(std::to_string(passed.count) +
                  (isKeyword(keyword) ? " elements " : " records that are not known, ") +
                  quoted(keyword) + ", the first on line " + std::to_string(passed.line) +
                  ", are passed over");
  }
  if (_badNormals.count > 0) {
    all.push_back(std::to_string(_badNormals.count) + " normals, the first on line " +
                  std::to_string(_badNormals.line) + ", are not finite and count for none");
  }
  return all;
}

// A line that ends in a backslash goes on in the next one; behind a # stands a comment, but a name
// may have one inside of it.
bool ObjFile::nextRecord(std::string_view& record) {
  if (!_lines.nextRecord(record)) return false;
  _place = _lines.place();
  if (!record.ends_with('\\')) return true;
  _joined.clear();
  while (record.ends_with('\\')) {
    record.remove_suffix(1);
    (_joined += record) += ' ';
    if (!_lines.next(record)) record = {};
  }
  record = _joined += record;
  return true;
}

void ObjFile::readRecord(std::string_view keyword, TextFields& fields, SurfaceModel& model) {
  if (keyword == "v") {
    readPoint(fields, model);
  } else if (keyword == "f" || keyword == "fo") {
    readFace(fields, model);
  } else if (keyword == "vt") {
    readUv(fields, model);
  } else if (keyword == "vn") {
    readNormal(fields, model);
  } else if (keyword == "o" || (keyword == "g" && !_hasObjects)) {
    _objectName = fields.rest();
    _set = nullptr;
  } else if (keyword == "usemtl") {
    _materialName = fields.rest();
    _set = nullptr;
  } else if (keyword == "mtllib") {
    _libraries.push_back({std::string(fields.rest()), _place.at});
  } else if (!isAmong(settings, keyword)) {
    auto found = _passed.find(keyword);
    if (found == _passed.end()) found = _passed.emplace(keyword, Passed()).first;
    found->second.add(_place.at);
  }
}

// A weight or colours may follow.
void ObjFile::readPoint(TextFields& fields, SurfaceModel& model) const {
  if (model.points.size() == std::size_t{std::numeric_limits<int>::max()}) {
    _place.refuse("one point more", "at most " + std::to_string(model.points.size()));
  }
  Point3DDouble& point = model.points.emplace_back();
  point.x = coordinate(fields, "x");
  point.y = coordinate(fields, "y");
  point.z = coordinate(fields, "z");
}

// v may be missing where the picture is a line of colours; a depth may follow.
void ObjFile::readUv(TextFields& fields, SurfaceModel& model) const {
  const double u = fields.number("u");
  model.uvs.push_back({u, fields.atEnd() ? 0.0 : fields.number("v")});
}

void ObjFile::readNormal(TextFields& fields, SurfaceModel& model) {
  Point3DDouble& normal = model.normals.emplace_back();
  normal.x = fields.anyNumber("x of a normal");
  normal.y = fields.anyNumber("y of a normal");
  normal.z = fields.anyNumber("z of a normal");
  // Programs write such normals for triangles without area.
  if (std::isfinite(normal.length())) return;
  normal = {};
  _badNormals.add(_place.at);
}

void ObjFile::readFace(TextFields& fields, SurfaceModel& model) {
  _corners.clear();
  while (!fields.atEnd()) {
    const std::string_view field = fields.word("a corner");
    if (field.starts_with('#')) break;
    _corners.push_back(corner(field, model));
  }
  if (_corners.size() < 3) {
    _place.refuse("a face of " + std::to_string(_corners.size()) + " corners", "at least 3");
  }
  if (!_set) _set = &currentSet(model);
  std::vector<SurfaceModel::Triangle>& triangles = _set->triangles;
  // A point that comes only later in the file is nowhere yet.
  const bool areAllThere = std::ranges::all_of(_corners, [&model](const auto& corner) {
    return static_cast<std::size_t>(corner.point) < model.points.size();
  });
  if (_corners.size() == 3 || !areAllThere) {
    for (std::size_t i = 2; i < _corners.size(); ++i) {
      triangles.push_back({_corners[0], _corners[i - 1], _corners[i]});
    }
    return;
  }
  _polygon.clear();
  for (const SurfaceModel::Corner& corner : _corners) {
    _polygon.push_back(model.points[static_cast<std::size_t>(corner.point)]);
  }
  faceTriangles(_polygon, _triangles);
  for (const std::array<int, 3>& triangle : _triangles) {
    SurfaceModel::Triangle& added = triangles.emplace_back();
    for (std::size_t k = 0; k < 3; ++k) added[k] = _corners[static_cast<std::size_t>(triangle[k])];
  }
}

// POINT, POINT/UV, POINT//NORMAL or POINT/UV/NORMAL.
SurfaceModel::Corner ObjFile::corner(std::string_view field, const SurfaceModel& model) {
  SurfaceModel::Corner corner;
  std::string_view rest = field;
  const auto next = [&rest] {
    const std::size_t slash = std::min(rest.find('/'), rest.size());
    const std::string_view number = rest.substr(0, slash);
    rest.remove_prefix(std::min(slash + 1, rest.size()));
    return number;
  };
  corner.point = index(next(), _points, model.points.size(), field);
  if (const std::string_view uv = next(); !uv.empty()) {
    corner.uv = index(uv, _uvs, model.uvs.size(), field);
  }
  if (!rest.empty()) corner.normal = index(rest, _normals, model.normals.size(), field);
  return corner;
}

// Numbers count from 1, negative ones from -1 backwards from what was read last.
int ObjFile::index(std::string_view number, Kind& kind, std::size_t count,
                   std::string_view field) const {
  std::int64_t value = 0;
  const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
  if (error != std::errc() || end != number.data() + number.size()) {
    _place.refuse(quoted(field),
                  "a corner: POINT, POINT/UV, POINT//NORMAL or POINT/UV/NORMAL, each a number");
  }
  if (value < 0) value += static_cast<std::int64_t>(count) + 1;
  if (value < 1 || value > std::numeric_limits<int>::max()) {
    _place.refuse(
        "the " + std::string(kind.name) + " " + std::string(number) + " of " + quoted(field),
        "a number from 1 on, or one from -1 back to -" + std::to_string(count));
  }
  if (value > kind.farthest) {
    kind.farthest = value;
    kind.line = _place.at;
  }
  return static_cast<int>(value - 1);
}

// Objects and materials come into the model with their first face.
SurfaceModel::Set& ObjFile::currentSet(SurfaceModel& model) {
  const auto [object, isNewObject] = _objectNumbers.try_emplace(_objectName, model.objects.size());
  if (isNewObject) model.objects.push_back({_objectName, {}});
  int material = -1;
  if (!_materialName.empty()) {
    const auto [found, isNewMaterial] =
        _materialNumbers.try_emplace(_materialName, static_cast<int>(model.materials.size()));
    if (isNewMaterial) model.materials.emplace_back().name = _materialName;
    material = found->second;
  }
  std::vector<SurfaceModel::Set>& sets = model.objects[object->second].sets;
  const auto [set, isNewSet] =
      _setNumbers.try_emplace(std::pair(object->second, material), sets.size());
  if (isNewSet) sets.emplace_back().material = material;
  return sets[set->second];
}

}  // namespace tarn
