#include "host/model/Image.h"

#include "tests/support/PictureFiles.h"
#include "tests/support/TarnTest.h"

#include <csignal>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>
#include <sys/resource.h>
#include <sys/stat.h>

using ::testing::AllOf;
using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;

namespace {

class ImageTest : public TarnTest {
protected:
  std::vector<int> pixelsOf(tarn::Image& image) {
    int width = 0;
    int height = 0;
    const std::uint8_t* pixels = image.pixels();
    if (!pixels || !image.GetExtents(width, height)) return {};
    return {pixels, pixels + width * height * image.components()};
  }

  // The result of the call that loads `file` and makes it give its pixels.
  int loadAll(const std::string& file) {
    tarn::Image image(file.c_str());
    const int loaded = image.Load() && image.pixels();
    lastError = image.LastError();
    return loaded;
  }

  // Expects that the picture is refused with an error that names it and says `why`.
  void expectRefused(const std::string& file, const std::string& why) {
    EXPECT_EQ(loadAll(file), 0);
    EXPECT_THAT(lastError, AllOf(StartsWith(file + ": "), HasSubstr(why)));
  }

  // A row of grey pixels, resized.
  std::vector<int> rowResized(const std::vector<std::uint8_t>& row, int width, int quality = 1) {
    tarn::Image image;
    image.SetPixels(row.data(), static_cast<int>(row.size()), 1, 1);
    EXPECT_EQ(image.ResizeInterpolated(width, 1, 0, quality), 1);
    return pixelsOf(image);
  }

  std::vector<int> columnResized(const std::vector<std::uint8_t>& column, int height) {
    tarn::Image image;
    image.SetPixels(column.data(), 1, static_cast<int>(column.size()), 1);
    EXPECT_EQ(image.ResizeInterpolated(1, height, 0, 1), 1);
    return pixelsOf(image);
  }

  std::size_t filesInFolder() const {
    const std::filesystem::directory_iterator files(folder.path());
    return static_cast<std::size_t>(std::distance(begin(files), end(files)));
  }

  TemporaryFolder folder;
  std::string lastError;
};

// Four colours, a different one in each quarter, well told apart after any compression.
Pixels quarters() {
  Pixels pixels(64, 48, 3);
  const int colours[4][3] = {{250, 10, 10}, {10, 250, 10}, {10, 10, 250}, {250, 250, 10}};
  for (int y = 0; y < 48; ++y) {
    for (int x = 0; x < 64; ++x) {
      for (int c = 0; c < 3; ++c) {
        pixels.at(x, y, c) =
            static_cast<std::uint8_t>(colours[(y >= 24 ? 2 : 0) + (x >= 32 ? 1 : 0)][c]);
      }
    }
  }
  return pixels;
}

// The 32-bit number at the end of a PNG chunk.
std::uint32_t pngChecksum(const std::string& bytes) {
  std::uint32_t sum = 0xffffffff;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) sum = sum & 1 ? sum >> 1 ^ 0xedb88320 : sum >> 1;
  }
  return ~sum;
}

std::string bigEndian(std::uint32_t value) {
  return {static_cast<char>(value >> 24), static_cast<char>(value >> 16),
          static_cast<char>(value >> 8), static_cast<char>(value)};
}

// The PNG with another size in its header, right in itself.
std::string pngSized(std::string png, std::uint32_t width, std::uint32_t height) {
  png.replace(16, 8, bigEndian(width) + bigEndian(height));
  return png.replace(29, 4, bigEndian(pngChecksum(png.substr(12, 17))));
}

// The JPEG with another size in its header.
std::string jpegSized(std::string jpeg, int width, int height) {
  const std::size_t frame = jpeg.find("\xff\xc0");
  jpeg[frame + 5] = static_cast<char>(height >> 8);
  jpeg[frame + 6] = static_cast<char>(height);
  jpeg[frame + 7] = static_cast<char>(width >> 8);
  jpeg[frame + 8] = static_cast<char>(width);
  return jpeg;
}

}  // namespace

