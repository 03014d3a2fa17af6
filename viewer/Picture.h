#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// A picture of red, green and blue bytes, rows from the top down, which may have
/// transparent parts.
struct Picture {
  int width = 0;
  int height = 0;
  std::vector<std::uint8_t> bytes;  ///< width * height * 3
  std::vector<std::uint8_t> alpha;  ///< width * height, 255 opaque; empty: all of it is

  Picture() = default;
  Picture(int w, int h)
      : width(w), height(h), bytes(static_cast<std::size_t>(w) * static_cast<std::size_t>(h) * 3) {}

  /// The three bytes of the pixel, from the upper left corner.
  const std::uint8_t* at(int x, int y) const {
    return &bytes[(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                   static_cast<std::size_t>(x)) *
                  3];
  }

  /// Writes the picture as PNG, whole or not at all. Throws std::runtime_error that names
  /// the file when it cannot be written.
  void writePng(const std::string& fileName) const;

  /// Writes the picture as JPEG of that quality (1 to 100), likewise; all of it opaque.
  void writeJpeg(const std::string& fileName, int quality) const;

  /// Reads a picture of any kind that simage knows. Throws std::runtime_error likewise.
  static Picture read(const std::string& fileName);
};
