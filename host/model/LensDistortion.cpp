#include "host/model/LensDistortion.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace tarn {

namespace {

constexpr double nan = std::numeric_limits<double>::quiet_NaN();
constexpr double quarterTurn = std::numbers::pi / 2.0;
// Rays further than this from the axis (89.4 degrees) are beyond any lens that is
// described in the plane in front of the camera.
constexpr double widestRadius = 100.0;

// A number with its derivatives by the two coordinates of a point, so that the one
// statement of each formula gives the Jacobian too.
struct Dual {
  double value;
  double dx = 0.0;
  double dy = 0.0;

  Dual(double constant) : value(constant) {}  // NOLINT(google-explicit-constructor)
  Dual(double value_, double dx_, double dy_) : value(value_), dx(dx_), dy(dy_) {}

  friend Dual operator+(const Dual& a, const Dual& b) {
    return {a.value + b.value, a.dx + b.dx, a.dy + b.dy};
  }
  friend Dual operator*(const Dual& a, const Dual& b) {
    return {a.value * b.value, a.dx * b.value + a.value * b.dx, a.dy * b.value + a.value * b.dy};
  }
  friend Dual operator/(const Dual& a, const Dual& b) {
    const double quotient = a.value / b.value;
    return {quotient, (a.dx - quotient * b.dx) / b.value, (a.dy - quotient * b.dy) / b.value};
  }
};

template <typename Number>
struct Point {
  Number x;
  Number y;
};

bool isFisheye(LensDistortion::Kind kind) {
  return kind == LensDistortion::eFisheye || kind == LensDistortion::eThinPrismFisheye ||
         kind == LensDistortion::eRadTanThinPrismFisheye;
}

// The kinds whose inverse is a formula too.
bool hasClosedInverse(LensDistortion::Kind kind) {
  return kind == LensDistortion::eNone || kind == LensDistortion::eFieldOfView ||
         kind == LensDistortion::eDivision || kind == LensDistortion::eEnhancedUnified;
}

template <typename Number>
Number radialFactor(LensDistortion::Kind kind, const LensDistortion::Parameters& k,
                    const Number& r2) {
  switch (kind) {
    case LensDistortion::eRadial:
    case LensDistortion::eOpenCV:
      return 1.0 + r2 * (k[0] + r2 * k[1]);
    case LensDistortion::eFullOpenCV:
      return (1.0 + r2 * (k[0] + r2 * (k[1] + r2 * k[4]))) /
             (1.0 + r2 * (k[5] + r2 * (k[6] + r2 * k[7])));
    case LensDistortion::eFisheye:
      return 1.0 + r2 * (k[0] + r2 * (k[1] + r2 * (k[2] + r2 * k[3])));
    case LensDistortion::eThinPrismFisheye:
      return 1.0 + r2 * (k[0] + r2 * (k[1] + r2 * (k[4] + r2 * k[5])));
    case LensDistortion::eRadTanThinPrismFisheye:
      return 1.0 + r2 * (k[0] + r2 * (k[1] + r2 * (k[2] + r2 * (k[3] + r2 * (k[4] + r2 * k[5])))));
    default:
      return 1.0;
  }
}

template <typename Number>
Point<Number> tangential(const Point<Number>& p, const Number& r2, double p1, double p2) {
  const Number twice = 2.0 * p.x * p.y;
  return {p1 * twice + p2 * (r2 + 2.0 * p.x * p.x), p2 * twice + p1 * (r2 + 2.0 * p.y * p.y)};
}

// The kinds that are polynomials or quotients of such, in the plane where their terms
// act (of a fisheye that of the angles).
template <typename Number>
Point<Number> distorted(LensDistortion::Kind kind, const LensDistortion::Parameters& k,
                        const Point<Number>& p) {
  const Number r2 = p.x * p.x + p.y * p.y;
  const Number factor = radialFactor(kind, k, r2);
  const Point<Number> q{factor * p.x, factor * p.y};
  switch (kind) {
    case LensDistortion::eOpenCV:
    case LensDistortion::eFullOpenCV: {
      const Point<Number> t = tangential(p, r2, k[2], k[3]);
      return {q.x + t.x, q.y + t.y};
    }
    case LensDistortion::eThinPrismFisheye: {
      const Point<Number> t = tangential(p, r2, k[2], k[3]);
      return {q.x + t.x + k[6] * r2, q.y + t.y + k[7] * r2};
    }
    case LensDistortion::eRadTanThinPrismFisheye: {
      const Number q2 = q.x * q.x + q.y * q.y;
      const Point<Number> t = tangential(q, q2, k[7], k[6]);
      return {q.x + t.x + q2 * (k[8] + q2 * k[9]), q.y + t.y + q2 * (k[10] + q2 * k[11])};
    }
    default:
      return q;
  }
}

Point2DDouble scaled(const Point2DDouble& point, double factor) {
  return {factor * point.x, factor * point.y};
}

// From the plane in front of the camera to that of the angles.
Point2DDouble anglesOf(const Point2DDouble& ideal) {
  const double r = std::hypot(ideal.x, ideal.y);
  return r > 0.0 ? scaled(ideal, std::atan(r) / r) : ideal;
}

// And back: the angle is below a quarter turn.
Point2DDouble planeOf(const Point2DDouble& angles) {
  const double theta = std::hypot(angles.x, angles.y);
  return theta > 0.0 ? scaled(angles, std::tan(theta) / theta) : angles;
}

// The factor by which a point moves, by the field of view: the limits at a radius or
// an omega near zero come from the series atan(a) / a = 1 - a^2 / 3.
double fieldOfViewFactor(double omega, double r) {
  if (std::abs(omega) < 1e-6) return 1.0;
  const double slope = 2.0 * std::tan(omega / 2.0);
  const double a = r * slope;
  return std::abs(a) < 1e-6 ? slope / omega * (1.0 - a * a / 3.0) : std::atan(a) / (r * omega);
}

// How often a ray's distorted radius has to be multiplied to give the ideal one; not
// positive or NaN where there is none.
double closedInverseFactor(LensDistortion::Kind kind, const LensDistortion::Parameters& k,
                           double r) {
  switch (kind) {
    case LensDistortion::eFieldOfView: {
      const double omega = k[0];
      if (std::abs(omega) < 1e-6) return 1.0;
      const double slope = 2.0 * std::tan(omega / 2.0);
      const double a = r * std::abs(omega);
      if (!(a < quarterTurn)) return nan;
      return a < 1e-6 ? omega / slope * (1.0 + a * a / 3.0) : std::tan(r * omega) / (r * slope);
    }
    case LensDistortion::eDivision: {
      // With k above zero the ideal radius is largest, 1 / (2 sqrt(k)), where k r^2 = 1.
      const double kr2 = k[0] * r * r;
      return kr2 <= 1.0 ? 1.0 / (1.0 + kr2) : nan;
    }
    case LensDistortion::eEnhancedUnified: {
      const double alpha = k[0];
      const double br2 = k[1] * r * r;
      const double radicand = 1.0 - (2.0 * alpha - 1.0) * br2;
      if (!(radicand >= 0.0)) return nan;
      return (alpha * std::sqrt(radicand) + 1.0 - alpha) / (1.0 - alpha * alpha * br2);
    }
    default:
      return 1.0;
  }
}

}  // namespace

