#include "tests/support/PictureFiles.h"

#include <png.h>
#include <simage.h>
#include <tiffio.h>
#include <turbojpeg.h>

#include <cmath>
#include <memory>
#include <stdexcept>

namespace {

void require(bool success, const char* what) {
  if (!success) throw std::runtime_error(what);
}

std::string pngFrom(png_image& image, const void* pixels) {
  png_alloc_size_t size = 0;
  require(png_image_write_get_memory_size(image, size, 0, pixels, 0, nullptr) != 0, "PNG size");
  std::string file(size, '\0');
  require(png_image_write_to_memory(&image, file.data(), &size, 0, pixels, 0, nullptr), "PNG");
  file.resize(size);
  return file;
}

}  // namespace

Pixels::Pixels(int w, int h, int c)
    : width(w),
      height(h),
      components(c),
      bytes(static_cast<std::size_t>(w) * static_cast<std::size_t>(h) *
            static_cast<std::size_t>(c)) {}

Pixels Pixels::pattern(int width, int height, int components) {
  Pixels pixels(width, height, components);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (int c = 0; c < components; ++c) {
        const double u = static_cast<double>(x) / width;
        const double v = static_cast<double>(y) / height;
        const double value = 60 + 90 * u + 60 * v + 20 * std::sin(40 * u + c) * std::cos(30 * v);
        pixels.at(x, y, c) = static_cast<std::uint8_t>(std::lround(value - 15 * c));
      }
    }
  }
  return pixels;
}

std::uint8_t& Pixels::at(int x, int y, int component) {
  return bytes[static_cast<std::size_t>((y * width + x) * components + component)];
}

std::uint8_t Pixels::at(int x, int y, int component) const {
  return bytes[static_cast<std::size_t>((y * width + x) * components + component)];
}

std::string jpegOf(const Pixels& pixels, int quality, bool isProgressive) {
  const std::unique_ptr<void, int (*)(tjhandle)> compressor(tjInitCompress(), &tjDestroy);
  const int format = pixels.components == 1   ? TJPF_GRAY
                     : pixels.components == 4 ? TJPF_CMYK
                                              : TJPF_RGB;
  unsigned char* encoded = nullptr;
  unsigned long size = 0;
  const int failed =
      tjCompress2(compressor.get(), pixels.bytes.data(), pixels.width, 0, pixels.height, format,
                  &encoded, &size, pixels.components == 1 ? TJSAMP_GRAY : TJSAMP_420, quality,
                  isProgressive ? TJFLAG_PROGRESSIVE : 0);
  const std::unique_ptr<unsigned char, void (*)(unsigned char*)> owner(encoded, &tjFree);
  require(!failed, "JPEG");
  return {reinterpret_cast<const char*>(encoded), size};
}

std::string pngOf(const Pixels& pixels) {
  constexpr png_uint_32 formats[] = {PNG_FORMAT_GRAY, PNG_FORMAT_GA, PNG_FORMAT_RGB,
                                     PNG_FORMAT_RGBA};
  png_image image{};
  image.version = PNG_IMAGE_VERSION;
  image.width = static_cast<png_uint_32>(pixels.width);
  image.height = static_cast<png_uint_32>(pixels.height);
  image.format = formats[pixels.components - 1];
  return pngFrom(image, pixels.bytes.data());
}

std::string png16Of(int width, int height, const std::vector<std::uint16_t>& values) {
  const std::unique_ptr<png_struct, void (*)(png_struct*)> png(
      png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr),
      [](png_struct* p) { png_destroy_write_struct(&p, nullptr); });
  require(png != nullptr, "PNG");
  png_info* info = png_create_info_struct(png.get());
  std::string file;
  png_set_write_fn(
      png.get(), &file,
      [](png_struct* p, png_byte* bytes, std::size_t count) {
        static_cast<std::string*>(png_get_io_ptr(p))
            ->append(reinterpret_cast<const char*>(bytes), count);
      },
      nullptr);
  png_set_IHDR(png.get(), info, static_cast<png_uint_32>(width), static_cast<png_uint_32>(height),
               16, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT,
               PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png.get(), info);
  std::vector<png_byte> row;
  for (int y = 0; y < height; ++y) {
    row.clear();
    for (int x = 0; x < width; ++x) {
      const std::uint16_t value = values[static_cast<std::size_t>(y * width + x)];
      row.push_back(static_cast<png_byte>(value >> 8));
      row.push_back(static_cast<png_byte>(value & 0xff));
    }
    png_write_row(png.get(), row.data());
  }
  png_write_end(png.get(), info);
  png_destroy_info_struct(png.get(), &info);
  return file;
}

void writeTiff(const std::string& fileName, const Pixels& pixels, int orientation,
               int compression) {
  const std::unique_ptr<TIFF, void (*)(TIFF*)> tiff(TIFFOpen(fileName.c_str(), "w"), &TIFFClose);
  require(tiff != nullptr, "TIFF");
  TIFF* const t = tiff.get();
  TIFFSetField(t, TIFFTAG_IMAGEWIDTH, static_cast<std::uint32_t>(pixels.width));
  TIFFSetField(t, TIFFTAG_IMAGELENGTH, static_cast<std::uint32_t>(pixels.height));
  TIFFSetField(t, TIFFTAG_BITSPERSAMPLE, 8);
  TIFFSetField(t, TIFFTAG_SAMPLESPERPIXEL, pixels.components);
  TIFFSetField(t, TIFFTAG_PHOTOMETRIC,
               pixels.components < 3 ? PHOTOMETRIC_MINISBLACK : PHOTOMETRIC_RGB);
  TIFFSetField(t, TIFFTAG_PLANARCONFIG, PLANARCONFIG_CONTIG);
  TIFFSetField(t, TIFFTAG_COMPRESSION, compression);
  TIFFSetField(t, TIFFTAG_ORIENTATION, orientation);
  TIFFSetField(t, TIFFTAG_ROWSPERSTRIP, 4U);
  if (pixels.components % 2 == 0) {
    const std::uint16_t kind = EXTRASAMPLE_UNASSALPHA;
    TIFFSetField(t, TIFFTAG_EXTRASAMPLES, 1, &kind);
  }
  std::vector<std::uint8_t> bytes = pixels.bytes;
  for (int y = 0; y < pixels.height; ++y) {
    require(TIFFWriteScanline(t,
                              &bytes[static_cast<std::size_t>(y * pixels.width) *
                                     static_cast<std::size_t>(pixels.components)],
                              static_cast<std::uint32_t>(y), 0) == 1,
            "TIFF");
  }
}

Pixels readBySimage(const std::string& fileName) {
  int width = 0;
  int height = 0;
  int components = 0;
  const std::unique_ptr<unsigned char, void (*)(unsigned char*)> read(
      simage_read_image(fileName.c_str(), &width, &height, &components), &simage_free_image);
  require(read != nullptr, "simage");
  Pixels pixels(width, height, components);
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) {
      for (int c = 0; c < components; ++c) {
        // simage gives rows from the bottom up.
        pixels.at(x, y, c) = read.get()[((height - 1 - y) * width + x) * components + c];
      }
    }
  }
  return pixels;
}

double rootMeanSquare(const std::uint8_t* a, const std::uint8_t* b, std::size_t count) {
  double sum = 0;
  for (std::size_t i = 0; i < count; ++i) {
    const double difference = static_cast<double>(a[i]) - b[i];
    sum += difference * difference;
  }
  return std::sqrt(sum / static_cast<double>(count));
}
