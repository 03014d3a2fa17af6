#include "host/model/BasicAffine.h"

#include <cmath>

namespace tarn {

VClass BasicAffineCls("BasicAffine", &VObjectCls, []() -> VObject* { return new BasicAffine; });

namespace {
Point3DDouble rowTimes(const Point3DDouble& p, const MatrixDouble& m) {
  return {p.x * m(1, 1) + p.y * m(2, 1) + p.z * m(3, 1),
          p.x * m(1, 2) + p.y * m(2, 2) + p.z * m(3, 2),
          p.x * m(1, 3) + p.y * m(2, 3) + p.z * m(3, 3)};
}
}  // namespace

int BasicAffine::GetScale(double& scale) const {
  if (!HasScale()) return 0;
  scale = _scale;
  return 1;
}

int BasicAffine::GetTranslation(Point3DDouble& before, Point3DDouble& after) const {
  if (!HasTranslation()) return 0;
  before = _before;
  after = _after;
  return 1;
}

int BasicAffine::GetRotation(MatrixDouble** rotation) {
  if (!HasRotation()) return 0;
  _handedOut = _rotation;
  *rotation = &_handedOut;
  return 1;
}

void BasicAffine::SetScale(double scale) {
  _hasScale = 1;
  _scale = scale;
}

void BasicAffine::SetTranslation(const Point3DDouble& before, const Point3DDouble& after) {
  _hasTranslation = 1;
  _before = before;
  _after = after;
}

void BasicAffine::SetRotation(const MatrixDouble& rotation) {
  _hasRotation = 1;
  _rotation = rotation;
  _inverse = rotation;
  if (rotation.rows() != 3 || !_inverse.invert()) _inverse = MatrixDouble();
}

int BasicAffine::SetupAffine() {
  if (!std::isfinite(_scale) || _scale <= 0.0) return 0;
  if (!std::isfinite(_before.length()) || !std::isfinite(_after.length())) return 0;
  return _inverse.rows() == 3;
}

void BasicAffine::ConvertPoint(Point3DDouble& point) const {
  if (_inverse.rows() != 3) return;
  if (IsInverted()) {
    point = (1.0 / _scale) * (rowTimes(point - _after, _inverse) - _before);
  } else {
    point = rowTimes(_scale * point + _before, _rotation) + _after;
  }
}

}  // namespace tarn
