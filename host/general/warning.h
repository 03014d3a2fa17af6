#pragma once

#include "host/TarnOIHostExport.h"

namespace tarn {

/// Receives a finished message for the user.
using WarningHandler = void (*)(const char* message);

/// Tells the user something, by a printf format. Without a handler one line is
/// printed to standard error.
TARN_HOST_EXPORT void warning(const char* format, ...) __attribute__((format(printf, 1, 2)));

/// Installs the handler of all later messages and returns the previous one; null
/// stands for the default.
TARN_HOST_EXPORT WarningHandler setWarningHandler(WarningHandler handler);

}  // namespace tarn
