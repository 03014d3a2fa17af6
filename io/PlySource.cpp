#include "io/PlySource.h"

#include "io/PlyBinarySource.h"
#include "io/PlyTextSource.h"

namespace tarn {

std::unique_ptr<PlySource> PlySource::of(const std::string& file, std::string_view content,
                                         const PlyHeader& header) {
  if (header.form == PlyHeader::Form::eText) {
    return std::make_unique<PlyTextSource>(file, content, header);
  }
  return std::make_unique<PlyBinarySource>(file, content, header);
}

PlySource::~PlySource() = default;

void PlySource::begin(const PlyElement& element) {
  // Records without properties take no room, and there is nothing in them to read.
  if (!element.properties.empty() && element.count > room(element)) {
    element.place.refuse(std::to_string(element.count) + " records of " + quoted(element.name),
                         "at most " + std::to_string(room(element)) +
                             ", for which the file has room after its earlier data");
  }
  remember();
}

void PlySource::skipElement(const PlyElement& element) {
  if (element.properties.empty()) return;
  for (std::uint64_t i = 0; i < element.count; ++i) {
    beginRecord();
    for (const PlyProperty& property : element.properties) skipValue(property);
    endRecord();
  }
}

}  // namespace tarn
