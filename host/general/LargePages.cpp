#include "host/general/LargePages.h"

#include <cstdint>

#ifdef __linux__
#include <sys/mman.h>
#include <unistd.h>
#endif

namespace tarn {

namespace {

#if defined(__linux__) && defined(MADV_HUGEPAGE)
// Advises on the pages that lie wholly in the memory. A system that does not know the advice
// refuses it, and nothing is lost.
void advise(void* memory, std::size_t bytes, int advice) {
  // Below this the memory comes from a heap that others use too.
  constexpr std::size_t smallest = std::size_t{4} << 20;
  if (bytes < smallest) return;
  const auto page = static_cast<std::uintptr_t>(sysconf(_SC_PAGESIZE));
  const auto address = reinterpret_cast<std::uintptr_t>(memory);
  const std::uintptr_t begin = (address + page - 1) / page * page;
  const std::uintptr_t end = (address + bytes) / page * page;
  madvise(reinterpret_cast<void*>(begin), end - begin, advice);
}
#endif

}  // namespace

void adviseLargePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) {
#if defined(__linux__) && defined(MADV_HUGEPAGE)
  advise(memory, bytes, MADV_HUGEPAGE);
#endif
}

void makeLargePages(void* memory, std::size_t bytes) {
  adviseLargePages(memory, bytes);
#if defined(__linux__) && defined(MADV_POPULATE_WRITE)
  advise(memory, bytes, MADV_POPULATE_WRITE);
#endif
}

}  // namespace tarn
