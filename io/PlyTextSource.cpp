#include "io/PlyTextSource.h"

#include <limits>

namespace tarn {

PlyTextSource::PlyTextSource(const std::string& file, std::string_view content,
                             const PlyHeader& header)
    : _lines(file, content, header.size, header.lines),
      _start(_lines),
      _fields(_lines.place(), {}) {}

void PlyTextSource::beginRecord() {
  std::string_view line;
  do {
    if (!_lines.next(line)) _lines.place().refuse("the end of the file", "another record after it");
    _fields = TextFields(_lines.place(), line);
  } while (_fields.atEnd());
}

std::int64_t PlyTextSource::length(const PlyProperty& property, std::int64_t smallest) {
  return _fields.wholeNumber(property.name.c_str(), smallest,
                             std::numeric_limits<std::uint32_t>::max());
}

void PlyTextSource::skipValue(const PlyProperty& property) {
  const std::int64_t count = property.isList() ? length(property, 0) : 1;
  for (std::int64_t i = 0; i < count; ++i) _fields.word(property.name.c_str());
}

std::string PlyTextSource::surplus() {
  std::string_view line;
  while (_lines.next(line)) {
    if (!TextFields(_lines.place(), line).atEnd()) {
      return "line " + std::to_string(_lines.place().at);
    }
  }
  return {};
}

std::uint64_t PlyTextSource::room(const PlyElement& element) const {
  // A character for each property and a blank or the line's end behind it, which only the
  // file's last one can lack.
  return (_lines.left() + 1) / (2 * element.properties.size());
}

}  // namespace tarn
