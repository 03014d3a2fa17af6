#pragma once

#include <Inventor/SbColor.h>

#include <array>
#include <cstddef>

/// The colours that a mesh stores for its points, as scene colours: three bytes in the order blue,
/// green, red, each divided by 255.
class PointColours {
public:
  PointColours() {
    for (std::size_t i = 0; i < shares.size(); ++i) {
      shares[i] = static_cast<float>(static_cast<double>(i) / 255.0);
    }
  }

  /// Writes `count` colours, of which `rowOf(i)` gives the bytes (see MeshRows).
  template <typename RowOf>
  void copy(RowOf rowOf, SbColor* colours, int count) const {
    for (int i = 0; i < count; ++i) {
      const unsigned char* const row = rowOf(i);
      // Not by SbColor's constructor, which is a call to Coin.
      colours[i].setValue(shares[row[2]], shares[row[1]], shares[row[0]]);
    }
  }

private:
  std::array<float, 256> shares;
};
