#pragma once

#include <string>
#include <string_view>

namespace tarn {

/// Where in a file something was read: its path and a line (text, from 1) or a byte
/// (binary, from 0). What is wrong there is refused through it, so that a check that both
/// forms share need not know which of them it works on.
struct Place {
  const std::string* file = nullptr;  ///< not owned
  bool binary = false;
  long long at = 0;

  /// The place `bytes` later in a binary file; the same line in a text.
  Place later(long long bytes) const { return {file, binary, binary ? at + bytes : at}; }

  /// Throws the ReadError of this place.
  [[noreturn]] void refuse(const std::string& found, const std::string& expected) const;
};

/// A text of a file as an error shows it: in quotes, cut when it is long, with what cannot
/// be printed as \xNN.
std::string quoted(std::string_view text);

}  // namespace tarn
