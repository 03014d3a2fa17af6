#include "tests/support/SyntheticPly.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <sstream>
#include <stdexcept>

namespace {

using Form = SyntheticPly::Form;

template <typename Number>
std::string bytesOf(double value) {
  const auto number = static_cast<Number>(value);
  std::string bytes(sizeof number, '\0');
  std::memcpy(bytes.data(), &number, sizeof number);  // of a little-endian machine
  return bytes;
}

// The bytes of a number of that type, in this file's order.
std::string encoded(const std::string& type, double value, Form form) {
  std::string bytes;
  if (type == "char" || type == "int8") bytes = bytesOf<std::int8_t>(value);
  if (type == "uchar" || type == "uint8") bytes = bytesOf<std::uint8_t>(value);
  if (type == "short" || type == "int16") bytes = bytesOf<std::int16_t>(value);
  if (type == "ushort" || type == "uint16") bytes = bytesOf<std::uint16_t>(value);
  if (type == "int" || type == "int32") bytes = bytesOf<std::int32_t>(value);
  if (type == "uint" || type == "uint32") bytes = bytesOf<std::uint32_t>(value);
  if (type == "float" || type == "float32") bytes = bytesOf<float>(value);
  if (type == "double" || type == "float64") bytes = bytesOf<double>(value);
  if (bytes.empty()) throw std::logic_error("no type of numbers: " + type);
  if (form == Form::eBigEndian) std::reverse(bytes.begin(), bytes.end());
  return bytes;
}

std::string text(double value) {
  char shown[32];
  std::snprintf(shown, sizeof shown, "%.17g ", value);
  return shown;
}

std::string written(const std::string& property, const SyntheticPly::Value& value, Form form) {
  std::istringstream words(property);
  std::string type;
  std::string countType;
  words >> type;
  if (type == "list") words >> countType >> type;
  const auto count = static_cast<double>(value.numbers.size());
  std::string all;
  if (!countType.empty()) {
    all = form == Form::eText ? text(count) : encoded(countType, count, form);
  }
  for (const double number : value.numbers) {
    all += form == Form::eText ? text(number) : encoded(type, number, form);
  }
  return all;
}

}  // namespace

const char* SyntheticPly::nameOf(Form form) {
  return form == Form::eText           ? "ascii"
         : form == Form::eLittleEndian ? "binary_little_endian"
                                       : "binary_big_endian";
}

void SyntheticPly::element(const std::string& name, const std::vector<std::string>& properties) {
  elements.push_back({name, properties, {}});
}

std::string SyntheticPly::header(Form form) const {
  std::string all = "ply" + lineEnd + "format " + nameOf(form) + " 1.0" + lineEnd;
  for (const std::string& line : headerLines) all += line + lineEnd;
  for (const Element& element : elements) {
    all += "element " + element.name + " " + std::to_string(element.records.size()) + lineEnd;
    for (const std::string& property : element.properties) all += "property " + property + lineEnd;
  }
  return all + "end_header" + lineEnd;
}

std::string SyntheticPly::written(Form form) const {
  std::string all = header(form);
  for (const Element& element : elements) {
    for (const Record& record : element.records) {
      for (std::size_t i = 0; i < element.properties.size(); ++i) {
        all += ::written(element.properties[i], record.at(i), form);
      }
      if (form == Form::eText) all += lineEnd;
    }
  }
  return all;
}
