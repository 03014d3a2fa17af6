#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/KnotVector.h"
#include "host/model/TessellatedSurface.h"

#include <vector>

namespace tarn {

extern TARN_HOST_EXPORT VClass NURBSSurfaceCls;

/// A smooth surface, fitted to measured points: a non-uniform rational B-spline in two parameters
/// u and v (Piegl and Tiller, The NURBS Book, 2nd ed., 4.4), and the triangles that were last made
/// of it.
///
///     surface.SetSurface(3, knotsU, 3, knotsV, controlPoints);
///     if (surface.Tessellate(0.001)) {
///       VOrdCollect* sets = surface.GetTriangleSets();
///       node->SetNurbsSurface(&surface, &dictionary, hints, hints, nullptr, &sets, nullptr);
///     }
class TARN_HOST_EXPORT NURBSSurface : public TessellatedSurface {
public:
  /// Sets the whole surface; its triangles stay as they are until Tessellate. The control points,
  /// in model coordinates, run along u first: number i of u and j of v is the one at j * (count in
  /// u) + i. Returns 0, and changes nothing, where the knots of either direction do not make a
  /// spline (see KnotVector::make), the counts in u and v, which follow from them, do not multiply
  /// to that of the control points, a coordinate is not finite or beyond 1e60, or there is not one
  /// weight, 1e-60 to 1e60, for each. No weights at all stand for weights of 1.
  int SetSurface(int degreeU, const std::vector<double>& knotsU, int degreeV,
                 const std::vector<double>& knotsV, const std::vector<Point3DDouble>& controlPoints,
                 const std::vector<double>& weights = {});

  /// 0 while the surface is not set.
  virtual int GetDegreeU() const { return _knotsU.degree(); }
  virtual int GetDegreeV() const { return _knotsV.degree(); }
  virtual const std::vector<double>& GetKnotsU() const { return _knotsU.knots(); }
  virtual const std::vector<double>& GetKnotsV() const { return _knotsV.knots(); }
  virtual const std::vector<Point3DDouble>& GetControlPoints() const { return _controlPoints; }
  virtual const std::vector<double>& GetWeights() const { return _weights; }

  /// Makes the triangles anew, in one set, such that no point of the surface is farther than
  /// `tolerance`, in project units, from them (see SurfaceGrid, which tells how sure that is).
  /// They stand in rows along u and v without gaps, also where two edges of the surface meet, and
  /// have corners at every knot. Triangles without area, at a pole, are left out.
  ///
  /// A corner's normal is the surface's own, of length 1, to the side from which u and v turn
  /// counter-clockwise, as the corners do; at a kink each side has its own, at a pole it is that
  /// nearby, and where the surface has none, null. Texture coordinates are u and v from 0 to 1 over
  /// the whole surface; the picture's lower left corner is at the begin of both, so that it reads
  /// rightly from the side of the normals. The picture and the material of the first set are kept.
  ///
  /// Returns 0, and changes nothing, for a surface that is not set, for a tolerance that is not
  /// positive and finite, and where more than `mostTriangles` would be needed.
  virtual int Tessellate(double tolerance);

  static constexpr int mostTriangles = 10'000'000;

  VClass* iam() const override { return &NURBSSurfaceCls; }

private:
  KnotVector _knotsU;
  KnotVector _knotsV;
  std::vector<Point3DDouble> _controlPoints;
  std::vector<double> _weights;
};

}  // namespace tarn