TEST_F(ImageTest, has_no_extents_pixels_or_components_before_it_is_loaded) {
  tarn::Image image("photo.jpg");
  int width = 7;
  int height = 8;
  EXPECT_EQ(image.GetExtents(width, height), 0);
  EXPECT_EQ(width, 7);
  EXPECT_EQ(image.components(), 0);
  EXPECT_EQ(image.pixels(), nullptr);
  EXPECT_EQ(image.LastError(), "photo.jpg: no picture is loaded");
  EXPECT_EQ(image.ResizeInterpolated(1, 1, 0, 1), 0);
  EXPECT_EQ(image.LastError(), "photo.jpg: no picture is loaded");
}

TEST_F(ImageTest, measures_a_jpeg) {
  tarn::Image image(folder.write("photo.jpg", jpegOf(Pixels::pattern(301, 203, 3))).c_str());
  ASSERT_EQ(image.Load(), 1) << image.LastError();
  int width = 0;
  int height = 0;
  EXPECT_EQ(image.GetExtents(width, height), 1);
  EXPECT_EQ(width, 301);
  EXPECT_EQ(height, 203);
  EXPECT_EQ(image.components(), 3);
  EXPECT_EQ(image.LastError(), "");
}

TEST_F(ImageTest, reads_a_progressive_jpeg) {
  const Pixels pixels = Pixels::pattern(301, 203, 3);
  tarn::Image image(folder.write("photo.jpg", jpegOf(pixels, 95, true)).c_str());
  ASSERT_EQ(image.Load(), 1) << image.LastError();
  ASSERT_NE(image.pixels(), nullptr) << image.LastError();
  EXPECT_LT(rootMeanSquare(image.pixels(), pixels.bytes.data(), pixels.bytes.size()), 3);
}

TEST_F(ImageTest, leaves_a_grey_jpeg_at_one_component) {
  const Pixels grey = Pixels::pattern(80, 60, 1);
  tarn::Image image(folder.write("photo.jpg", jpegOf(grey)).c_str());
  ASSERT_EQ(image.Load(), 1) << image.LastError();
  EXPECT_EQ(image.components(), 1);
  ASSERT_NE(image.pixels(), nullptr);
  // Compression at quality 95 changes smooth shades by one or two.
  EXPECT_LT(rootMeanSquare(image.pixels(), grey.bytes.data(), grey.bytes.size()), 2);
}

TEST_F(ImageTest, gives_rows_from_the_top_down_whatever_the_file) {
  const Pixels pixels = quarters();
  const std::string tiff = folder.file("photo.tif");
  writeTiff(tiff, pixels);
  for (const std::string& file : {folder.write("photo.jpg", jpegOf(pixels)),
                                  folder.write("photo.png", pngOf(pixels)), tiff}) {
    SCOPED_TRACE(file);
    tarn::Image image(file.c_str());
    ASSERT_EQ(image.Load(), 1) << image.LastError();
    ASSERT_NE(image.pixels(), nullptr) << image.LastError();
    // JPEG blurs the edges between the colours; a picture upside down differs by 150.
    EXPECT_LT(rootMeanSquare(image.pixels(), pixels.bytes.data(), pixels.bytes.size()), 20);
  }
}

TEST_F(ImageTest, reads_png_of_every_number_of_components_exactly) {
  for (int components = 1; components <= 4; ++components) {
    const Pixels pixels = Pixels::pattern(13, 7, components);
    tarn::Image image(folder.write("photo.png", pngOf(pixels)).c_str());
    ASSERT_EQ(image.Load(), 1) << image.LastError();
    EXPECT_EQ(image.components(), components);
    EXPECT_EQ(pixelsOf(image), std::vector<int>(pixels.bytes.begin(), pixels.bytes.end()));
  }
}

TEST_F(ImageTest, brings_a_16_bit_png_to_8_bits_without_changing_its_brightness) {
  tarn::Image image(folder.write("photo.png", png16Of(4, 1, {0, 0x4040, 0x8080, 0xffff})).c_str());
  ASSERT_EQ(image.Load(), 1) << image.LastError();
  EXPECT_THAT(pixelsOf(image), ElementsAre(0, 0x40, 0x80, 0xff));
}

