#include "host/model/PointMesh.h"

#include "host/general/LargePages.h"
#include "host/model/ThreeDPointFromPointMesh.h"
#include "host/model/Triangle.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <utility>

namespace tarn {

VClass PointMeshCls("PointMesh", &SurfaceCls, []() -> VObject* { return new PointMesh; });

/// What GetTriangles hands out: every point and triangle once, one after the other.
struct PointMesh::TriangleObjects {
  std::vector<ThreeDPointFromPointMesh> points;
  std::vector<Triangle> triangles;
  VOrdCollect collection;
};

namespace {

Point3DDouble pointOf(const float* row) {
  return {static_cast<double>(row[0]), static_cast<double>(row[1]), static_cast<double>(row[2])};
}

/// An empty vector with room for `count` values, to be filled at once.
template <typename Value>
void reserve(std::vector<Value>& values, std::size_t count) {
  values.reserve(count);
  adviseLargePages(values.data(), count * sizeof(Value));
}

/// The box of those stored points that are finite.
Extents boxOf(const float* const* points, int count) {
  constexpr float infinity = std::numeric_limits<float>::infinity();
  float low[3] = {infinity, infinity, infinity};
  float high[3] = {-infinity, -infinity, -infinity};
  for (int i = 0; i < count; ++i) {
    const float* row = points[i];
    // A number less itself is zero, or it is not finite.
    if ((row[0] - row[0]) + (row[1] - row[1]) + (row[2] - row[2]) != 0.0F) continue;
    for (int k = 0; k < 3; ++k) {
      low[k] = std::min(low[k], row[k]);
      high[k] = std::max(high[k], row[k]);
    }
  }
  return {pointOf(low), pointOf(high)};  // empty while they are infinite
}

bool keepsBoxesUpright(const BasicAffine* affine) { return !affine || !affine->HasRotation(); }

}  // namespace

PointMesh::PointMesh() = default;

PointMesh::~PointMesh() = default;

void PointMesh::Allocate(int points, int withColours) {
  dropTriangles();
  ClearContours();
  PointsChanged();
  _points.allocate(points);
  if (withColours) {
    _colours.allocate(points);
  } else {
    _colours.clear();
  }
}

void PointMesh::Truncate(int points) {
  if (points < 0 || points >= _points.count()) return;
  dropTriangles();
  ClearContours();
  PointsChanged();
  _points.truncate(points);
  _colours.truncate(points);
}

void PointMesh::KeepPoints(const std::vector<bool>& kept) {
  const std::span<float> positions = GetPointStorage();
  const std::span<unsigned char> colours = GetColourStorage();
  std::vector<Corners> triangles = std::move(_triangles);
  std::vector<Point3DDouble> normals = std::move(_normals);
  static constexpr int dropped = -1;
  std::vector<int> renumbered(static_cast<std::size_t>(GetNumPoints()), dropped);
  std::size_t count = 0;
  for (std::size_t i = 0; i < renumbered.size(); ++i) {
    if (i >= kept.size() || !kept[i]) continue;
    // A point moves to the front of itself, never onto one that is still to come.
    std::ranges::copy(positions.subspan(3 * i, 3),
                      positions.begin() + static_cast<long>(3 * count));
    if (!colours.empty()) {
      std::ranges::copy(colours.subspan(3 * i, 3), colours.begin() + static_cast<long>(3 * count));
    }
    if (!normals.empty()) normals[count] = normals[i];
    renumbered[i] = static_cast<int>(count++);
  }
  if (!normals.empty()) normals.resize(count);
  std::erase_if(triangles, [&renumbered](Corners& corners) {
    for (int& corner : corners) corner = renumbered[static_cast<std::size_t>(corner)];
    return std::ranges::count(corners, dropped) > 0;
  });
  dropTriangles();
  ClearContours();
  PointsChanged();
  _points.truncate(static_cast<int>(count));
  _colours.truncate(static_cast<int>(count));
  SetTriangles(std::move(triangles), std::move(normals));
}

int PointMesh::SetTriangles(std::vector<Corners> triangles, std::vector<Point3DDouble> normals) {
  const int count = _points.count();
  if (!normals.empty() && normals.size() != static_cast<std::size_t>(count)) return 0;
  for (const Corners& corners : triangles) {
    for (const int corner : corners) {
      if (corner < 0 || corner >= count) return 0;
    }
  }
  dropTriangles();
  _triangles = std::move(triangles);
  _normals = std::move(normals);
  return 1;
}

void PointMesh::SetLocalAffine(const BasicAffine& affine) {
  _localAffine = affine;
  _localAffineIsUsable = _localAffine->SetupAffine() != 0;
}

PointMeshContour& PointMesh::AddContour() {
  PointMeshContour& contour = _contours.emplace_back();
  _allContours.add(&contour);
  return contour;
}

void PointMesh::ClearContours() {
  _allContours.clear();
  _contours.clear();
}

Point3DDouble PointMesh::GetPoint(int index) const {
  float** const points = GetPoints();
  return points && index >= 0 && index < GetNumPoints() ? pointOf(points[index]) : Point3DDouble();
}

Point3DDouble PointMesh::GetModelPoint(int index) const {
  Point3DDouble point = GetPoint(index);
  if (const BasicAffine* affine = usableLocalAffine()) affine->ConvertPoint(point);
  return point;
}

int PointMesh::GetTriangleCorners(int index, Corners& corners) const {
  if (index < 0 || index >= GetNumTriangles()) return 0;
  corners = _triangles[static_cast<std::size_t>(index)];
  return 1;
}

int PointMesh::GetTrianglePoints(int index, Point3DDouble corners[3]) const {
  Corners indexes;
  if (!GetTriangleCorners(index, indexes)) return 0;
  for (std::size_t k = 0; k < 3; ++k) corners[k] = GetPoint(indexes[k]);
  return 1;
}

BasicAffine* PointMesh::GetLocalAffine() const {
  return _localAffine ? new BasicAffine(*_localAffine) : nullptr;
}

int PointMesh::GetBoundingBox(Point3DDouble& minimum, Point3DDouble& maximum, BasicAffine* affine,
                              int stored) const {
  const BasicAffine* steps[] = {stored ? nullptr : usableLocalAffine(),
                                affine && affine->SetupAffine() ? affine : nullptr};
  const auto converted = [&steps](Point3DDouble point) {
    for (const BasicAffine* step : steps) {
      if (step) step->ConvertPoint(point);
    }
    return point;
  };
  Extents box;
  Point3DDouble low;
  Point3DDouble high;
  if (std::ranges::all_of(steps, keepsBoxesUpright)) {
    // Corners go to corners, and each number the way that it would go in any point.
    if (!storedBox().GetExtents(low, high)) return 0;
    box = Extents(converted(low), converted(high));
  } else {
    float** const points = GetPoints();
    const int count = points ? GetNumPoints() : 0;
    for (int i = 0; i < count; ++i) box.Add(converted(pointOf(points[i])));
  }
  return box.GetExtents(minimum, maximum);
}

VOrdCollect* PointMesh::GetTriangles() {
  if (_triangleObjects) return &_triangleObjects->collection;
  auto objects = std::make_unique<TriangleObjects>();
  reserve(objects->points, static_cast<std::size_t>(_points.count()));
  for (int i = 0; i < _points.count(); ++i) objects->points.emplace_back(this, i);
  reserve(objects->triangles, _triangles.size());
  objects->collection.reserve(GetNumTriangles());
  for (const Corners& corners : _triangles) {
    Triangle& triangle = objects->triangles.emplace_back();
    for (int k = 0; k < 3; ++k) {
      const auto point = static_cast<std::size_t>(corners[static_cast<std::size_t>(k)]);
      triangle.SetPoint(k, &objects->points[point]);
      if (!_normals.empty()) triangle.SetNormal(k, &_normals[point]);
    }
    objects->collection.add(&triangle);
  }
  _triangleObjects = std::move(objects);
  return &_triangleObjects->collection;
}

void PointMesh::dropTriangles() {
  _triangleObjects.reset();
  _triangles.clear();
  _normals.clear();
}

const BasicAffine* PointMesh::usableLocalAffine() const {
  return _localAffine && _localAffineIsUsable ? &*_localAffine : nullptr;
}

const Extents& PointMesh::storedBox() const {
  if (!_storedBox) {
    float** const points = GetPoints();
    _storedBox = boxOf(points, points ? GetNumPoints() : 0);
  }
  return *_storedBox;
}

}  // namespace tarn
