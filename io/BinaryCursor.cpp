#include "io/BinaryCursor.h"

#include <cmath>

namespace tarn {

double BinaryCursor::number(const char* what) {
  const Place start = place();
  const double value = read<double>(what);
  if (!std::isfinite(value)) {
    start.refuse(std::isnan(value) ? "NaN" : "infinity", std::string(what) + ", a finite number");
  }
  return value;
}

std::string_view BinaryCursor::text(const char* what) {
  const std::string_view rest = _bytes.substr(_position);
  const std::size_t length = rest.find('\0');
  if (length == std::string_view::npos) {
    place().refuse("the end of the file before a zero byte",
                   std::string(what) + ", ended by a zero byte");
  }
  _position += length + 1;
  return rest.substr(0, length);
}

void BinaryCursor::expectEnd(const char* records) const {
  if (left() == 0) return;
  place().refuse(std::to_string(left()) + " bytes more",
                 std::string("the end of the file after its ") + records);
}

void BinaryCursor::refuseEnd(const char* what, std::size_t size) const {
  place().refuse("the end of the file after " + std::to_string(left()) + " bytes more",
                 std::string(what) + " (" + std::to_string(size) + " bytes)");
}

void BinaryCursor::checkCount(const Place& start, const char* what, std::uint64_t records,
                              std::size_t smallestRecord) const {
  const std::size_t most = left() / smallestRecord;
  if (records <= most) return;
  start.refuse(std::to_string(records), std::string(what) + " of at most " + std::to_string(most) +
                                            ", for which the file has room");
}

}  // namespace tarn