TEST_F(ImageTest, reads_tiff_of_grey_and_of_colour_packed_or_not_exactly) {
  for (const int components : {1, 3}) {
    for (const int compression : {1, 5, 8}) {
      const Pixels pixels = Pixels::pattern(13, 7, components);
      const std::string file = folder.file("photo.tif");
      writeTiff(file, pixels, 1, compression);
      tarn::Image image(file.c_str());
      ASSERT_EQ(image.Load(), 1) << image.LastError();
      EXPECT_EQ(image.components(), components);
      EXPECT_EQ(pixelsOf(image), std::vector<int>(pixels.bytes.begin(), pixels.bytes.end()));
    }
  }
}

TEST_F(ImageTest, does_not_multiply_the_colours_of_a_tiff_by_its_alpha) {
  for (const int components : {2, 4}) {
    Pixels pixels(2, 1, components);
    for (int c = 0; c < components - 1; ++c) pixels.at(0, 0, c) = pixels.at(1, 0, c) = 200;
    pixels.at(0, 0, components - 1) = 255;
    pixels.at(1, 0, components - 1) = 128;
    const std::string file = folder.file("photo.tif");
    writeTiff(file, pixels);
    tarn::Image image(file.c_str());
    ASSERT_EQ(image.Load(), 1) << image.LastError();
    EXPECT_EQ(image.components(), components);
    // Dividing by 128 what was multiplied by it may lose a unit.
    EXPECT_LT(rootMeanSquare(image.pixels(), pixels.bytes.data(), pixels.bytes.size()), 1.1);
  }
}

TEST_F(ImageTest, leaves_the_pixels_of_a_tiff_as_stored_whatever_its_orientation_tag) {
  const Pixels pixels = quarters();
  for (int orientation = 1; orientation <= 8; ++orientation) {
    SCOPED_TRACE(orientation);
    const std::string file = folder.file("photo.tif");
    writeTiff(file, pixels, orientation);
    tarn::Image image(file.c_str());
    ASSERT_EQ(image.Load(), 1) << image.LastError();
    EXPECT_EQ(pixelsOf(image), std::vector<int>(pixels.bytes.begin(), pixels.bytes.end()));
  }
}

TEST_F(ImageTest, leaves_the_pixels_of_a_jpeg_as_stored_whatever_its_exif_orientation) {
  // EXIF: one entry of one 16-bit number, orientation 6 (the camera stood upright).
  const std::string exif(
      "\xff\xe1\x00\x22"
      "Exif\0\0II*\0\x08\0\0\0\x01\0\x12\x01\x03\0\x01\0\0\0\x06\0\0\0\0\0\0\0",
      36);
  std::string file = jpegOf(quarters());
  file.insert(2, exif);
  tarn::Image image(folder.write("photo.jpg", file).c_str());
  ASSERT_EQ(image.Load(), 1) << image.LastError();
  int width = 0;
  int height = 0;
  EXPECT_EQ(image.GetExtents(width, height), 1);
  EXPECT_EQ(width, 64);
  EXPECT_EQ(height, 48);
  ASSERT_NE(image.pixels(), nullptr) << image.LastError();
  EXPECT_GT(image.pixels()[0], 200) << "the upper left quarter is red";
}

TEST_F(ImageTest, averages_what_each_new_pixel_covers_when_it_shrinks) {
  EXPECT_THAT(rowResized({10, 20, 100, 200}, 2), ElementsAre(15, 150));
  // A pixel that is covered in half counts half: (0 + 90 / 2) / 1.5, (90 / 2 + 240) / 1.5.
  EXPECT_THAT(rowResized({0, 90, 240}, 2), ElementsAre(30, 190));
  EXPECT_THAT(columnResized({0, 90, 240}, 2), ElementsAre(30, 190));
  EXPECT_THAT(rowResized({1, 2, 3, 4, 200}, 1), ElementsAre(42));
}

TEST_F(ImageTest, interpolates_linearly_between_pixel_centres_when_it_grows) {
  EXPECT_THAT(rowResized({0, 100}, 4), ElementsAre(0, 25, 75, 100));
  EXPECT_THAT(columnResized({0, 100}, 4), ElementsAre(0, 25, 75, 100));
  EXPECT_THAT(rowResized({9}, 3), ElementsAre(9, 9, 9));
}

