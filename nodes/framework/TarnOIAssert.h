#pragma once

#include "host/general/assertError.h"

namespace TarnOI {

/// Reports `text` unless `holds`; returns `holds`, so that a caller can step around
/// the null that was just reported.
inline bool reportUnless(bool holds, const char* text, const char* file, int line) {
  if (!holds) tarn::assertError(text, file, line);
  return holds;
}

}  // namespace TarnOI

/// Checks `condition` in every build and reports `text`, which hosts rely on to the
/// letter, with the source file's name (the class's) when it does not hold. The value
/// is whether it holds.
#define TARNOI_ASSERT(condition, text, file) TARNOI_ASSERT_AT(condition, text, file, __LINE__)

/// The same where the line is part of what hosts rely on.
#define TARNOI_ASSERT_AT(condition, text, file, line) \
  ::TarnOI::reportUnless(static_cast<bool>(condition), text, file, line)
