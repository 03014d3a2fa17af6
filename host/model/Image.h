#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

#include "host/TarnOIHostExport.h"
#include "host/classes/VPathString.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass ImageCls;

/// A photograph's picture: its file, and its pixels once they are loaded.
///
/// Reads JPEG (decoded by TurboJPEG), PNG and TIFF (read by simage); writes SGI.
/// Pixels are kept as rows from the top down, `components` bytes a pixel: 1 grey,
/// 2 grey and alpha, 3 red, green, blue, 4 with alpha.
///
/// A JPEG is decoded when its pixels are first needed: ResizeInterpolated on a
/// picture that was loaded and not touched since decodes it at the smallest scale
/// (1/2, 1/4, 1/8) that still holds enough pixels, which is several times as fast.
class TARN_HOST_EXPORT Image : public VObject {
public:
  /// The format code of Save for an SGI file.
  static constexpr int formatSGI = 142;

  Image();
  explicit Image(const VPathString& fileName);
  /// Another picture of the same file, not loaded.
  Image(const Image& other);
  Image& operator=(const Image& other);
  ~Image() override;

  virtual const VPathString* GetFileName() const { return &_fileName; }
  void SetFileName(const VPathString& fileName);

  /// Reads the file's header; the pixels follow when they are needed. `keepFile`
  /// non-zero reads the file through; zero only its header. Returns 0 when the file
  /// is missing, unreadable, or of a kind that is not known; see LastError.
  virtual int Load(int keepFile = 1);

  /// Width and height in pixels, of the picture as it is now. Returns 0 when
  /// nothing is loaded.
  virtual int GetExtents(int& width, int& height) const;

  /// Shrinks or grows the picture to width x height by area averaging when it
  /// shrinks and by linear interpolation when it grows. `keepAspect` non-zero
  /// keeps the aspect ratio: the picture then fits into the given size. `quality`
  /// 0 takes the nearest pixel, 1 averages. Returns 0, and leaves the picture as it
  /// was, for a size below 1 pixel or a picture that cannot be decoded.
  virtual int ResizeInterpolated(int width, int height, int keepAspect, int quality);

  /// Writes the picture in the format of that code (formatSGI). `quality`, 0 to
  /// 100, is for formats that lose something; SGI does not. The file appears whole
  /// or not at all. Returns 0 when it could not be written.
  virtual int Save(const VPathString& fileName, int formatCode, int quality);

  /// Bytes a pixel; 0 when nothing is loaded.
  int components() const;

  /// The pixels, decoded now if they were not yet; null when that fails. Valid
  /// until the picture changes. width * height * components bytes.
  const std::uint8_t* pixels();

  /// Sets the pixels from a copy of the given ones, laid out as above.
  void SetPixels(const std::uint8_t* pixels, int width, int height, int components);

  /// Why the last call failed, in words that name the file.
  const std::string& LastError() const { return _lastError; }

  VClass* iam() const override { return &ImageCls; }

private:
  struct Source;  // the encoded file, until the pixels are decoded from it

  int fail(const std::string& reason);

  VPathString _fileName;
  std::unique_ptr<Source> _source;
  std::vector<std::uint8_t> _pixels;
  int _width = 0;
  int _height = 0;
  int _components = 0;
  std::string _lastError;
};

}  // namespace tarn
