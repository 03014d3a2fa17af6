#include "io/TextFields.h"

#include <charconv>
#include <cmath>
#include <type_traits>

namespace tarn {

namespace {
constexpr std::string_view blanks = " \t\r\v\f";

// The same characters; a loop over a field's few is faster than a search among all blanks.
bool isBlank(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }

std::string fieldText(int field, std::string_view text) {
  return quoted(text) + " (field " + std::to_string(field) + ")";
}
}  // namespace

TextLines::TextLines(const std::string& file, std::string_view text) : _file(&file), _text(text) {
  // Editors of some systems put a byte order mark before UTF-8.
  if (_text.starts_with("\xEF\xBB\xBF")) _position = 3;
}

bool TextLines::next(std::string_view& line) {
  if (_position >= _text.size()) return false;
  const std::size_t end = std::min(_text.find('\n', _position), _text.size());
  line = _text.substr(_position, end - _position);
  if (line.ends_with('\r')) line.remove_suffix(1);
  _position = end + 1;
  ++_line;
  return true;
}

bool TextLines::nextRecord(std::string_view& line) {
  while (next(line)) {
    const std::size_t first = line.find_first_not_of(blanks);
    if (first != std::string_view::npos && line[first] != '#') return true;
  }
  return false;
}

double TextLines::done() const {
  if (_position >= _text.size()) return 1.0;
  return static_cast<double>(_position) / static_cast<double>(_text.size());
}

void TextFields::skipBlanks() {
  std::size_t blank = 0;
  while (blank < _rest.size() && isBlank(_rest[blank])) ++blank;
  _rest.remove_prefix(blank);
}

std::string_view TextFields::word(const char* what) {
  skipBlanks();
  if (_rest.empty()) {
    _place.refuse("the end of the line after " + std::to_string(_field) + " fields", what);
  }
  std::size_t length = 0;
  while (length < _rest.size() && !isBlank(_rest[length])) ++length;
  const std::string_view field = _rest.substr(0, length);
  _rest.remove_prefix(length);
  ++_field;
  return field;
}

// Takes the next field and returns whether all of it is such a number.
template <typename Number>
bool TextFields::take(Number& value, std::string_view& field, const char* what) {
  field = word(what);
  const char* begin = field.data();
  const char* last = begin + field.size();
  // Fortran and other programs write the sign of every number.
  if (std::is_floating_point_v<Number> && field.size() > 1 && field[0] == '+' && field[1] != '-') {
    ++begin;
  }
  const auto [end, error] = std::from_chars(begin, last, value);
  return error == std::errc() && end == last;
}

double TextFields::anyNumber(const char* what) {
  double value = 0.0;
  std::string_view field;
  if (!take(value, field, what)) {
    _place.refuse(fieldText(_field, field), std::string(what) + ", a number");
  }
  return value;
}

double TextFields::number(const char* what) {
  double value = 0.0;
  std::string_view field;
  if (!take(value, field, what) || !std::isfinite(value)) {
    _place.refuse(fieldText(_field, field), std::string(what) + ", a finite number");
  }
  return value;
}

std::uint64_t TextFields::unsignedNumber(const char* what, std::uint64_t largest) {
  std::uint64_t value = 0;
  std::string_view field;
  if (!take(value, field, what) || value > largest) {
    _place.refuse(fieldText(_field, field),
                  std::string(what) + ", a whole number from 0 to " + std::to_string(largest));
  }
  return value;
}

std::int64_t TextFields::wholeNumber(const char* what, std::int64_t smallest,
                                     std::int64_t largest) {
  std::int64_t value = 0;
  std::string_view field;
  if (!take(value, field, what) || value < smallest || value > largest) {
    _place.refuse(fieldText(_field, field), std::string(what) + ", a whole number from " +
                                                std::to_string(smallest) + " to " +
                                                std::to_string(largest));
  }
  return value;
}

std::string_view TextFields::rest() {
  skipBlanks();
  std::string_view all = _rest;
  const std::size_t last = all.find_last_not_of(blanks);
  all.remove_suffix(all.size() - (last == std::string_view::npos ? 0 : last + 1));
  _rest = {};
  return all;
}

bool TextFields::atEnd() {
  skipBlanks();
  return _rest.empty();
}

void TextFields::expectEnd(const char* record) {
  if (atEnd()) return;
  const std::string_view field = word(record);
  _place.refuse(fieldText(_field, field), std::string("the end of ") + record);
}

}  // namespace tarn