LensDistortion::LensDistortion(Kind kind, const Parameters& parameters)
    : _kind(kind), _parameters(parameters) {
  if (hasClosedInverse(kind)) return;
  // Walk outwards in steps of a tenth of a degree until the distorted radius no longer
  // grows; where it passes its maximum (or a pole) is then narrowed by thirds.
  constexpr int steps = 1000;
  const double widestAngle = isFisheye(kind) ? quarterTurn : std::atan(widestRadius);
  const auto radiusAt = [&](int step) {
    const double angle = widestAngle * step / steps;
    return isFisheye(kind) ? angle : std::tan(angle);
  };
  int step = 0;
  while (step < steps && radius(radiusAt(step + 1)) > radius(radiusAt(step))) ++step;
  _range = radiusAt(step);
  if (step == steps) return;
  double low = radiusAt(std::max(step - 1, 0));
  double high = radiusAt(step + 1);
  for (int i = 0; i < 100; ++i) {
    const double left = low + (high - low) / 3.0;
    const double right = high - (high - low) / 3.0;
    (radius(left) < radius(right) ? low : high) = radius(left) < radius(right) ? left : right;
  }
  _range = low;
}

Point2DDouble LensDistortion::Distort(const Point2DDouble& ideal) const {
  switch (_kind) {
    case eNone:
      return ideal;
    case eFieldOfView:
      return scaled(ideal, fieldOfViewFactor(_parameters[0], std::hypot(ideal.x, ideal.y)));
    case eDivision: {
      const double r2 = ideal.x * ideal.x + ideal.y * ideal.y;
      return scaled(ideal, 2.0 / (1.0 + std::sqrt(1.0 - 4.0 * _parameters[0] * r2)));
    }
    case eEnhancedUnified: {
      const double r2 = ideal.x * ideal.x + ideal.y * ideal.y;
      const double alpha = _parameters[0];
      return scaled(ideal, 1.0 / (alpha * std::sqrt(_parameters[1] * r2 + 1.0) + 1.0 - alpha));
    }
    default:
      break;
  }
  const Point2DDouble start = isFisheye(_kind) ? anglesOf(ideal) : ideal;
  const auto result = distorted<double>(_kind, _parameters, {start.x, start.y});
  return {result.x, result.y};
}

