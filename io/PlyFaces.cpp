#include "io/PlyFaces.h"

#include <limits>

namespace tarn {

namespace {

constexpr const char* polygons = "face";
constexpr const char* strips = "tristrips";

const PlyProperty& cornersOf(const PlyElement& element) {
  for (const char* name : {"vertex_indices", "vertex_index"}) {
    const std::optional<std::size_t> found = element.find(name);
    if (!found) continue;
    const PlyProperty& corners = element.properties[*found];
    if (!corners.isList() || !isInteger(corners.type)) {
      corners.place.refuse("another kind of property", quoted(name) + ", a list of integers");
    }
    return corners;
  }
  element.place.refuse(quoted(element.name) + " without corners",
                       "the list \"vertex_indices\" or \"vertex_index\"");
}

}  // namespace

bool PlyFaces::areIn(const PlyElement& element) {
  return element.name == polygons || element.name == strips;
}

void PlyFaces::read(const PlyElement& element, PlySource& source, ReadProgress& progress) {
  if (element.count == 0) return;
  const PlyProperty& corners = cornersOf(element);
  if (_vertices == 0) {
    element.place.refuse(std::to_string(element.count) + " records of " + quoted(element.name),
                         "none where there are no vertices");
  }
  const bool areStrips = element.name == strips;
  if (!areStrips) _triangles.reserve(static_cast<std::size_t>(element.count));
  for (std::uint64_t i = 0; i < element.count; ++i) {
    source.beginRecord();
    for (const PlyProperty& property : element.properties) {
      if (&property != &corners) {
        source.skipValue(property);
      } else if (areStrips) {
        readStrips(corners, source);
      } else {
        readPolygon(corners, source);
      }
    }
    source.endRecord();
    if (_triangles.size() > std::numeric_limits<int>::max()) {
      element.place.refuse("more triangles than that",
                           "at most " + std::to_string(std::numeric_limits<int>::max()));
    }
    if (i % 1024 == 0) progress.at(source.done());
  }
}

void PlyFaces::readPolygon(const PlyProperty& corners, PlySource& source) {
  const std::int64_t length = source.length(corners, 3);
  const auto corner = [&] { return static_cast<int>(source.entry(corners, 0, _vertices - 1)); };
  const int first = corner();
  int previous = corner();
  for (std::int64_t i = 2; i < length; ++i) {
    const int next = corner();
    _triangles.push_back({first, previous, next});
    previous = next;
  }
}

void PlyFaces::readStrips(const PlyProperty& corners, PlySource& source) {
  const std::int64_t length = source.length(corners, 0);
  PointMesh::Corners last{};  // of the strip, the latest at the end
  std::int64_t inStrip = 0;
  for (std::int64_t i = 0; i < length; ++i) {
    const int next = static_cast<int>(source.entry(corners, -1, _vertices - 1));
    inStrip = next < 0 ? 0 : inStrip + 1;
    last = {last[1], last[2], next};
    if (inStrip < 3) continue;
    // Strips are joined by triangles without an area.
    if (last[0] == last[1] || last[1] == last[2] || last[2] == last[0]) continue;
    // Every second triangle of a strip is turned over.
    if (inStrip % 2 == 1) {
      _triangles.push_back(last);
    } else {
      _triangles.push_back({last[1], last[0], last[2]});
    }
  }
}

std::size_t PlyFaces::renumber(const std::vector<int>& newIndexes) {
  const auto keeps = [&newIndexes](PointMesh::Corners& triangle) {
    for (int& corner : triangle) corner = newIndexes[static_cast<std::size_t>(corner)];
    return triangle[0] >= 0 && triangle[1] >= 0 && triangle[2] >= 0;
  };
  return std::erase_if(_triangles, [&](PointMesh::Corners& triangle) { return !keeps(triangle); });
}

}  // namespace tarn
