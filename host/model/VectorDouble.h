#pragma once

#include <cstddef>
#include <vector>

namespace tarn {

/// A vector of doubles. Elements are counted from 1.
class VectorDouble {
public:
  VectorDouble() = default;
  explicit VectorDouble(int size) : _elements(static_cast<std::size_t>(size), 0.0) {}

  int size() const { return static_cast<int>(_elements.size()); }

  /// The element at that place, from 1; not checked.
  double& operator()(int i) { return _elements[static_cast<std::size_t>(i - 1)]; }
  double operator()(int i) const { return _elements[static_cast<std::size_t>(i - 1)]; }

private:
  std::vector<double> _elements;
};

}  // namespace tarn
