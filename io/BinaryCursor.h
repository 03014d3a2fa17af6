#pragma once

#include "io/ByteOrder.h"
#include "io/Place.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarn {

/// Steps through the bytes of a file, little-endian where not said otherwise, and never beyond
/// their end. `what`
/// names a value in the error when it is refused.
class BinaryCursor {
public:
  /// Neither the path nor the bytes are copied: both outlive this object.
  BinaryCursor(const std::string& file, std::string_view bytes) : _file(&file), _bytes(bytes) {}

  template <typename Value>
  Value read(const char* what) {
    if (left() < sizeof(Value)) refuseEnd(what, sizeof(Value));
    const auto value = numberAt<Value, std::endian::little>(_bytes.data() + _position);
    _position += sizeof(Value);
    return value;
  }
  /// The next `size` bytes, as they stand in the file.
  const char* bytes(std::size_t size, const char* what) {
    if (left() < size) refuseEnd(what, size);
    const char* first = _bytes.data() + _position;
    _position += size;
    return first;
  }
  std::uint32_t id(const char* what) { return read<std::uint32_t>(what); }
  /// A number that is neither infinite nor NaN.
  double number(const char* what);
  /// A text that ends with a zero byte.
  std::string_view text(const char* what);
  /// How many records follow. Refuses more than the rest of the file can hold at
  /// `smallestRecord` bytes each, so that no file makes a reader ask for more memory
  /// than the file's own size accounts for.
  template <typename Count = std::uint64_t>
  std::size_t count(const char* what, std::size_t smallestRecord) {
    const Place start = place();
    const Count records = read<Count>(what);
    checkCount(start, what, records, smallestRecord);
    return static_cast<std::size_t>(records);
  }

  /// Refuses a file that goes on.
  void expectEnd(const char* records) const;
  /// The byte that is read next.
  Place place() const { return {_file, true, static_cast<long long>(_position)}; }
  /// How many bytes follow.
  std::size_t left() const { return _bytes.size() - _position; }
  /// How much of the file was read, 0 to 1.
  double done() const {
    return static_cast<double>(_position) / static_cast<double>(_bytes.size());
  }

private:
  [[noreturn]] void refuseEnd(const char* what, std::size_t size) const;
  void checkCount(const Place& start, const char* what, std::uint64_t records,
                  std::size_t smallestRecord) const;

  const std::string* _file;
  std::string_view _bytes;
  std::size_t _position = 0;
};

}  // namespace tarn
