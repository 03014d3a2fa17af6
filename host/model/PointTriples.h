#pragma once

#include "host/general/LargePages.h"

#include <cstddef>
#include <memory>
#include <span>

namespace tarn {

/// Three numbers for each of many points, one after the other, with a pointer to each point's
/// three: hosts read the pointers, readers fill the numbers in place. A point costs three
/// numbers and a pointer.
template <typename Number>
class PointTriples {
public:
  /// Makes room for that many points and forgets earlier ones. The numbers are whatever the
  /// memory holds until they are written.
  void allocate(int points) {
    _count = points > 0 ? points : 0;
    const auto count = static_cast<std::size_t>(_count);
    _numbers = std::make_unique_for_overwrite<Number[]>(3 * count);
    _rows = std::make_unique_for_overwrite<Number*[]>(count);
    adviseLargePages(_numbers.get(), 3 * count * sizeof(Number));
    adviseLargePages(_rows.get(), count * sizeof(Number*));
    for (std::size_t i = 0; i < count; ++i) _rows[i] = _numbers.get() + 3 * i;
  }

  /// Keeps the first `points` only.
  void truncate(int points) {
    if (points >= 0 && points < _count) _count = points;
  }

  void clear() { *this = PointTriples(); }

  int count() const { return _count; }
  /// Pointers to each point's three numbers; null before anything was allocated.
  Number** rows() const { return _rows.get(); }
  /// All numbers, three to a point.
  std::span<Number> numbers() const {
    return {_numbers.get(), 3 * static_cast<std::size_t>(_count)};
  }

private:
  int _count = 0;
  std::unique_ptr<Number[]> _numbers;
  std::unique_ptr<Number*[]> _rows;
};

}  // namespace tarn
