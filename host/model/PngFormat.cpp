#include "host/model/ImageFormat.h"

// Above: the own header of every format.

#include <png.h>

#include <algorithm>
#include <array>
#include <stdexcept>
#include <string>

namespace tarn {

namespace {

using Bytes = ImageFormat::Bytes;

// libpng's simplified interface, whose memory is given back in any case.
struct PngReader {
  png_image image{};

  explicit PngReader(Bytes file) {
    image.version = PNG_IMAGE_VERSION;
    if (!png_image_begin_read_from_memory(&image, file.data(), file.size())) fail();
    // Sixteen-bit files of cameras and scanners are no more linear than their 8-bit ones.
    image.flags |= PNG_IMAGE_FLAG_16BIT_sRGB;
    image.format &= PNG_FORMAT_FLAG_COLOR | PNG_FORMAT_FLAG_ALPHA;
  }
  ~PngReader() { png_image_free(&image); }
  PngReader(const PngReader&) = delete;
  PngReader& operator=(const PngReader&) = delete;

  [[noreturn]] void fail() {
    const std::string reason = image.message;
    png_image_free(&image);
    throw std::runtime_error("the PNG cannot be decoded: " + reason);
  }
};

bool recognises(Bytes file) {
  constexpr std::array<std::uint8_t, 8> signature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
  return file.size() >= signature.size() &&
         std::equal(signature.begin(), signature.end(), file.begin());
}

ImageHeader readHeader(Bytes file) {
  const PngReader reader(file);
  return {static_cast<int>(reader.image.width), static_cast<int>(reader.image.height),
          static_cast<int>(PNG_IMAGE_PIXEL_CHANNELS(reader.image.format))};
}

ImageRaster decode(Bytes file, const ImageHeader& header, int, int) {
  ImageRaster raster(header.width, header.height, header.components);
  PngReader reader(file);
  if (!png_image_finish_read(&reader.image, nullptr, raster.bytes.data(), 0, nullptr)) {
    reader.fail();
  }
  return raster;
}

}  // namespace

// Deflate packs at most 1032 bytes into one, and a byte may hold eight pixels.
const ImageFormat pngFormat{"PNG", 1032 * 8, &recognises, &readHeader, &decode};

}  // namespace tarn
