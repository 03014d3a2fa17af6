#pragma once

#include "bench/PointHash.h"
#include "bench/ReadingTime.h"

#include <cstdio>

namespace bench {

/// Reads a PLY file's coloured points by `read(path)`, which gives null where it cannot, and
/// prints how long that takes and, from `hash(*result)`, what was read. For a peer's main.
template <typename Read, typename Hash>
int tellReading(int argc, char** argv, const Read& read, const Hash& hash) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s FILE.ply\n", argv[0]);
    return 2;
  }
  const double seconds = readingTime([&] { return read(argv[1]); });
  const auto points = read(argv[1]);
  if (!points) {
    std::fprintf(stderr, "%s cannot be read\n", argv[1]);
    return 1;
  }
  std::printf("\nread_s %.9g\npoints_hash %.17g\n", seconds, hash(*points).value());
  return 0;
}

}  // namespace bench
