#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VOrdCollect.h"
#include "host/classes/VString.h"
#include "host/general/Point3DDouble.h"
#include "host/model/BasicAffine.h"
#include "host/model/Extents.h"
#include "host/model/PointMeshContour.h"
#include "host/model/PointTriples.h"
#include "host/model/Surface.h"

#include <array>
#include <deque>
#include <memory>
#include <optional>
#include <span>
#include <vector>

namespace tarn {

extern TARN_HOST_EXPORT VClass PointMeshCls;

/// A dense point cloud, possibly triangulated, with or without a colour for each point.
///
/// Points are stored as floats. Where they lie far from the origin they are stored shifted,
/// and the mesh's local affine brings them to their place: "stored" below means without it.
/// A point takes 20 bytes, its colour 11 more, a triangle 12; the objects that GetTriangles
/// lists are made when they are first asked for.
///
///     PointMesh& mesh = project.AddPointMesh();
///     mesh.Allocate(count, 1);
///     const std::span<float> xyz = mesh.GetPointStorage();       // filled in place
///     const std::span<unsigned char> bgr = mesh.GetColourStorage();
class TARN_HOST_EXPORT PointMesh : public Surface {
public:
  /// The corners of a triangle as indexes of points, counted from 0.
  using Corners = std::array<int, 3>;

  PointMesh();
  PointMesh(const PointMesh&) = delete;
  PointMesh& operator=(const PointMesh&) = delete;
  ~PointMesh() override;

  /// Makes room for that many points, with colours where `withColours` is non-zero. Earlier
  /// points, triangles and contours are dropped; the new points are whatever the memory holds
  /// until GetPointStorage was written. Throws std::bad_alloc where there is no such memory.
  void Allocate(int points, int withColours);
  /// All positions in the order x, y, z, and all colours in the order blue, green, red; empty
  /// where there are none. Whoever writes after the mesh was first asked for its box calls
  /// PointsChanged.
  std::span<float> GetPointStorage() { return _points.numbers(); }
  std::span<unsigned char> GetColourStorage() { return _colours.numbers(); }
  /// Keeps the first `points` points and drops triangles and contours; the memory of the
  /// others is kept. A number that is not below the present one changes nothing.
  void Truncate(int points);
  /// Keeps the points whose flag is set, in their order, with colours and normals, and the
  /// triangles of which all corners are kept; drops the contours. Flags that are missing count
  /// as not set. Linear; the memory of the others is kept.
  void KeepPoints(const std::vector<bool>& kept);
  /// Says that positions were written: the box is found anew.
  void PointsChanged() { _storedBox.reset(); }
  /// Sets the triangles, and with them a normal for each point (stored frame) or none.
  /// Returns 0, and changes nothing, where a corner is no point of the mesh or the number of
  /// normals is neither that of the points nor zero.
  int SetTriangles(std::vector<Corners> triangles, std::vector<Point3DDouble> normals = {});
  /// Sets the transform that brings stored points into the model, in its direction of
  /// conversion. One that cannot be set up is kept and handed out, but moves no point.
  void SetLocalAffine(const BasicAffine& affine);
  void ClearLocalAffine() { _localAffine.reset(); }
  /// A new contour of the mesh, to be filled; it stays where it is until ClearContours or
  /// Allocate.
  PointMeshContour& AddContour();
  void ClearContours();
  void SetName(const VString& name) { _name = name; }

  /// Pointers to three floats for each point, stored frame; null before Allocate.
  virtual float** GetPoints() const { return _points.rows(); }
  virtual int GetNumPoints() const { return _points.count(); }
  virtual int GetNumTriangles() const { return static_cast<int>(_triangles.size()); }
  /// Pointers to three bytes for each point in the order blue, green, red; null where the
  /// points have no colours.
  virtual unsigned char** GetRGBsForPoints() const { return _colours.rows(); }
  /// The stored point of that index, counted from 0; the origin where there is none.
  virtual Point3DDouble GetPoint(int index) const;
  /// The same point in the model: with the local affine applied.
  virtual Point3DDouble GetModelPoint(int index) const;
  /// The indexes of a triangle's corners, and the corners in the stored frame. Returns 0, and
  /// changes nothing, where there is no such triangle.
  virtual int GetTriangleCorners(int index, Corners& corners) const;
  virtual int GetTrianglePoints(int index, Point3DDouble corners[3]) const;
  virtual int HasLocalAffine() const { return _localAffine.has_value(); }
  /// A new copy of the local affine, which the caller deletes; null where there is none.
  virtual BasicAffine* GetLocalAffine() const;
  /// The box of the points: of the stored ones with `stored` non-zero, which are those that a
  /// ramp of heights colours; else of those in the model. Each is brought through `affine`
  /// then, in its direction of conversion (null, or one that cannot be set up: as it is).
  /// Points with a coordinate that is not finite are left out. Returns 0, and changes nothing,
  /// where no point is left. Without a rotation on the way it costs nothing the second time.
  virtual int GetBoundingBox(Point3DDouble& minimum, Point3DDouble& maximum, BasicAffine* affine,
                             int stored) const;
  /// The contours, of class PointMeshContour, in the order they were added.
  virtual const VOrdCollect& GetContours() const { return _allContours; }
  virtual const VString& GetName() const { return _name; }

  /// The triangles as objects: their points are of class ThreeDPointFromPointMesh, their
  /// normals those given. Made when first asked for; good until points or triangles are set.
  VOrdCollect* GetTriangles() override;

  VClass* iam() const override { return &PointMeshCls; }

private:
  struct TriangleObjects;

  void dropTriangles();
  /// The local affine where it can be used; else null.
  const BasicAffine* usableLocalAffine() const;
  const Extents& storedBox() const;

  PointTriples<float> _points;
  PointTriples<unsigned char> _colours;
  std::vector<Corners> _triangles;
  std::vector<Point3DDouble> _normals;
  std::unique_ptr<TriangleObjects> _triangleObjects;
  std::optional<BasicAffine> _localAffine;
  bool _localAffineIsUsable = false;
  mutable std::optional<Extents> _storedBox;
  std::deque<PointMeshContour> _contours;
  VOrdCollect _allContours;
  VString _name;
};

}  // namespace tarn
