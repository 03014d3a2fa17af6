#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

/// Pixels of 1 (grey), 2, 3 (red, green, blue) or 4 components, rows from the top down,
/// and the files that tests make of them. Whatever fails throws std::runtime_error.
struct Pixels {
  int width = 0;
  int height = 0;
  int components = 0;
  std::vector<std::uint8_t> bytes;

  Pixels() = default;
  Pixels(int w, int h, int c);
  /// Smooth shades with some structure, different in every row, column and component.
  static Pixels pattern(int width, int height, int components);

  std::uint8_t& at(int x, int y, int component);
  std::uint8_t at(int x, int y, int component) const;
};

/// A JPEG file's bytes. 4 components: printing colours. `isProgressive`: in several scans.
std::string jpegOf(const Pixels& pixels, int quality = 95, bool isProgressive = false);

/// A PNG file's bytes.
std::string pngOf(const Pixels& pixels);

/// A 16-bit grey PNG file's bytes.
std::string png16Of(int width, int height, const std::vector<std::uint16_t>& values);

/// Writes a TIFF: `orientation` is the tag, which changes nothing of the pixels stored;
/// `compression` one of libtiff's codes (1: none, 5: LZW).
void writeTiff(const std::string& fileName, const Pixels& pixels, int orientation = 1,
               int compression = 1);

/// Reads a file as Coin does for a texture: by simage. Rows from the top down.
Pixels readBySimage(const std::string& fileName);

/// The root of the mean squared difference; both of one size.
double rootMeanSquare(const std::uint8_t* a, const std::uint8_t* b, std::size_t count);
