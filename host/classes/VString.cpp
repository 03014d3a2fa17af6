#include "host/classes/VString.h"

#include <cstdarg>
#include <cstdio>
#include <functional>
#include <unordered_map>

namespace tarn {

VClass VStringCls("VString", &VObjectCls, []() -> VObject* { return new VString; });

namespace {
std::unordered_map<int, std::string>& resources() {
  // Whether a shape is seen from within.
  static std::unordered_map<int, std::string> texts{{6398, "outside"}, {6441, "inside out"}};
  return texts;
}
}  // namespace

VString::VString(const char* text) : _text(text ? text : "") {}

VString::VString(std::string_view text) : _text(text) {}

void VString::prints(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  va_list again;
  va_copy(again, arguments);
  const int needed = std::vsnprintf(nullptr, 0, format, arguments);
  va_end(arguments);
  std::string filled(needed > 0 ? static_cast<std::size_t>(needed) : 0, '\0');
  if (needed > 0) std::vsnprintf(filled.data(), filled.size() + 1, format, again);
  va_end(again);
  _text = std::move(filled);
  textChanged();
}

VString VString::getResource(int id) {
  const auto found = resources().find(id);
  return found == resources().end() ? VString() : VString(found->second);
}

void VString::setResource(int id, std::string_view text) { resources()[id] = text; }

std::uint64_t VString::hash() const { return std::hash<std::string>{}(_text); }

int VString::isEqual(const VObject* other) const {
  if (this == other) return 1;
  const auto* string = dynamic_cast<const VString*>(other);
  return string && string->_text == _text;
}

}  // namespace tarn
