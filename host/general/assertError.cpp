#include "host/general/assertError.h"

#include <cstdio>
#include <utility>

namespace tarn {

namespace {
constinit AssertHandler assertHandler = nullptr;
}

void assertError(const char* condition, const char* file, int line) {
  if (assertHandler) {
    assertHandler(condition, file, line);
  } else {
    std::fprintf(stderr, "%s:%d: assertion failed: %s\n", file, line, condition);
  }
}

AssertHandler setAssertHandler(AssertHandler handler) {
  return std::exchange(assertHandler, handler);
}

}  // namespace tarn
