#include "host/model/ImageFormat.h"

#include <stdexcept>
#include <string>

namespace tarn {

const ImageFormat& ImageFormat::of(Bytes file) {
  if (file.empty()) throw std::runtime_error("the file is empty");
  for (const ImageFormat* format : {&jpegFormat, &pngFormat, &tiffFormat}) {
    if (format->recognises(file)) return *format;
  }
  throw std::runtime_error("not a picture that is known here (JPEG, PNG and TIFF are)");
}

ImageHeader ImageFormat::checkedHeader(Bytes file, std::uintmax_t fileSize) const {
  const ImageHeader header = readHeader(file);
  const double pixels = static_cast<double>(header.width) * header.height;
  const auto size =
      " of " + std::to_string(header.width) + " x " + std::to_string(header.height) + " pixels";
  if (header.width < 1 || header.height < 1) {
    throw std::runtime_error(std::string("a ") + name + size);
  }
  if (pixels > mostImagePixels) {
    throw std::runtime_error(std::string("a ") + name + size + ", which is too large");
  }
  if (pixels > mostPixelsPerByte * static_cast<double>(fileSize)) {
    throw std::runtime_error(std::string("a ") + name + size + " cannot be in a file of " +
                             std::to_string(fileSize) + " bytes");
  }
  return header;
}

}  // namespace tarn
