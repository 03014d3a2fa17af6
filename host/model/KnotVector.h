#pragma once

#include "host/TarnOIHostExport.h"
#include "host/model/HomogeneousPoint.h"

#include <optional>
#include <utility>
#include <vector>

namespace tarn {

/// The knots of a B-spline in one direction, with its degree (Piegl and Tiller, The NURBS Book,
/// 2nd ed., chapter 2). Repeated knots at the ends are usual and not required: the parameter runs
/// from knot number `degree` to that of the same number from behind.
class TARN_HOST_EXPORT KnotVector {
public:
  static constexpr int highestDegree = 24;
  static constexpr double shortestSpan = 1e-60;  ///< 1 over it has to be a number

  /// Two neighbouring knots that differ: between them the spline is one polynomial.
  struct Span {
    double begin;
    double end;
    int knot;  ///< the number of the one at `begin`, the last of its repetitions
  };

  /// The basis functions that do not vanish at one parameter: `degree` + 1 of them, of the control
  /// points from `first` on, with their first derivatives. The arrays are the BasisTable's.
  struct Basis {
    int first;
    const double* values;
    const double* derivatives;
  };
  class BasisTable;

  /// A spline without anything.
  KnotVector() = default;
  /// The knots of a spline, which has as many control points as there are knots, less the degree
  /// and one. None where they do not make one: the degree is not 1 to `highestDegree`, or not
  /// below the number of control points; a knot is not finite or below the one before; a knot is
  /// repeated more than `degree` times, at an end once more; knots that differ are nearer than
  /// `shortestSpan`; or the parameter has no room.
  static std::optional<KnotVector> make(int degree, std::vector<double> knots);

  int degree() const { return _degree; }
  const std::vector<double>& knots() const { return _knots; }
  int controlPoints() const { return static_cast<int>(_knots.size()) - _degree - 1; }
  bool isEmpty() const { return _knots.empty(); }

  double begin() const { return _knots[static_cast<std::size_t>(_degree)]; }
  double end() const { return _knots[_knots.size() - static_cast<std::size_t>(_degree) - 1]; }
  std::vector<Span> spans() const;

  /// The control point that the spline passes through at that parameter because a knot is
  /// repeated there `degree` times or more; -1 where there is none.
  int interpolatedAt(double parameter) const;
  /// Whether the spline may have a kink there: at a knot as in interpolatedAt, between the ends.
  bool mayKinkAt(double parameter) const;

  /// The basis at many parameters. At a knot it is that of the span that begins there, at the
  /// end that of the last one.
  BasisTable basisAt(const std::vector<double>& parameters) const;

  /// The control points of a span as a Bézier curve, from those of the whole spline: polar values
  /// at the span's ends (The NURBS Book, 5.3; Ramshaw 1989). Appends degree + 1 points.
  void appendBezier(const Span& span, const std::vector<HomogeneousPoint>& controlPoints,
                    std::vector<HomogeneousPoint>& bezier) const;

private:
  KnotVector(int degree, std::vector<double> knots) : _degree(degree), _knots(std::move(knots)) {}

  int _degree = 0;
  std::vector<double> _knots;
};

class TARN_HOST_EXPORT KnotVector::BasisTable {
public:
  int size() const { return static_cast<int>(_first.size()); }
  Basis operator[](int i) const {
    const auto number = static_cast<std::size_t>(i);
    const double* values = _numbers.data() + number * 2 * _order;
    return {_first[number], values, values + _order};
  }

private:
  friend class KnotVector;
  std::size_t _order = 0;
  std::vector<int> _first;
  std::vector<double> _numbers;
};

}  // namespace tarn
