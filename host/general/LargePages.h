#pragma once

#include "host/TarnOIHostExport.h"

#include <cstddef>

namespace tarn {

/// Asks the system for large pages behind memory that nobody touched yet, where it is large
/// enough to have some: filling fresh memory is mostly the system's work of handing out its
/// pages. A wish only; it changes no content.
TARN_HOST_EXPORT void adviseLargePages(void* memory, std::size_t bytes);

/// The same, and has the pages handed out at once, the small ones at both ends too: for memory
/// that is then written from one end to the other.
TARN_HOST_EXPORT void makeLargePages(void* memory, std::size_t bytes);

}  // namespace tarn
