#pragma once

#include <bit>
#include <cstdint>

namespace bench {

/// A number that tells whether two programs read the same coloured points in the same order.
class PointHash {
public:
  void add(float x, float y, float z, unsigned char red, unsigned char green, unsigned char blue) {
    add(std::bit_cast<std::uint32_t>(x));
    add(std::bit_cast<std::uint32_t>(y));
    add(std::bit_cast<std::uint32_t>(z));
    add(std::uint32_t{red} << 16 | std::uint32_t{green} << 8 | std::uint32_t{blue});
  }

  /// Whole, and below what a double holds exactly: it can be printed as a figure.
  double value() const { return static_cast<double>(hash >> 11); }

private:
  // FNV-1a, on words.
  void add(std::uint32_t word) { hash = (hash ^ word) * 0x100000001b3U; }

  std::uint64_t hash = 0xcbf29ce484222325U;
};

}  // namespace bench