TEST_F(ImageTest, takes_the_nearest_pixel_at_quality_0) {
  EXPECT_THAT(rowResized({10, 20, 30, 40, 50, 60}, 2, 0), ElementsAre(20, 50));
  EXPECT_THAT(rowResized({10, 20}, 4, 0), ElementsAre(10, 10, 20, 20));
}

TEST_F(ImageTest, keeps_components_apart_when_it_is_resized) {
  for (int components = 1; components <= 4; ++components) {
    Pixels pixels(6, 4, components);
    for (int y = 0; y < 4; ++y) {
      for (int x = 0; x < 6; ++x) {
        for (int c = 0; c < components; ++c) {
          pixels.at(x, y, c) = static_cast<std::uint8_t>(10 + 50 * c);
        }
      }
    }
    tarn::Image image;
    image.SetPixels(pixels.bytes.data(), 6, 4, components);
    ASSERT_EQ(image.ResizeInterpolated(3, 3, 0, 1), 1);
    const std::vector<int> resized = pixelsOf(image);
    ASSERT_EQ(resized.size(), static_cast<std::size_t>(9 * components));
    for (std::size_t i = 0; i < resized.size(); ++i) {
      EXPECT_EQ(resized[i], 10 + 50 * (static_cast<int>(i) % components));
    }
  }
}

TEST_F(ImageTest, keeps_an_even_colour_whatever_the_factor) {
  const Pixels white = [] {
    Pixels pixels(97, 61, 3);
    std::ranges::fill(pixels.bytes, std::uint8_t{255});
    return pixels;
  }();
  for (const int width : {1, 7, 30, 96, 97, 98, 200}) {
    tarn::Image image;
    image.SetPixels(white.bytes.data(), 97, 61, 3);
    ASSERT_EQ(image.ResizeInterpolated(width, width, 0, 1), 1);
    EXPECT_THAT(pixelsOf(image), ::testing::Each(255));
  }
}

TEST_F(ImageTest, fits_into_the_size_when_it_keeps_its_aspect_ratio) {
  const Pixels pixels = Pixels::pattern(40, 20, 1);
  const int cases[][4] = {{10, 10, 10, 5}, {30, 5, 10, 5}, {80, 80, 80, 40}, {1, 1, 1, 1}};
  for (const auto& [askedWidth, askedHeight, expectedWidth, expectedHeight] : cases) {
    tarn::Image image;
    image.SetPixels(pixels.bytes.data(), 40, 20, 1);
    ASSERT_EQ(image.ResizeInterpolated(askedWidth, askedHeight, 1, 1), 1);
    int width = 0;
    int height = 0;
    image.GetExtents(width, height);
    EXPECT_EQ(width, expectedWidth);
    EXPECT_EQ(height, expectedHeight);
  }
}

TEST_F(ImageTest, shrinks_a_jpeg_from_a_reduced_scale_nearly_as_from_all_pixels) {
  // Sizes that neither 8 nor the factor divides: a shift by part of a pixel would show.
  const Pixels pixels = Pixels::pattern(1003, 701, 3);
  const std::string file = folder.write("photo.jpg", jpegOf(pixels));
  for (const int factor : {3, 5, 10, 20}) {
    SCOPED_TRACE(factor);
    tarn::Image scaled(file.c_str());
    tarn::Image full(file.c_str());
    ASSERT_EQ(scaled.Load(), 1);
    ASSERT_EQ(full.Load(), 1);
    ASSERT_NE(full.pixels(), nullptr);
    ASSERT_EQ(scaled.ResizeInterpolated(1003 / factor, 701 / factor, 0, 1), 1);
    ASSERT_EQ(full.ResizeInterpolated(1003 / factor, 701 / factor, 0, 1), 1);
    const auto count = static_cast<std::size_t>((1003 / factor) * (701 / factor) * 3);
    // The pattern changes by up to three shades a pixel of the smallest result.
    EXPECT_LT(rootMeanSquare(scaled.pixels(), full.pixels(), count), 0.8);
  }
}

