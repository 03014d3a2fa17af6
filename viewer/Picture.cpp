#include "viewer/Picture.h"

#include <png.h>
#include <simage.h>
#include <turbojpeg.h>

#include "viewer/WholeFile.h"

#include <cstdio>
#include <memory>
#include <stdexcept>

namespace {

[[noreturn]] void fail(const std::string& fileName, const char* what) {
  throw std::runtime_error(fileName + ": " + what);
}

}  // namespace

void Picture::writePng(const std::string& fileName) const {
  WholeFile::write(fileName, "picture", [this](std::FILE* file) {
    png_image image{};
    image.version = PNG_IMAGE_VERSION;
    image.width = static_cast<png_uint_32>(width);
    image.height = static_cast<png_uint_32>(height);
    if (alpha.empty()) {
      image.format = PNG_FORMAT_RGB;
      return png_image_write_to_stdio(&image, file, 0, bytes.data(), 0, nullptr) != 0;
    }
    std::vector<std::uint8_t> pixels(4 * alpha.size());
    for (std::size_t i = 0; i < alpha.size(); ++i) {
      for (std::size_t c = 0; c < 3; ++c) pixels[4 * i + c] = bytes[3 * i + c];
      pixels[4 * i + 3] = alpha[i];
    }
    image.format = PNG_FORMAT_RGBA;
    return png_image_write_to_stdio(&image, file, 0, pixels.data(), 0, nullptr) != 0;
  });
}

void Picture::writeJpeg(const std::string& fileName, int quality) const {
  WholeFile::write(fileName, "picture", [this, quality](std::FILE* file) {
    const std::unique_ptr<void, int (*)(tjhandle)> compressor(tjInitCompress(), &tjDestroy);
    unsigned char* encoded = nullptr;
    unsigned long size = 0;
    const int failed = tjCompress2(compressor.get(), bytes.data(), width, 0, height, TJPF_RGB,
                                   &encoded, &size, TJSAMP_444, quality, TJFLAG_ACCURATEDCT);
    const std::unique_ptr<unsigned char, void (*)(unsigned char*)> owner(encoded, &tjFree);
    return !failed && std::fwrite(encoded, 1, size, file) == size;
  });
}

Picture Picture::read(const std::string& fileName) {
  int width = 0;
  int height = 0;
  int components = 0;
  const std::unique_ptr<unsigned char, void (*)(unsigned char*)> pixels(
      simage_read_image(fileName.c_str(), &width, &height, &components), &simage_free_image);
  if (!pixels) fail(fileName, "the picture cannot be read");
  Picture picture(width, height);
  const bool hasAlpha = components == 2 || components == 4;
  for (int y = 0; y < height; ++y) {
    // simage gives rows from the bottom up.
    const unsigned char* row =
        pixels.get() + static_cast<std::ptrdiff_t>(height - 1 - y) * width * components;
    for (int x = 0; x < width; ++x) {
      if (hasAlpha) picture.alpha.push_back(row[(x + 1) * components - 1]);
      for (int c = 0; c < 3; ++c) {
        picture.bytes[(static_cast<std::size_t>(y) * static_cast<std::size_t>(width) +
                       static_cast<std::size_t>(x)) *
                          3 +
                      static_cast<std::size_t>(c)] =
            row[x * components + (components >= 3 ? c : 0)];
      }
    }
  }
  return picture;
}
