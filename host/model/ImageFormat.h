#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace tarn {

/// The pixels that a picture may have: stitched panoramas have fewer, and the bytes of
/// four components can still be counted by an int, as the libraries do.
constexpr double mostImagePixels = 5e8;

/// Pixels as rows from the top down, `components` bytes a pixel.
struct ImageRaster {
  int width = 0;
  int height = 0;
  int components = 0;
  std::vector<std::uint8_t> bytes;

  /// How many of the columns and rows the picture fills. A picture decoded at a reduced
  /// scale may end within its last column or row: of 6001 pixels at 1/4 the last column
  /// holds a quarter.
  double filledWidth = 0;
  double filledHeight = 0;

  ImageRaster() = default;
  ImageRaster(int w, int h, int c)
      : width(w),
        height(h),
        components(c),
        bytes(static_cast<std::size_t>(w) * static_cast<std::size_t>(h) *
              static_cast<std::size_t>(c)),
        filledWidth(w),
        filledHeight(h) {}
};

/// What the header of a picture's file tells.
struct ImageHeader {
  int width = 0;
  int height = 0;
  int components = 0;
  bool operator==(const ImageHeader&) const = default;
};

/// A kind of picture file that is read. Its functions throw std::runtime_error, with a
/// reason that goes on from "FILE: ".
struct ImageFormat {
  using Bytes = std::span<const std::uint8_t>;

  const char* name;
  /// The pixels that one byte of such a file can stand for at the very most: a header
  /// that tells of more is wrong, and no memory is asked for on its word.
  double mostPixelsPerByte;
  bool (*recognises)(Bytes file);
  /// Reads the header; the first part of the file may be enough.
  ImageHeader (*readHeader)(Bytes file);
  /// Decodes the picture, at the smallest scale that the kind knows and that leaves at
  /// least that many columns and rows. Pixels stay as the file stores them: orientation
  /// tags are not applied.
  ImageRaster (*decode)(Bytes file, const ImageHeader& header, int leastWidth, int leastHeight);

  /// The kind of the file, by its first bytes. Throws when it is none that is known.
  static const ImageFormat& of(Bytes file);

  /// The header, when the file is large enough for what it tells. `fileSize` in bytes; a
  /// part of the file from its beginning may do.
  ImageHeader checkedHeader(Bytes file, std::uintmax_t fileSize) const;
};

extern const ImageFormat jpegFormat;
extern const ImageFormat pngFormat;
extern const ImageFormat tiffFormat;

}  // namespace tarn
