#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VDictionary.h"
#include "host/classes/VOrdCollect.h"
#include "host/classes/VPathString.h"
#include "host/model/MatrixDouble.h"
#include "host/model/Surface.h"
#include "host/model/ThreeDPoint.h"
#include "host/model/Triangle.h"

#include <array>
#include <deque>
#include <optional>

namespace tarn {

extern TARN_HOST_EXPORT VClass TessellatedSurfaceCls;

/// A surface handed over as sets of triangles, each set with one texture or none. It owns its
/// triangles, points and normals; references to them stay valid until Clear.
///
///     const int set = surface.AddTriangleSet();
///     surface.SetTextureFile(set, "brick.jpg");
///     Triangle& triangle = surface.AddTriangle(set, &a, &b, &c);
///     surface.SetTextureCoordinates(triangle, {{{0.0, 0.0}, {1.0, 0.0}, {0.0, 1.0}}});
class TARN_HOST_EXPORT TessellatedSurface : public Surface {
public:
  TessellatedSurface() = default;
  TessellatedSurface(const TessellatedSurface&) = delete;
  TessellatedSurface& operator=(const TessellatedSurface&) = delete;

  /// The sets, in the order they were added: a VOrdCollect of VOrdCollect of Triangle.
  virtual VOrdCollect* GetTriangleSets() { return &_allSets; }
  /// From a Triangle that has texture coordinates to a MatrixDouble of three rows, row k of
  /// corner k, with u to the right and v downwards, both 0 to 1 over the picture.
  virtual VDictionary* GetUvMatrices() { return &_uvMatrices; }
  virtual int GetNumTriangleSets() const { return _allSets.size(); }
  /// The set's picture; null where it has none, and where there is no such set.
  virtual const VPathString* GetTextureFile(int set) const;
  /// The set's own material; null where it has none, and where there is no such set.
  virtual Material* GetMaterialOfSet(int set) const;
  /// The triangles of all sets, in the order they were added.
  VOrdCollect* GetTriangles() override { return &_allTriangles; }

  /// Adds an empty set and returns its number, counted from 0.
  int AddTriangleSet();
  /// These two pass over a set that there is not. The material is not owned.
  void SetTextureFile(int set, const VPathString& file);
  void SetMaterialOfSet(int set, Material* material);
  /// Makes room for as many triangles more in a set that must exist; nothing else changes.
  void Reserve(int set, int triangles);
  ThreeDPoint& AddPoint(const Point3DDouble& position);
  /// A normal of the surface's own, to be given to triangles.
  const Point3DDouble& AddNormal(const Point3DDouble& normal);
  /// Adds a triangle to a set that must exist. The points are not owned: they may be the
  /// surface's own or any others that outlive it.
  Triangle& AddTriangle(int set, ThreeDPoint* first, ThreeDPoint* second, ThreeDPoint* third);
  /// u and v of each corner. A second call for a triangle replaces the first.
  void SetTextureCoordinates(Triangle& triangle, const std::array<std::array<double, 2>, 3>& uv);
  /// Drops all sets with their triangles, points, normals and texture coordinates.
  void Clear();

  VClass* iam() const override { return &TessellatedSurfaceCls; }

private:
  struct Set {
    VOrdCollect triangles;
    std::optional<VPathString> textureFile;
    Material* material = nullptr;
  };
  Set* setOf(int number);
  const Set* setOf(int number) const;

  std::deque<ThreeDPoint> _points;
  std::deque<Point3DDouble> _normals;
  std::deque<Triangle> _triangles;
  std::deque<MatrixDouble> _matrices;
  std::deque<Set> _sets;
  VOrdCollect _allSets;
  VOrdCollect _allTriangles;
  VDictionary _uvMatrices;
};

}  // namespace tarn
