#pragma once

#include "bench/PointHash.h"

#include <algorithm>
#include <chrono>
#include <cstdio>

namespace bench {

/// Reads a PLY file's coloured points twice, by `read(path)`, and prints the better time and,
/// from `hash(result)`, what was read. For a peer's main.
template <typename Read, typename Hash>
int tellReading(int argc, char** argv, const Read& read, const Hash& hash) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: %s FILE.ply\n", argv[0]);
    return 2;
  }
  double best = 0;
  for (int turn = 0; turn < 2; ++turn) {
    const auto start = std::chrono::steady_clock::now();
    const auto points = read(argv[1]);
    const std::chrono::duration<double> taken = std::chrono::steady_clock::now() - start;
    if (!points) {
      std::fprintf(stderr, "%s cannot be read\n", argv[1]);
      return 1;
    }
    best = turn == 0 ? taken.count() : std::min(best, taken.count());
    if (turn == 1) std::printf("\nread_s %.9g\npoints_hash %.17g\n", best, hash(*points).value());
  }
  return 0;
}

}  // namespace bench
