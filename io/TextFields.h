#pragma once

#include "io/Place.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <string>
#include <string_view>

namespace tarn {

/// Steps through the lines of a text, which may end in LF or CR LF.
class TextLines {
public:
  /// Neither the path nor the text is copied: both outlive this object.
  TextLines(const std::string& file, std::string_view text);
  /// The same for a text that begins within a file, at a byte and after that many lines.
  TextLines(const std::string& file, std::string_view text, std::size_t begin, long long lines)
      : _file(&file), _text(text), _position(begin), _line(lines) {}

  /// The next line, without its end. Returns false after the last one.
  bool next(std::string_view& line);
  /// The next line that holds a record: neither blank nor a comment ("# ...").
  bool nextRecord(std::string_view& line);

  /// The line that was read last.
  Place place() const { return {_file, false, _line}; }
  /// How many bytes follow.
  std::size_t left() const { return _text.size() - std::min(_position, _text.size()); }
  /// How much of the text was read, 0 to 1.
  double done() const;

private:
  const std::string* _file;
  std::string_view _text;
  std::size_t _position = 0;
  long long _line = 0;
};

/// Takes the fields of one line, which blanks or tabs set apart. Numbers are read the
/// same in every locale. `what` names a field in the error when it is refused.
class TextFields {
public:
  TextFields(const Place& place, std::string_view line) : _place(place), _rest(line) {}

  std::string_view word(const char* what);
  /// A number, also infinity or NaN.
  double anyNumber(const char* what);
  /// A number that is neither infinite nor NaN.
  double number(const char* what);
  std::uint64_t unsignedNumber(const char* what, std::uint64_t largest);
  std::int64_t wholeNumber(const char* what, std::int64_t smallest, std::int64_t largest);
  std::uint32_t id(const char* what) {
    return static_cast<std::uint32_t>(
        unsignedNumber(what, std::numeric_limits<std::uint32_t>::max()));
  }
  /// All that is left, without blanks around it (they may stand inside).
  std::string_view rest();

  bool atEnd();
  /// Refuses a line that goes on.
  void expectEnd(const char* record);
  const Place& place() const { return _place; }

private:
  void skipBlanks();
  template <typename Number>
  bool take(Number& value, std::string_view& field, const char* what);
  Place _place;
  std::string_view _rest;
  int _field = 0;
};

}  // namespace tarn