TEST_F(ImageTest, refuses_a_size_below_1_pixel_or_beyond_all_reason_and_stays_as_it_was) {
  tarn::Image image(folder.write("photo.jpg", jpegOf(quarters())).c_str());
  ASSERT_EQ(image.Load(), 1);
  const int sizes[][2] = {{0, 10}, {10, 0}, {-5, 10}, {2000000000, 2000000000}, {1 << 16, 1 << 16}};
  for (const auto& [width, height] : sizes) {
    EXPECT_EQ(image.ResizeInterpolated(width, height, 0, 1), 0);
    EXPECT_THAT(image.LastError(), HasSubstr("cannot be resized to " + std::to_string(width)));
  }
  int width = 0;
  int height = 0;
  EXPECT_EQ(image.GetExtents(width, height), 1);
  EXPECT_EQ(width, 64);
  EXPECT_EQ(height, 48);
  EXPECT_NE(image.pixels(), nullptr);
}

TEST_F(ImageTest, writes_an_sgi_file_that_reads_back_the_same) {
  for (int components = 1; components <= 4; ++components) {
    const Pixels pixels = Pixels::pattern(37, 23, components);
    const std::string file = folder.file("texture.sgi.3dvip");
    tarn::Image image;
    image.SetPixels(pixels.bytes.data(), 37, 23, components);
    ASSERT_EQ(image.Save(file.c_str(), tarn::Image::formatSGI, 50), 1) << image.LastError();
    const Pixels read = readBySimage(file);
    EXPECT_EQ(read.components, components);
    EXPECT_EQ(read.width, 37);
    EXPECT_EQ(read.bytes, pixels.bytes);
    EXPECT_EQ(filesInFolder(), 1U) << "nothing but the picture is left";
  }
}

TEST_F(ImageTest, saves_a_photograph_that_was_only_loaded) {
  const Pixels pixels = quarters();
  tarn::Image image(folder.write("photo.png", pngOf(pixels)).c_str());
  ASSERT_EQ(image.Load(), 1);
  ASSERT_EQ(image.Save(folder.file("photo.sgi").c_str(), 142, 50), 1) << image.LastError();
  EXPECT_EQ(readBySimage(folder.file("photo.sgi")).bytes, pixels.bytes);
}

TEST_F(ImageTest, does_not_write_what_it_cannot_and_leaves_nothing_behind) {
  const Pixels pixels = Pixels::pattern(100, 100, 3);
  tarn::Image image;
  image.SetPixels(pixels.bytes.data(), 100, 100, 3);

  const std::string file = folder.file("texture.sgi");
  EXPECT_EQ(image.Save(file.c_str(), 141, 50), 0);
  EXPECT_EQ(image.LastError(), file + ": no picture is written in format 141 (142, SGI, is)");

  const std::string nowhere = folder.file("nowhere/texture.sgi");
  EXPECT_EQ(image.Save(nowhere.c_str(), 142, 50), 0);
  EXPECT_THAT(image.LastError(), StartsWith(nowhere + ": the picture cannot be written"));

  EXPECT_EQ(image.Save(folder.path().c_str(), 142, 50), 0);
  EXPECT_THAT(image.LastError(), StartsWith(folder.path() + ": the picture cannot be written"));

  tarn::Image empty;
  EXPECT_EQ(empty.Save(file.c_str(), 142, 50), 0);
  EXPECT_EQ(empty.LastError(), file + ": no picture is loaded");

  std::vector<std::uint8_t> wide(65536);
  image.SetPixels(wide.data(), 65536, 1, 1);
  EXPECT_EQ(image.Save(file.c_str(), 142, 50), 0);
  EXPECT_THAT(image.LastError(), HasSubstr("65535"));

  EXPECT_EQ(filesInFolder(), 0U);
}

TEST_F(ImageTest, keeps_the_earlier_file_when_the_disk_is_full) {
  const std::string file = folder.write("texture.sgi", "earlier");
  const Pixels pixels = Pixels::pattern(100, 100, 3);
  tarn::Image image;
  image.SetPixels(pixels.bytes.data(), 100, 100, 3);
  rlimit earlier{};
  ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &earlier), 0);
  const auto signalled = std::signal(SIGXFSZ, SIG_IGN);
  const rlimit limit{8192, earlier.rlim_max};
  ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &limit), 0);
  const int saved = image.Save(file.c_str(), tarn::Image::formatSGI, 50);
  setrlimit(RLIMIT_FSIZE, &earlier);
  std::signal(SIGXFSZ, signalled);
  EXPECT_EQ(saved, 0);
  EXPECT_THAT(image.LastError(), StartsWith(file + ": the picture cannot be written"));
  EXPECT_EQ(filesInFolder(), 1U);
  EXPECT_EQ(std::filesystem::file_size(file), 7U);
}

