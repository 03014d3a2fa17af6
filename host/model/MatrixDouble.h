#pragma once

#include "host/TarnOIHostExport.h"

#include <cstddef>
#include <vector>

namespace tarn {

/// A dense matrix of doubles. Rows and columns are counted from 1.
class TARN_HOST_EXPORT MatrixDouble {
public:
  MatrixDouble() = default;
  /// A matrix of zeros; a negative size counts as 0.
  MatrixDouble(int rows, int columns);

  static MatrixDouble Identity(int size);

  int rows() const { return _rows; }
  int columns() const { return _columns; }

  /// The element in that row and column, both from 1; not checked.
  double& operator()(int row, int column) { return _elements[at(row, column)]; }
  double operator()(int row, int column) const { return _elements[at(row, column)]; }

  /// Replaces the matrix by its inverse. Returns 0, and leaves it as it was, when it
  /// is empty, not square, not finite or not invertible; non-zero otherwise.
  int invert();

  MatrixDouble transposed() const;

  /// The product; an empty matrix when `a` has not as many columns as `b` has rows.
  friend TARN_HOST_EXPORT MatrixDouble operator*(const MatrixDouble& a, const MatrixDouble& b);
  friend bool operator==(const MatrixDouble&, const MatrixDouble&) = default;

private:
  std::size_t at(int row, int column) const {
    return static_cast<std::size_t>(row - 1) * static_cast<std::size_t>(_columns) +
           static_cast<std::size_t>(column - 1);
  }
  int _rows = 0;
  int _columns = 0;
  std::vector<double> _elements;
};

}  // namespace tarn
