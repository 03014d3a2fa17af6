#include "host/model/ImageFormat.h"

// Above: the own header of every format.

#include <turbojpeg.h>

#include <memory>
#include <stdexcept>
#include <string>
#include <string_view>

namespace tarn {

namespace {

using Bytes = ImageFormat::Bytes;
using Decompressor = std::unique_ptr<void, int (*)(tjhandle)>;

Decompressor makeDecompressor() {
  Decompressor decompressor(tjInitDecompress(), &tjDestroy);
  if (!decompressor) throw std::runtime_error("the JPEG decoder cannot be set up");
  return decompressor;
}

[[noreturn]] void fail(const Decompressor& decompressor) {
  throw std::runtime_error(std::string("the JPEG cannot be decoded: ") +
                           tjGetErrorStr2(decompressor.get()));
}

bool recognises(Bytes file) {
  return file.size() >= 3 && file[0] == 0xff && file[1] == 0xd8 && file[2] == 0xff;
}

ImageHeader readHeader(Bytes file) {
  const Decompressor decompressor = makeDecompressor();
  ImageHeader header;
  int subsampling = 0;
  int colourSpace = 0;
  if (tjDecompressHeader3(decompressor.get(), file.data(), file.size(), &header.width,
                          &header.height, &subsampling, &colourSpace) != 0) {
    fail(decompressor);
  }
  // A file may hold tables only, or end before the picture begins.
  if (header.width < 1 || header.height < 1) {
    throw std::runtime_error("the JPEG cannot be decoded: there is no picture in it");
  }
  if (colourSpace == TJCS_CMYK || colourSpace == TJCS_YCCK) {
    // Which ink values mean white differs between the programs that write such files.
    throw std::runtime_error("a JPEG in printing colours (CMYK): save it as RGB");
  }
  header.components = colourSpace == TJCS_GRAY ? 1 : 3;
  return header;
}

// What the decoder objects to without giving up. Bytes between the picture and the end
// marker, which some cameras leave there, take nothing from the picture; everything else
// means that part of it is missing or wrong.
bool isHarmless(std::string_view warning) {
  return warning.find("extraneous bytes before marker 0xd9") != std::string_view::npos;
}

ImageRaster decode(Bytes file, const ImageHeader& header, int leastWidth, int leastHeight) {
  int divisor = 1;
  // The decoder finds the scale from the size that is asked for; in a picture of a few
  // pixels several scales give the same size.
  if (header.width >= 64 && header.height >= 64) {
    for (const int candidate : {8, 4, 2}) {
      const tjscalingfactor scale{1, candidate};
      if (TJSCALED(header.width, scale) >= leastWidth &&
          TJSCALED(header.height, scale) >= leastHeight) {
        divisor = candidate;
        break;
      }
    }
  }
  const tjscalingfactor scale{1, divisor};
  ImageRaster raster(TJSCALED(header.width, scale), TJSCALED(header.height, scale),
                     header.components);
  raster.filledWidth = static_cast<double>(header.width) / divisor;
  raster.filledHeight = static_cast<double>(header.height) / divisor;
  const Decompressor decompressor = makeDecompressor();
  // A hostile progressive file of thousands of scans would keep the decoder busy for hours.
  if (tjDecompress2(decompressor.get(), file.data(), file.size(), raster.bytes.data(), raster.width,
                    0, raster.height, header.components == 1 ? TJPF_GRAY : TJPF_RGB,
                    TJFLAG_LIMITSCANS) != 0 &&
      !(tjGetErrorCode(decompressor.get()) == TJERR_WARNING &&
        isHarmless(tjGetErrorStr2(decompressor.get())))) {
    fail(decompressor);
  }
  return raster;
}

}  // namespace

// A block of 64 pixels takes a bit at least; half as much again is allowed to be sure.
const ImageFormat jpegFormat{"JPEG", 64 * 8 * 1.5, &recognises, &readHeader, &decode};

}  // namespace tarn
