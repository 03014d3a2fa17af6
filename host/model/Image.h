#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VPathString.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarn {

extern TARN_HOST_EXPORT VClass ImageCls;

struct ImageRaster;

/// A photograph's picture: its file, and its pixels once they are loaded.
///
/// Reads JPEG (by TurboJPEG), PNG (libpng) and TIFF (libtiff); writes SGI (simage). Pixels
/// are kept as rows from the top down, `components` bytes a pixel: 1 grey, 2 grey and
/// alpha, 3 red, green, blue, 4 with alpha; 16-bit files are brought to 8 bits. They stay
/// as the file stores them: a camera's note that it was held upright (EXIF orientation) is
/// not applied, because image measurements and camera calibrations refer to stored pixels.
///
/// A JPEG is decoded when its pixels are first needed: ResizeInterpolated on a picture that
/// was loaded and not touched since decodes it at the smallest scale (1/2, 1/4, 1/8) that
/// still holds twice the wanted pixels, which is several times as fast and nearly as good.
///
///     tarn::Image photograph("photos/DSC_0423.JPG");
///     int width = 0, height = 0;
///     if (!photograph.Load() || !photograph.GetExtents(width, height) ||
///         !photograph.ResizeInterpolated(width / 10, height / 10, 0, 1) ||
///         !photograph.Save("photos/DSC_0423.sgi.3dvip", tarn::Image::formatSGI, 50)) {
///       tarn::warning("%s", photograph.LastError().c_str());
///     }
///
/// What cannot be read, a file that is cut off or damaged included, is refused: functions
/// return 0 and LastError tells why. A file's header is not believed beyond what a file of
/// its size can hold, so that a wrong one costs no memory.
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
  /// Another file, not loaded.
  void SetFileName(const VPathString& fileName);

  /// Reads the file's header; the pixels follow when they are needed. `keepFile` non-zero
  /// reads the whole file into memory, so that what happens to it later does not matter;
  /// zero reads no more than the header needs, and the file again for the pixels. Returns
  /// 0, with nothing loaded, when the file is missing, unreadable, of a kind that is not
  /// known, in printing colours, or when its header is wrong; see LastError.
  virtual int Load(int keepFile = 1);

  /// Width and height in pixels, of the picture as it is now. Returns 0 when
  /// nothing is loaded.
  virtual int GetExtents(int& width, int& height) const;

  /// Shrinks or grows the picture to width x height: along an axis that shrinks, each new
  /// pixel is the mean of what it covers; along one that grows, pixels are interpolated
  /// linearly. `keepAspect` non-zero keeps the aspect ratio: the picture then fits into the
  /// given size. `quality` 0 takes the nearest pixel instead. Returns 0, and leaves the
  /// picture as it was, for a size below 1 pixel, or when the picture cannot be decoded.
  virtual int ResizeInterpolated(int width, int height, int keepAspect, int quality);

  /// Writes the picture in the format of that code (formatSGI). `quality`, 0 to
  /// 100, is for formats that lose something; SGI does not. The file appears whole
  /// or not at all, and replaces an earlier one. Returns 0 when it could not be written.
  virtual int Save(const VPathString& fileName, int formatCode, int quality);

  /// Bytes a pixel; 0 when nothing is loaded.
  int components() const;

  /// The pixels, decoded now if they were not yet; null when that fails. Valid
  /// until the picture changes. width * height * components bytes.
  const std::uint8_t* pixels();

  /// Sets the pixels from a copy of the given ones, laid out as above. Null, a size below
  /// 1 pixel or a number of components out of 1 to 4 leaves nothing loaded.
  void SetPixels(const std::uint8_t* pixels, int width, int height, int components);

  /// Why the last call failed, in words that name the file; empty when it did not.
  const std::string& LastError() const { return _lastError; }

  VClass* iam() const override { return &ImageCls; }

private:
  struct Source;  // the encoded file, until the pixels are decoded from it

  void forget();
  int attempt(const VPathString& fileName, const std::function<void()>& work);
  const std::uint8_t* decoded();
  ImageRaster decode(int leastWidth, int leastHeight);

  VPathString _fileName;
  std::unique_ptr<Source> _source;
  std::vector<std::uint8_t> _pixels;
  int _width = 0;
  int _height = 0;
  int _components = 0;
  std::string _lastError;
};

}  // namespace tarn