TEST_F(ImageTest, copies_the_pixels_it_is_given) {
  std::vector<std::uint8_t> pixels{1, 2, 3, 4, 5, 6};
  tarn::Image image;
  image.SetPixels(pixels.data(), 3, 2, 1);
  pixels.assign(6, 0);
  EXPECT_THAT(pixelsOf(image), ElementsAre(1, 2, 3, 4, 5, 6));
  image.SetPixels(image.pixels() + 3, 3, 1, 1);
  EXPECT_THAT(pixelsOf(image), ElementsAre(4, 5, 6));
}

TEST_F(ImageTest, holds_nothing_after_pixels_that_make_no_sense) {
  const std::uint8_t pixel[8] = {};
  const std::function<void(tarn::Image&)> settings[] = {
      [&](tarn::Image& image) { image.SetPixels(nullptr, 1, 1, 1); },
      [&](tarn::Image& image) { image.SetPixels(pixel, 0, 1, 1); },
      [&](tarn::Image& image) { image.SetPixels(pixel, 1, -1, 1); },
      [&](tarn::Image& image) { image.SetPixels(pixel, 1, 1, 0); },
      [&](tarn::Image& image) { image.SetPixels(pixel, 1, 1, 5); }};
  for (const auto& set : settings) {
    tarn::Image image;
    image.SetPixels(pixel, 2, 2, 1);
    set(image);
    EXPECT_EQ(image.components(), 0);
    EXPECT_EQ(image.pixels(), nullptr);
  }
}

TEST_F(ImageTest, is_not_loaded_as_a_copy) {
  tarn::Image image(folder.write("photo.png", pngOf(quarters())).c_str());
  ASSERT_EQ(image.Load(), 1);
  tarn::Image copy(image);
  EXPECT_EQ(copy.GetFileName()->str(), image.GetFileName()->str());
  EXPECT_EQ(copy.components(), 0);
  ASSERT_EQ(copy.Load(), 1);
  EXPECT_NE(copy.pixels(), nullptr);
  copy = tarn::Image("other.png");
  EXPECT_EQ(copy.GetFileName()->str(), "other.png");
  EXPECT_EQ(copy.components(), 0);
  const tarn::Image& self = image;
  image = self;
  EXPECT_EQ(image.components(), 3);
}

TEST_F(ImageTest, needs_its_file_no_more_when_it_was_kept) {
  const std::string file = folder.write("photo.jpg", jpegOf(quarters()));
  tarn::Image image(file.c_str());
  ASSERT_EQ(image.Load(1), 1);
  std::filesystem::remove(file);
  EXPECT_NE(image.pixels(), nullptr) << image.LastError();
}

TEST_F(ImageTest, reads_its_file_again_for_the_pixels_when_it_was_not_kept) {
  const std::string file = folder.write("photo.jpg", jpegOf(quarters()));
  tarn::Image image(file.c_str());
  ASSERT_EQ(image.Load(0), 1);
  EXPECT_NE(image.pixels(), nullptr) << image.LastError();

  ASSERT_EQ(image.Load(0), 1);
  std::filesystem::remove(file);
  EXPECT_EQ(image.pixels(), nullptr);
  EXPECT_EQ(image.LastError(), file + ": there is no such file");

  folder.write("photo.jpg", jpegOf(Pixels::pattern(10, 10, 3)));
  EXPECT_EQ(image.pixels(), nullptr);
  EXPECT_EQ(image.LastError(), file + ": the file has changed since it was loaded");
}

TEST_F(ImageTest, finds_a_header_behind_a_great_deal_of_metadata) {
  // Ten segments of comment, as long as they can be, before the picture's own.
  std::string file = jpegOf(quarters());
  for (int i = 0; i < 10; ++i) {
    file.insert(2, std::string("\xff\xfe\xff\xff", 4) + std::string(65533, 'x'));
  }
  const std::string name = folder.write("photo.jpg", file);
  for (const int keepFile : {0, 1}) {
    tarn::Image image(name.c_str());
    ASSERT_EQ(image.Load(keepFile), 1) << image.LastError();
    EXPECT_NE(image.pixels(), nullptr) << image.LastError();
  }
}

