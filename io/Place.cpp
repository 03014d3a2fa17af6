#include "io/Place.h"

#include "io/ReadError.h"

namespace tarn {

void Place::refuse(const std::string& found, const std::string& expected) const {
  if (binary) throw ReadError::atByte(*file, at, found, expected);
  throw ReadError::atLine(*file, static_cast<long>(at), found, expected);
}

std::string quoted(std::string_view text) {
  constexpr std::size_t longest = 60;
  constexpr const char* digits = "0123456789abcdef";
  std::string shown = "\"";
  for (const char c : text.substr(0, longest)) {
    const auto byte = static_cast<unsigned char>(c);
    if (byte < 0x20 || byte == 0x7f) {
      shown += std::string("\\x") + digits[byte >> 4] + digits[byte & 15];
    } else {
      shown += c;
    }
  }
  if (text.size() > longest) shown += "...";
  return shown + '"';
}

}  // namespace tarn
