#include "io/NamedFile.h"

#include <algorithm>
#include <charconv>
#include <filesystem>

namespace fs = std::filesystem;

namespace tarn {

namespace {

// As it is where it has no quotes around it.
std::string withoutQuotes(const std::string& name) {
  const bool isQuoted = name.size() > 1 && name.front() == '"' && name.back() == '"';
  return isQuoted ? name.substr(1, name.size() - 2) : name;
}

// As it is where it has no escapes.
std::string withoutEscapes(const std::string& name) {
  std::string plain;
  for (std::size_t i = 0; i < name.size(); ++i) {
    unsigned char byte = 0;
    const char* digits = name.data() + i + 1;
    if (name[i] == '%' && i + 2 < name.size() &&
        std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2) {
      plain += static_cast<char>(byte);
      i += 2;
    } else {
      plain += name[i];
    }
  }
  return plain;
}

}  // namespace

std::string namedFile(const std::string& byFile, const std::string& name) {
  const fs::path folder = fs::absolute(byFile).parent_path();
  std::string plain = name;
  std::ranges::replace(plain, '\\', '/');
  for (const std::string& written : {plain, withoutQuotes(plain), withoutEscapes(plain)}) {
    for (const fs::path& place : {folder / written, folder / fs::path(written).filename()}) {
      std::error_code ignored;
      if (fs::is_regular_file(place, ignored)) return place.lexically_normal();
    }
  }
  return {};
}

}  // namespace tarn