TEST_F(ImageTest, refuses_what_is_no_picture_and_names_it) {
  expectRefused(folder.file("missing.jpg"), "there is no such file");
  expectRefused(folder.path(), "a folder, not a file");
  expectRefused(folder.write("empty.jpg", ""), "the file is empty");
  expectRefused(folder.write("text.jpg", "This is no photograph.\n"),
                "not a picture that is known");
  expectRefused(folder.write("short.jpg", "\xff\xd8\xff"), "the JPEG cannot be decoded");
  expectRefused(folder.write("short.png", "\x89PNG\r\n\x1a\n"), "the PNG cannot be decoded");
  expectRefused(folder.write("short.tif", std::string("II*\0", 4)), "the TIFF cannot be decoded");
  expectRefused("", "there is no such file");
}

TEST_F(ImageTest, does_not_wait_at_a_pipe) {
  const std::string pipe = folder.file("pipe.jpg");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  expectRefused(pipe, "not a regular file");
}

TEST_F(ImageTest, holds_nothing_after_a_load_that_failed) {
  const std::string file = folder.write("photo.png", pngOf(quarters()));
  tarn::Image image(file.c_str());
  ASSERT_EQ(image.Load(), 1);
  std::filesystem::remove(file);
  EXPECT_EQ(image.Load(), 0);
  EXPECT_EQ(image.components(), 0);
}

TEST_F(ImageTest, refuses_a_jpeg_in_printing_colours) {
  expectRefused(folder.write("photo.jpg", jpegOf(Pixels::pattern(32, 32, 4))),
                "a JPEG in printing colours (CMYK)");
}

TEST_F(ImageTest, refuses_a_photograph_that_is_cut_off_anywhere) {
  const Pixels pixels = Pixels::pattern(40, 30, 3);
  const std::string tiff = folder.file("whole.tif");
  writeTiff(tiff, pixels, 1, 5);
  std::ifstream tiffFile(tiff, std::ios::binary);
  const std::string files[] = {
      jpegOf(pixels), jpegOf(pixels, 95, true), pngOf(pixels),
      std::string(std::istreambuf_iterator<char>(tiffFile), std::istreambuf_iterator<char>())};
  for (const std::string& file : files) {
    const std::string whole = folder.write("whole", file);
    EXPECT_EQ(loadAll(whole), 1) << lastError;
    for (std::size_t length = 0; length < file.size() - 1; length += 1 + length / 40) {
      SCOPED_TRACE(length);
      expectRefused(folder.write("cut", file.substr(0, length)), "");
    }
  }
}

TEST_F(ImageTest, keeps_its_size_when_a_photograph_that_is_cut_off_cannot_be_shrunk) {
  const std::string file = jpegOf(Pixels::pattern(400, 300, 3));
  const std::string name = folder.write("photo.jpg", file.substr(0, file.size() / 2));
  tarn::Image image(name.c_str());
  ASSERT_EQ(image.Load(), 1);
  EXPECT_EQ(image.ResizeInterpolated(40, 30, 0, 1), 0);
  EXPECT_THAT(image.LastError(), StartsWith(name + ": the JPEG cannot be decoded"));
  int width = 0;
  int height = 0;
  EXPECT_EQ(image.GetExtents(width, height), 1);
  EXPECT_EQ(width, 400);
  EXPECT_EQ(image.Save(folder.file("photo.sgi").c_str(), 142, 50), 0);
  EXPECT_EQ(filesInFolder(), 1U);
}

