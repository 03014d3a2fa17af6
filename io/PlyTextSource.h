#pragma once

#include "io/PlySource.h"
#include "io/TextFields.h"

namespace tarn {

/// The data of a PLY file in text: one record a line, blank lines passed over. Numbers are
/// read as they are written, whatever size the header gives their type.
class PlyTextSource : public PlySource {
public:
  PlyTextSource(const std::string& file, std::string_view content, const PlyHeader& header);

  void restart() override { _lines = _start; }
  void beginRecord() override;
  void endRecord() override { _fields.expectEnd("the record"); }
  double number(const PlyProperty& property) override {
    return _fields.anyNumber(property.name.c_str());
  }
  std::int64_t length(const PlyProperty& property, std::int64_t smallest) override;
  std::int64_t entry(const PlyProperty& property, std::int64_t smallest,
                     std::int64_t largest) override {
    return _fields.wholeNumber(property.name.c_str(), smallest, largest);
  }
  void skipValue(const PlyProperty& property) override;
  std::optional<std::endian> order() const override { return std::nullopt; }
  const char* rows(const PlyElement&, std::size_t) override { return nullptr; }
  double done() const override { return _lines.done(); }
  std::string surplus() override;

protected:
  std::uint64_t room(const PlyElement& element) const override;
  void remember() override { _start = _lines; }

private:
  TextLines _lines;
  TextLines _start;
  TextFields _fields;
};

}  // namespace tarn
