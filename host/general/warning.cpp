#include "host/general/warning.h"

#include <cstdarg>
#include <cstdio>
#include <string>
#include <utility>

namespace tarn {

namespace {
constinit WarningHandler warningHandler = nullptr;
}

void warning(const char* format, ...) {
  va_list arguments;
  va_start(arguments, format);
  va_list again;
  va_copy(again, arguments);
  const int needed = std::vsnprintf(nullptr, 0, format, arguments);
  va_end(arguments);
  std::string message(needed > 0 ? static_cast<std::size_t>(needed) : 0, '\0');
  if (needed > 0) std::vsnprintf(message.data(), message.size() + 1, format, again);
  va_end(again);
  if (warningHandler) {
    warningHandler(message.c_str());
  } else {
    std::fprintf(stderr, "warning: %s\n", message.c_str());
  }
}

WarningHandler setWarningHandler(WarningHandler handler) {
  return std::exchange(warningHandler, handler);
}

}  // namespace tarn
