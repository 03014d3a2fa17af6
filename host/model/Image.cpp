#include "host/model/Image.h"

#include <simage.h>

#include "host/model/ImageFormat.h"
#include "host/model/ImageResampling.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <functional>
#include <new>
#include <random>
#include <stdexcept>
#include <utility>

namespace tarn {

VClass ImageCls("Image", &VObjectCls, []() -> VObject* { return new Image; });

/// The picture's file: all of it, or none where it is read again for the pixels.
struct Image::Source {
  const ImageFormat* format = nullptr;
  ImageHeader header;
  std::vector<std::uint8_t> bytes;
};

namespace {

namespace fs = std::filesystem;

// The header of nearly every file is in its first part, metadata and all.
constexpr std::uintmax_t headSize = 256 * 1024;
// No picture that is accepted can take more.
constexpr std::uintmax_t mostFileSize = std::uintmax_t{1} << 32;
// What SGI's 16-bit sizes can express.
constexpr int mostSgiPixels = 65535;

// Its size in bytes. Asked first, for opening a pipe would wait for its other end.
std::uintmax_t sizeOfFile(const fs::path& path) {
  std::error_code error;
  const fs::file_status status = fs::status(path, error);
  if (!fs::exists(status)) {
    throw std::runtime_error(status.type() == fs::file_type::not_found ? "there is no such file"
                                                                       : error.message());
  }
  if (fs::is_directory(status)) throw std::runtime_error("a folder, not a file");
  if (!fs::is_regular_file(status)) throw std::runtime_error("not a regular file");
  const std::uintmax_t size = fs::file_size(path, error);
  if (error) throw std::runtime_error(error.message());
  return size;
}

// The file's first bytes, `count` of them or as many as there are.
std::vector<std::uint8_t> readFile(const fs::path& path, std::uintmax_t count) {
  std::ifstream file(path, std::ios::binary);
  if (!file) throw std::runtime_error("the file cannot be opened");
  std::vector<std::uint8_t> bytes(static_cast<std::size_t>(count));
  file.read(reinterpret_cast<char*>(bytes.data()), static_cast<std::streamsize>(count));
  if (file.bad()) throw std::runtime_error("the file cannot be read");
  bytes.resize(static_cast<std::size_t>(file.gcount()));
  return bytes;
}

// A name beside the file that no other writer of it uses.
std::string unfinishedName(const std::string& fileName) {
  char number[16];
  std::snprintf(number, sizeof number, ".%08x", static_cast<unsigned>(std::random_device{}()));
  return fileName + number + ".part";
}

}  // namespace

Image::Image() = default;

Image::Image(const VPathString& fileName) : _fileName(fileName) {}

Image::Image(const Image& other) : VObject(other), _fileName(other._fileName) {}

Image& Image::operator=(const Image& other) {
  if (this != &other) SetFileName(other._fileName);
  return *this;
}

Image::~Image() = default;

void Image::SetFileName(const VPathString& fileName) {
  _fileName = fileName;
  forget();
}

int Image::Load(int keepFile) {
  forget();
  return attempt(_fileName, [this, keepFile] {
    const fs::path path(_fileName.str());
    const std::uintmax_t size = sizeOfFile(path);
    std::vector<std::uint8_t> bytes = readFile(path, std::min(size, headSize));
    auto source = std::make_unique<Source>();
    source->format = &ImageFormat::of(bytes);
    if (size > mostFileSize) throw std::runtime_error("the file is too large for a picture");
    bool isKnown = false;
    if (!keepFile || bytes.size() == size) {
      try {
        source->header = source->format->checkedHeader(bytes, size);
        isKnown = true;
      } catch (const std::runtime_error&) {
        if (bytes.size() == size) throw;
      }
    }
    if (!isKnown) {
      bytes = readFile(path, size);
      source->header = source->format->checkedHeader(bytes, bytes.size());
    }
    if (keepFile) source->bytes = std::move(bytes);
    _width = source->header.width;
    _height = source->header.height;
    _components = source->header.components;
    _source = std::move(source);
  });
}

int Image::GetExtents(int& width, int& height) const {
  if (_components == 0) return 0;
  width = _width;
  height = _height;
  return 1;
}

int Image::ResizeInterpolated(int width, int height, int keepAspect, int quality) {
  return attempt(_fileName, [=, this] {
    if (_components == 0) throw std::runtime_error("no picture is loaded");
    if (width < 1 || height < 1 || static_cast<double>(width) * height > mostImagePixels) {
      throw std::runtime_error("a picture cannot be resized to " + std::to_string(width) + " x " +
                               std::to_string(height) + " pixels");
    }
    int newWidth = width;
    int newHeight = height;
    if (keepAspect) {
      const double scale =
          std::min(static_cast<double>(width) / _width, static_cast<double>(height) / _height);
      newWidth = std::clamp(static_cast<int>(std::lround(_width * scale)), 1, width);
      newHeight = std::clamp(static_cast<int>(std::lround(_height * scale)), 1, height);
    }
    ImageRaster raster;
    if (_source) {
      // Decoding at twice the size that is wanted and averaging from there is nearly as
      // good as averaging all pixels; decoding at the very size is visibly not.
      const bool isReduced = quality != 0;
      raster = decode(isReduced ? std::min(_width, 2 * std::min(newWidth, _width)) : _width,
                      isReduced ? std::min(_height, 2 * std::min(newHeight, _height)) : _height);
    } else {
      raster.width = _width;
      raster.height = _height;
      raster.components = _components;
      raster.filledWidth = _width;
      raster.filledHeight = _height;
      raster.bytes.swap(_pixels);
    }
    try {
      ImageRaster resized = resample(raster, newWidth, newHeight, quality != 0);
      _pixels = std::move(resized.bytes);
    } catch (...) {
      if (!_source) _pixels.swap(raster.bytes);
      throw;
    }
    _source.reset();
    _width = newWidth;
    _height = newHeight;
  });
}

int Image::Save(const VPathString& fileName, int formatCode, int) {
  return attempt(fileName, [&, this] {
    if (formatCode != formatSGI) {
      throw std::runtime_error("no picture is written in format " + std::to_string(formatCode) +
                               " (" + std::to_string(formatSGI) + ", SGI, is)");
    }
    const std::uint8_t* rows = decoded();
    if (_width > mostSgiPixels || _height > mostSgiPixels) {
      throw std::runtime_error("an SGI picture cannot be larger than 65535 x 65535 pixels");
    }
    const std::size_t stride =
        static_cast<std::size_t>(_width) * static_cast<std::size_t>(_components);
    std::vector<std::uint8_t> bottomUp;
    bottomUp.reserve(stride * static_cast<std::size_t>(_height));
    for (int y = _height - 1; y >= 0; --y) {
      const std::uint8_t* row = rows + static_cast<std::size_t>(y) * stride;
      bottomUp.insert(bottomUp.end(), row, row + stride);
    }
    const std::string unfinished = unfinishedName(fileName.str());
    // "rgb" is simage's name for SGI. It does not notice a full disk; but it packs
    // nothing, so that the size of the whole file is known.
    constexpr std::uintmax_t sgiHeaderSize = 512;
    std::error_code error;
    if (!simage_save_image(unfinished.c_str(), bottomUp.data(), _width, _height, _components,
                           "rgb")) {
      error = std::make_error_code(std::errc::io_error);
    } else if (fs::file_size(unfinished, error) != sgiHeaderSize + bottomUp.size() && !error) {
      error = std::make_error_code(std::errc::no_space_on_device);
    }
    if (!error) fs::rename(unfinished, fileName.str(), error);
    if (error) {
      std::error_code ignored;
      fs::remove(unfinished, ignored);
      throw std::runtime_error("the picture cannot be written: " + error.message());
    }
  });
}

int Image::components() const { return _components; }

const std::uint8_t* Image::pixels() {
  const std::uint8_t* rows = nullptr;
  attempt(_fileName, [&] { rows = decoded(); });
  return rows;
}

void Image::SetPixels(const std::uint8_t* pixels, int width, int height, int components) {
  const std::uint8_t* const end =
      pixels && width > 0 && height > 0 && components > 0 && components <= 4
          ? pixels + static_cast<std::size_t>(width) * static_cast<std::size_t>(height) *
                         static_cast<std::size_t>(components)
          : nullptr;
  // Copied first, for they may be this picture's own.
  std::vector<std::uint8_t> copy;
  if (end) copy.assign(pixels, end);
  forget();
  if (!end) return;
  _pixels = std::move(copy);
  _width = width;
  _height = height;
  _components = components;
}

void Image::forget() {
  _source.reset();
  _pixels = {};
  _width = 0;
  _height = 0;
  _components = 0;
  _lastError.clear();
}

int Image::attempt(const VPathString& fileName, const std::function<void()>& work) {
  _lastError.clear();
  try {
    work();
    return 1;
  } catch (const std::bad_alloc&) {
    _lastError = fileName.str() + ": there is not enough memory for the picture";
  } catch (const std::exception& problem) {
    _lastError = fileName.str() + ": " + problem.what();
  }
  return 0;
}

const std::uint8_t* Image::decoded() {
  if (_components == 0) throw std::runtime_error("no picture is loaded");
  if (_source) {
    _pixels = decode(_width, _height).bytes;
    _source.reset();
  }
  return _pixels.data();
}

ImageRaster Image::decode(int leastWidth, int leastHeight) {
  if (!_source->bytes.empty()) {
    return _source->format->decode(_source->bytes, _source->header, leastWidth, leastHeight);
  }
  const fs::path path(_fileName.str());
  const std::vector<std::uint8_t> bytes = readFile(path, std::min(sizeOfFile(path), mostFileSize));
  if (&ImageFormat::of(bytes) != _source->format ||
      _source->format->checkedHeader(bytes, bytes.size()) != _source->header) {
    throw std::runtime_error("the file has changed since it was loaded");
  }
  return _source->format->decode(bytes, _source->header, leastWidth, leastHeight);
}

}  // namespace tarn