TEST_F(ImageTest, survives_any_damage) {
  const Pixels pixels = Pixels::pattern(40, 30, 3);
  const std::string tiff = folder.file("whole.tif");
  writeTiff(tiff, pixels, 1, 5);
  std::ifstream tiffFile(tiff, std::ios::binary);
  const std::string files[] = {
      jpegOf(pixels), jpegOf(pixels, 95, true), pngOf(pixels),
      std::string(std::istreambuf_iterator<char>(tiffFile), std::istreambuf_iterator<char>())};
  std::uint32_t random = 12345;
  const auto next = [&random] { return (random = random * 1664525 + 1013904223) >> 8; };
  int refused = 0;
  for (const std::string& file : files) {
    for (int i = 0; i < 120; ++i) {
      std::string damaged = file;
      // Headers stand at one of the ends: damage is made there more often.
      for (int k = 0; k < 3; ++k) {
        const std::size_t within = std::min<std::size_t>(file.size(), next() % 2 ? 300 : 1 << 20);
        const std::size_t at = next() % within;
        damaged[next() % 4 ? at : file.size() - 1 - at] = static_cast<char>(next());
      }
      const std::string name = folder.write("damaged", damaged);
      tarn::Image image(name.c_str());
      if (image.Load() && image.ResizeInterpolated(4, 3, 0, 1)) {
        EXPECT_NE(image.pixels(), nullptr);
      } else {
        ++refused;
        EXPECT_THAT(image.LastError(), StartsWith(name + ": "));
      }
    }
  }
  EXPECT_GT(refused, 100) << "most damage is noticed";
}

TEST_F(ImageTest, does_not_believe_a_header_beyond_what_its_file_can_hold) {
  const Pixels pixels = Pixels::pattern(64, 64, 3);
  const std::string jpeg = jpegOf(pixels);
  expectRefused(folder.write("a.jpg", jpegSized(jpeg, 65000, 65000)),
                "a JPEG of 65000 x 65000 pixels, which is too large");
  expectRefused(folder.write("b.jpg", jpegSized(jpeg, 20000, 20000)),
                "a JPEG of 20000 x 20000 pixels cannot be in a file of " +
                    std::to_string(jpeg.size()) + " bytes");
  const std::string png = pngOf(pixels);
  expectRefused(folder.write("a.png", pngSized(png, 20000, 20000)),
                "a PNG of 20000 x 20000 pixels cannot be in a file of");
  expectRefused(folder.write("b.png", pngSized(png, 1000000, 1000000)),
                "a PNG of 1000000 x 1000000 pixels, which is too large");
  expectRefused(folder.write("c.png", pngSized(png, 0x7fffffff, 0x7fffffff)), "the PNG");
  const std::string tiff = folder.file("a.tif");
  writeTiff(tiff, pixels);
  std::fstream file(tiff, std::ios::in | std::ios::out | std::ios::binary);
  std::string bytes((std::istreambuf_iterator<char>(file)), std::istreambuf_iterator<char>());
  // The entries of width and height: tag 256 or 257, type 3 (16 bits) or 4, one value.
  for (const char tag : {'\0', '\1'}) {
    const std::size_t entry =
        bytes.rfind(std::string{tag, '\1', '\3', '\0', '\1', '\0', '\0', '\0'});
    ASSERT_NE(entry, std::string::npos);
    bytes[entry + 8] = '\x20';
    bytes[entry + 9] = '\x4e';
  }
  expectRefused(folder.write("b.tif", bytes), "a TIFF of 20000 x 20000 pixels cannot be in a file");
}

TEST_F(ImageTest, refuses_a_photograph_without_pixels) {
  const Pixels pixels = Pixels::pattern(64, 64, 3);
  expectRefused(folder.write("a.jpg", jpegSized(jpegOf(pixels), 0, 64)), "JPEG");
  expectRefused(folder.write("b.jpg", jpegSized(jpegOf(pixels), 64, 0)), "JPEG");
  expectRefused(folder.write("a.png", pngSized(pngOf(pixels), 0, 64)), "PNG");
}

TEST_F(ImageTest, accepts_a_jpeg_with_stray_bytes_before_its_end_marker) {
  std::string file = jpegOf(quarters());
  file.insert(file.size() - 2, "stray bytes");
  EXPECT_EQ(loadAll(folder.write("photo.jpg", file)), 1) << lastError;
}

TEST_F(ImageTest, accepts_blanks_and_letters_of_any_language_in_names) {
  const std::string file = folder.write("Fotos März/Straße 1.jpg", jpegOf(quarters()));
  tarn::Image image(file.c_str());
  ASSERT_EQ(image.Load(), 1) << image.LastError();
  EXPECT_EQ(image.Save((file + ".sgi").c_str(), 142, 50), 1) << image.LastError();
}
