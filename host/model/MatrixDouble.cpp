#include "host/model/MatrixDouble.h"

#include <Eigen/LU>

#include <algorithm>

namespace tarn {

namespace {
using RowMajor = Eigen::Matrix<double, Eigen::Dynamic, Eigen::Dynamic, Eigen::RowMajor>;
}

MatrixDouble::MatrixDouble(int rows, int columns)
    : _rows(std::max(rows, 0)),
      _columns(std::max(columns, 0)),
      _elements(static_cast<std::size_t>(_rows) * static_cast<std::size_t>(_columns), 0.0) {}

MatrixDouble MatrixDouble::Identity(int size) {
  MatrixDouble result(size, size);
  for (int i = 1; i <= size; ++i) result(i, i) = 1.0;
  return result;
}

int MatrixDouble::invert() {
  if (_rows != _columns || _rows == 0) return 0;
  Eigen::Map<RowMajor> elements(_elements.data(), _rows, _columns);
  if (!elements.allFinite()) return 0;
  const Eigen::FullPivLU<RowMajor> decomposition(elements);
  if (!decomposition.isInvertible()) return 0;
  const RowMajor inverse = decomposition.inverse();
  if (!inverse.allFinite()) return 0;
  elements = inverse;
  return 1;
}

MatrixDouble MatrixDouble::transposed() const {
  MatrixDouble result(_columns, _rows);
  for (int row = 1; row <= _rows; ++row) {
    for (int column = 1; column <= _columns; ++column) result(column, row) = (*this)(row, column);
  }
  return result;
}

MatrixDouble operator*(const MatrixDouble& a, const MatrixDouble& b) {
  if (a.columns() != b.rows()) return {};
  MatrixDouble result(a.rows(), b.columns());
  for (int row = 1; row <= a.rows(); ++row) {
    for (int column = 1; column <= b.columns(); ++column) {
      double sum = 0.0;
      for (int k = 1; k <= a.columns(); ++k) sum += a(row, k) * b(k, column);
      result(row, column) = sum;
    }
  }
  return result;
}

}  // namespace tarn
