#include "host/model/TessellatedSurface.h"

namespace tarn {

VClass TessellatedSurfaceCls("TessellatedSurface", &SurfaceCls,
                             []() -> VObject* { return new TessellatedSurface; });

const VPathString* TessellatedSurface::GetTextureFile(int set) const {
  const Set* found = setOf(set);
  return found && found->textureFile ? &*found->textureFile : nullptr;
}

Material* TessellatedSurface::GetMaterialOfSet(int set) const {
  const Set* found = setOf(set);
  return found ? found->material : nullptr;
}

int TessellatedSurface::AddTriangleSet() {
  _allSets.add(&_sets.emplace_back().triangles);
  return _allSets.size() - 1;
}

void TessellatedSurface::SetTextureFile(int set, const VPathString& file) {
  if (Set* found = setOf(set)) found->textureFile = file;
}

void TessellatedSurface::SetMaterialOfSet(int set, Material* material) {
  if (Set* found = setOf(set)) found->material = material;
}

void TessellatedSurface::Reserve(int set, int triangles) {
  _allTriangles.reserve(_allTriangles.size() + triangles);
  _uvMatrices.reserve(_uvMatrices.size() + triangles);
  if (Set* found = setOf(set)) found->triangles.reserve(found->triangles.size() + triangles);
}

ThreeDPoint& TessellatedSurface::AddPoint(const Point3DDouble& position) {
  ThreeDPoint& point = _points.emplace_back();
  point.SetApproximation(Point3DRandom(position));
  return point;
}

const Point3DDouble& TessellatedSurface::AddNormal(const Point3DDouble& normal) {
  return _normals.emplace_back(normal);
}

Triangle& TessellatedSurface::AddTriangle(int set, ThreeDPoint* first, ThreeDPoint* second,
                                          ThreeDPoint* third) {
  Triangle& triangle = _triangles.emplace_back(first, second, third);
  _allTriangles.add(&triangle);
  if (Set* found = setOf(set)) found->triangles.add(&triangle);
  return triangle;
}

void TessellatedSurface::SetTextureCoordinates(Triangle& triangle,
                                               const std::array<std::array<double, 2>, 3>& uv) {
  auto* matrix = static_cast<MatrixDouble*>(_uvMatrices.atKey(&triangle));
  if (!matrix) {
    matrix = &_matrices.emplace_back(3, 2);
    _uvMatrices.atKeyPut(&triangle, matrix);
  }
  for (int corner = 0; corner < 3; ++corner) {
    const auto& [u, v] = uv[static_cast<std::size_t>(corner)];
    (*matrix)(corner + 1, 1) = u;
    (*matrix)(corner + 1, 2) = v;
  }
}

void TessellatedSurface::Clear() {
  for (Triangle& triangle : _triangles) _uvMatrices.removeKey(&triangle);
  _allTriangles.clear();
  _allSets.clear();
  _sets.clear();
  _triangles.clear();
  _matrices.clear();
  _normals.clear();
  _points.clear();
}

TessellatedSurface::Set* TessellatedSurface::setOf(int number) {
  return number >= 0 && number < GetNumTriangleSets() ? &_sets[static_cast<std::size_t>(number)]
                                                      : nullptr;
}

const TessellatedSurface::Set* TessellatedSurface::setOf(int number) const {
  return const_cast<TessellatedSurface*>(this)->setOf(number);
}

}  // namespace tarn
