#include "io/PlyBinarySource.h"

#include <limits>

namespace tarn {

namespace {

// The number of that type at `bytes`, as a Result that holds all its values.
template <typename Result>
Result valueAt(const char* bytes, PlyType type, std::endian order) {
  return visitPlyType(type, [&]<typename Number>(std::type_identity<Number>) {
    return static_cast<Result>(order == std::endian::little
                                   ? numberAt<Number, std::endian::little>(bytes)
                                   : numberAt<Number, std::endian::big>(bytes));
  });
}

}  // namespace

PlyBinarySource::PlyBinarySource(const std::string& file, std::string_view content,
                                 const PlyHeader& header)
    : _cursor(file, content),
      _start(_cursor),
      _order(header.form == PlyHeader::Form::eBigEndian ? std::endian::big : std::endian::little) {
  _cursor.bytes(header.size, "the header");
}

void PlyBinarySource::skipElement(const PlyElement& element) {
  if (element.hasLists()) return PlySource::skipElement(element);
  rows(element, static_cast<std::size_t>(element.count));
}

double PlyBinarySource::number(const PlyProperty& property) {
  return valueAt<double>(_cursor.bytes(sizeOf(property.type), property.name.c_str()), property.type,
                         _order);
}

std::int64_t PlyBinarySource::length(const PlyProperty& property, std::int64_t smallest) {
  const Place place = _cursor.place();
  const std::int64_t count = integer(*property.countType, property.name.c_str(), smallest,
                                     std::numeric_limits<std::uint32_t>::max());
  const auto most = _cursor.left() / sizeOf(property.type);
  if (static_cast<std::uint64_t>(count) > most) {
    place.refuse("a list of " + std::to_string(count), property.name + ", a list of at most " +
                                                           std::to_string(most) +
                                                           ", for which the file has room");
  }
  return count;
}

std::int64_t PlyBinarySource::entry(const PlyProperty& property, std::int64_t smallest,
                                    std::int64_t largest) {
  return integer(property.type, property.name.c_str(), smallest, largest);
}

void PlyBinarySource::skipValue(const PlyProperty& property) {
  const std::size_t size = sizeOf(property.type);
  const auto count = property.isList() ? static_cast<std::size_t>(length(property, 0)) : 1;
  _cursor.bytes(count * size, property.name.c_str());
}

const char* PlyBinarySource::rows(const PlyElement& element, std::size_t count) {
  return _cursor.bytes(count * element.smallestSize(), element.name.c_str());
}

std::string PlyBinarySource::surplus() {
  return _cursor.left() > 0 ? "byte " + std::to_string(_cursor.place().at) : "";
}

std::uint64_t PlyBinarySource::room(const PlyElement& element) const {
  return _cursor.left() / element.smallestSize();
}

std::int64_t PlyBinarySource::integer(PlyType type, const char* what, std::int64_t smallest,
                                      std::int64_t largest) {
  const Place place = _cursor.place();
  const auto value = valueAt<std::int64_t>(_cursor.bytes(sizeOf(type), what), type, _order);
  if (value < smallest || value > largest) {
    place.refuse(std::to_string(value), std::string(what) + ", a whole number from " +
                                            std::to_string(smallest) + " to " +
                                            std::to_string(largest));
  }
  return value;
}

}  // namespace tarn
