#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/classes/VOrdCollect.h"
#include "host/general/Point3DDouble.h"
#include "host/model/KnotVector.h"
#include "host/model/ThreeDPoint.h"

#include <vector>

namespace tarn {

extern TARN_HOST_EXPORT VClass NURBSCurveCls;

/// A smooth curve, fitted to measured points: a non-uniform rational B-spline (Piegl and Tiller,
/// The NURBS Book, 2nd ed., chapter 4).
///
///     NURBSCurve quarter;  // of a circle of radius 1
///     quarter.SetCurve(2, {0, 0, 0, 1, 1, 1}, {{1, 0, 0}, {1, 1, 0}, {0, 1, 0}},
///                      {1, std::sqrt(0.5), 1});
class TARN_HOST_EXPORT NURBSCurve : public VObject {
public:
  NURBSCurve() = default;
  NURBSCurve(const NURBSCurve&) = delete;
  NURBSCurve& operator=(const NURBSCurve&) = delete;

  /// Sets the whole curve; control points in model coordinates. Returns 0, and changes nothing,
  /// where the knots do not make a spline (see KnotVector::make), a coordinate is not finite or
  /// beyond 1e60, or there is not one weight, 1e-60 to 1e60, for each control point. No weights
  /// at all stand for weights of 1.
  int SetCurve(int degree, const std::vector<double>& knots,
               const std::vector<Point3DDouble>& controlPoints,
               const std::vector<double>& weights = {});

  /// 0 while the curve is not set.
  virtual int GetDegree() const { return _knots.degree(); }
  virtual const std::vector<double>& GetKnots() const { return _knots.knots(); }
  virtual const std::vector<Point3DDouble>& GetControlPoints() const { return _controlPoints; }
  virtual const std::vector<double>& GetWeights() const { return _weights; }

  /// Points of the curve, of class ThreeDPoint, such that no point of the curve is farther than
  /// `tolerance`, in project units, from the line through them (see ChordSubdivision). Both ends
  /// and each knot between them have a point, so that kinks are kept. The collection and its
  /// points are the curve's own and stay until the next call, or until the curve is set anew.
  /// Null for a curve that is not set, for a tolerance that is not positive and finite, and where
  /// more than `mostPoints` points would be needed.
  /// @param knotPoints where not null, receives a collection, owned likewise, of the indexes of
  ///                   those points that stand at knots; null with the points
  virtual VOrdCollect* Tess3D(double tolerance, VOrdCollect** knotPoints);

  static constexpr int mostPoints = 10'000'000;

  VClass* iam() const override { return &NURBSCurveCls; }

private:
  KnotVector _knots;
  std::vector<Point3DDouble> _controlPoints;
  std::vector<double> _weights;
  std::vector<ThreeDPoint> _points;
  VOrdCollect _allPoints;
  VOrdCollect _knotPoints;
};

}  // namespace tarn
