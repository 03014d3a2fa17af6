#include "host/model/ImageFormat.h"

// Above: the own header of every format.

#include <tiffio.h>

#include <algorithm>
#include <cstdarg>
#include <cstdio>
#include <cstring>
#include <limits>
#include <memory>
#include <stdexcept>
#include <string>

namespace tarn {

namespace {

using Bytes = ImageFormat::Bytes;

// A TIFF in memory. Every picture has its own report of errors, so that the handlers that
// an application may have given libtiff stay as they are.
class TiffReader {
public:
  explicit TiffReader(Bytes file) : bytes(file) {
    const std::unique_ptr<TIFFOpenOptions, void (*)(TIFFOpenOptions*)> options(
        TIFFOpenOptionsAlloc(), &TIFFOpenOptionsFree);
    if (!options) throw std::bad_alloc();
    TIFFOpenOptionsSetErrorHandlerExtR(options.get(), &TiffReader::keepError, this);
    TIFFOpenOptionsSetWarningHandlerExtR(
        options.get(), [](TIFF*, void*, const char*, const char*, va_list) { return 1; }, this);
    TIFFOpenOptionsSetMaxSingleMemAlloc(options.get(), tmsize_t{1} << 31);
    // 'm': not mapped; libtiff would otherwise ask for the bytes themselves.
    tiff = TIFFClientOpenExt(
        "", "rm", this, &TiffReader::read, &TiffReader::write, &TiffReader::seek,
        [](thandle_t) { return 0; }, &TiffReader::size, nullptr, nullptr, options.get());
    if (!tiff) fail();
  }
  ~TiffReader() {
    if (tiff) TIFFClose(tiff);
  }
  TiffReader(const TiffReader&) = delete;
  TiffReader& operator=(const TiffReader&) = delete;

  [[noreturn]] void fail() {
    throw std::runtime_error("the TIFF cannot be decoded: " +
                             (error.empty() ? std::string("its data are not valid") : error));
  }

  template <typename T>
  T field(std::uint32_t tag) {
    T value{};
    if (!TIFFGetFieldDefaulted(tiff, tag, &value)) value = {};
    return value;
  }

  // 1 or 3 components, and one more for the alpha channel.
  ImageHeader header() {
    char reason[1024] = "";
    if (!TIFFRGBAImageOK(tiff, reason)) {
      error = reason;
      fail();
    }
    const auto width = field<std::uint32_t>(TIFFTAG_IMAGEWIDTH);
    const auto height = field<std::uint32_t>(TIFFTAG_IMAGELENGTH);
    constexpr std::uint32_t most = std::numeric_limits<int>::max();
    const auto photometric = field<std::uint16_t>(TIFFTAG_PHOTOMETRIC);
    const bool isGrey =
        photometric == PHOTOMETRIC_MINISBLACK || photometric == PHOTOMETRIC_MINISWHITE;
    std::uint16_t extraCount = 0;
    std::uint16_t* extraKinds = nullptr;
    TIFFGetFieldDefaulted(tiff, TIFFTAG_EXTRASAMPLES, &extraCount, &extraKinds);
    hasAlphaChannel = extraCount > 0 && extraKinds && extraKinds[0] != EXTRASAMPLE_UNSPECIFIED;
    // libtiff multiplies colours by an alpha that is stored apart, but not grey.
    isMultiplied = hasAlphaChannel && (!isGrey || extraKinds[0] == EXTRASAMPLE_ASSOCALPHA);
    return {static_cast<int>(std::min(width, most)), static_cast<int>(std::min(height, most)),
            (isGrey ? 1 : 3) + (hasAlphaChannel ? 1 : 0)};
  }

  TIFF* handle() { return tiff; }

  // Of the pixels that libtiff gives; once the header has been asked for.
  bool hasAlpha() const { return hasAlphaChannel; }
  bool isMultipliedByAlpha() const { return isMultiplied; }

private:
  static int keepError(TIFF*, void* self, const char*, const char* format, va_list arguments) {
    char text[512];
    std::vsnprintf(text, sizeof text, format, arguments);
    auto* reader = static_cast<TiffReader*>(self);
    if (reader->error.empty()) reader->error = text;  // what follows follows from it
    return 1;
  }

  static tmsize_t read(thandle_t self, void* to, tmsize_t count) {
    auto* reader = static_cast<TiffReader*>(self);
    const std::size_t left =
        reader->bytes.size() - std::min(reader->position, reader->bytes.size());
    const std::size_t taken =
        std::min(static_cast<std::size_t>(std::max<tmsize_t>(count, 0)), left);
    if (taken > 0) std::memcpy(to, reader->bytes.data() + reader->position, taken);
    reader->position += taken;
    return static_cast<tmsize_t>(taken);
  }

  static tmsize_t write(thandle_t, void*, tmsize_t) { return -1; }

  static toff_t seek(thandle_t self, toff_t offset, int whence) {
    auto* reader = static_cast<TiffReader*>(self);
    const toff_t base = whence == SEEK_CUR   ? reader->position
                        : whence == SEEK_END ? reader->bytes.size()
                                             : 0;
    reader->position = static_cast<std::size_t>(base + offset);
    return reader->position;
  }

  static toff_t size(thandle_t self) { return static_cast<TiffReader*>(self)->bytes.size(); }

  Bytes bytes;
  std::size_t position = 0;
  std::string error;
  TIFF* tiff = nullptr;
  bool hasAlphaChannel = false;
  bool isMultiplied = false;
};

bool recognises(Bytes file) {
  return file.size() >= 4 && ((file[0] == 'I' && file[1] == 'I' && file[2] == 42 && file[3] == 0) ||
                              (file[0] == 'M' && file[1] == 'M' && file[2] == 0 && file[3] == 42));
}

ImageHeader readHeader(Bytes file) { return TiffReader(file).header(); }

ImageRaster decode(Bytes file, const ImageHeader& expected, int, int) {
  TiffReader reader(file);
  const ImageHeader header = reader.header();
  if (header != expected) reader.fail();
  const std::size_t count =
      static_cast<std::size_t>(header.width) * static_cast<std::size_t>(header.height);
  std::vector<std::uint32_t> colours(count);
  // Asked for in the orientation that the file states, libtiff turns nothing around.
  if (!TIFFReadRGBAImageOriented(reader.handle(), static_cast<std::uint32_t>(header.width),
                                 static_cast<std::uint32_t>(header.height), colours.data(),
                                 reader.field<std::uint16_t>(TIFFTAG_ORIENTATION), 1)) {
    reader.fail();
  }
  ImageRaster raster(header.width, header.height, header.components);
  const int colourCount = header.components < 3 ? 1 : 3;
  std::uint8_t* to = raster.bytes.data();
  for (const std::uint32_t colour : colours) {
    const std::uint32_t alpha = TIFFGetA(colour);
    for (int c = 0; c < colourCount; ++c) {
      // Pixels here are not multiplied by their alpha.
      const std::uint32_t value = colour >> (8 * c) & 0xff;
      *to++ = static_cast<std::uint8_t>(reader.isMultipliedByAlpha() && alpha > 0
                                            ? std::min(255U, (value * 255 + alpha / 2) / alpha)
                                            : value);
    }
    if (reader.hasAlpha()) *to++ = static_cast<std::uint8_t>(alpha);
  }
  return raster;
}

}  // namespace

// As for PNG: deflate packs tightest of what photographs are packed with.
const ImageFormat tiffFormat{"TIFF", 1032 * 8, &recognises, &readHeader, &decode};

}  // namespace tarn
