#pragma once

#include "host/TarnOIHostExport.h"

namespace tarn {

/// Receives the report of a failed check: the condition's text, the source file it
/// stands in (a class's name, without extension) and the line.
using AssertHandler = void (*)(const char* condition, const char* file, int line);

/// Reports a programming error. Active in every build; it returns, and the caller
/// goes on. Without a handler one line is printed to standard error.
TARN_HOST_EXPORT void assertError(const char* condition, const char* file, int line);

/// Installs the handler of all later reports and returns the previous one; null
/// stands for the default.
TARN_HOST_EXPORT AssertHandler setAssertHandler(AssertHandler handler);

}  // namespace tarn
