#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/general/Point3DDouble.h"
#include "host/model/MatrixDouble.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass BasicAffineCls;

/// A similarity transform of the model, target from source, in the row-vector
/// convention: a point p becomes ((s p) + P) R + Q. Each part may be absent.
class TARN_HOST_EXPORT BasicAffine : public VObject {
public:
  virtual int HasScale() const { return _hasScale; }
  virtual int HasTranslation() const { return _hasTranslation; }
  virtual int HasRotation() const { return _hasRotation; }

  /// Each returns non-zero when the part could be given.
  virtual int GetScale(double& scale) const;
  virtual int GetTranslation(Point3DDouble& before, Point3DDouble& after) const;
  /// Hands out a 3x3 matrix that belongs to the affine and holds the rotation until
  /// the next call. Callers invert it in place; the affine itself does not change.
  virtual int GetRotation(MatrixDouble** rotation);

  void SetScale(double scale);
  void SetTranslation(const Point3DDouble& before, const Point3DDouble& after);
  void SetRotation(const MatrixDouble& rotation);

  /// Prepares the affine for ConvertPoint. Returns 0 when it cannot be used: a
  /// scale that is not positive and finite, a translation that is not finite, or a
  /// rotation that is not 3x3 and invertible.
  virtual int SetupAffine();

  /// Non-zero while ConvertPoint converts source from target.
  virtual int IsInverted() const { return _inverted; }
  /// Chooses the direction of ConvertPoint: non-zero for source from target.
  virtual void DoInversion(int inverted) { _inverted = inverted; }

  /// Converts the point in place, in the chosen direction. The affine must be one that
  /// SetupAffine accepts; by any other the point stays as it is.
  virtual void ConvertPoint(Point3DDouble& point) const;

  VClass* iam() const override { return &BasicAffineCls; }

private:
  int _hasScale = 0;
  int _hasTranslation = 0;
  int _hasRotation = 0;
  int _inverted = 0;
  double _scale = 1.0;
  Point3DDouble _before;
  Point3DDouble _after;
  MatrixDouble _rotation = MatrixDouble::Identity(3);
  MatrixDouble _inverse = MatrixDouble::Identity(3);  // of _rotation; empty where there is none
  MatrixDouble _handedOut;
};

}  // namespace tarn