int LensDistortion::Undistort(const Point2DDouble& distortedPoint, Point2DDouble& ideal) const {
  const double target = std::hypot(distortedPoint.x, distortedPoint.y);
  if (!std::isfinite(target)) return 0;
  if (hasClosedInverse(_kind)) {
    const double factor = closedInverseFactor(_kind, _parameters, target);
    if (!(factor > 0.0) || !std::isfinite(factor)) return 0;
    ideal = scaled(distortedPoint, factor);
    return 1;
  }

  // Start where the radial part alone comes near the target from below: on that side
  // a Newton step does not leap over the fold.
  double low = 0.0;
  double high = _range;
  for (int i = 0; i < 12; ++i) {
    const double middle = 0.5 * (low + high);
    (radius(middle) < target ? low : high) = middle;
  }
  Point2DDouble p = target > 0.0 ? scaled(distortedPoint, low / target) : Point2DDouble{};

  const double tolerance = 1e-14 * (1.0 + target);
  const auto residualAt = [&](const Point2DDouble& at) {
    const auto image = distorted<double>(_kind, _parameters, {at.x, at.y});
    return std::hypot(image.x - distortedPoint.x, image.y - distortedPoint.y);
  };
  double residual = residualAt(p);
  for (int iteration = 0; iteration < 50 && !(residual <= tolerance); ++iteration) {
    const auto image = distorted<Dual>(_kind, _parameters, {{p.x, 1.0, 0.0}, {p.y, 0.0, 1.0}});
    const double dx = image.x.value - distortedPoint.x;
    const double dy = image.y.value - distortedPoint.y;
    const double determinant = image.x.dx * image.y.dy - image.x.dy * image.y.dx;
    if (!(determinant > 0.0)) return 0;
    const Point2DDouble step{(image.y.dy * dx - image.x.dy * dy) / determinant,
                             (image.x.dx * dy - image.y.dx * dx) / determinant};
    double part = 1.0;
    Point2DDouble next{p.x - step.x, p.y - step.y};
    while (part > 1e-6 && !(residualAt(next) < residual)) {
      part *= 0.5;
      next = {p.x - part * step.x, p.y - part * step.y};
    }
    if (!(residualAt(next) < residual)) break;
    p = next;
    residual = residualAt(p);
  }
  // Rounding may keep the residual from falling all the way.
  if (!(residual <= 100.0 * tolerance)) return 0;
  const double found = std::hypot(p.x, p.y);
  if (!(found <= _range * (1.0 + 1e-9))) return 0;
  if (!isFisheye(_kind)) {
    ideal = p;
    return 1;
  }
  if (!(found < quarterTurn)) return 0;
  ideal = planeOf(p);
  return 1;
}

// The distorted radius by the radial part alone.
double LensDistortion::radius(double idealRadius) const {
  return idealRadius * radialFactor(_kind, _parameters, idealRadius * idealRadius);
}

}  // namespace tarn
