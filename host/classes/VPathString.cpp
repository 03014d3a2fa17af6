#include "host/classes/VPathString.h"

#include <algorithm>
#include <filesystem>

namespace tarn {

VClass VPathStringCls("VPathString", &VStringCls, []() -> VObject* { return new VPathString; });

VPathString::VPathString(const char* text) : VString(text) { VPathString::textChanged(); }

VPathString::VPathString(std::string_view text) : VString(text) { VPathString::textChanged(); }

VPathString VPathString::directoryOf() const {
  const std::filesystem::path folder = std::filesystem::path(_text).parent_path();
  return folder.empty() ? VPathString(".") : VPathString(folder.native());
}

VString VPathString::prefixOf() const {
  return VString(std::filesystem::path(_text).stem().native());
}

void VPathString::textChanged() {
  constexpr char separator = std::filesystem::path::preferred_separator;
  std::replace_if(
      _text.begin(), _text.end(), [](char c) { return c == '/' || c == '\\'; }, separator);
}

}  // namespace tarn
