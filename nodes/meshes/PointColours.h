#pragma once

#include <Inventor/SbColor.h>

#include <array>
#include <cstddef>

/// The colours that a mesh stores for its points, as scene colours. Each has three bytes in the
/// order blue, green, red; a byte is divided by 255.
class PointColours {
public:
  /// @param rgbs a pointer to three bytes for each point; not owned
  explicit PointColours(const unsigned char* const* rgbs) : rgbs(rgbs) {
    for (std::size_t i = 0; i < shares.size(); ++i) {
      shares[i] = static_cast<float>(static_cast<double>(i) / 255.0);
    }
  }

  SbColor operator[](int point) const {
    const unsigned char* bytes = rgbs[point];
    return SbColor(shares[bytes[2]], shares[bytes[1]], shares[bytes[0]]);
  }

private:
  const unsigned char* const* rgbs;
  std::array<float, 256> shares;
};
