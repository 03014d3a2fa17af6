// A photograph reduced to an image plane's texture: the whole way from file to file.
#include <simage.h>
#include <turbojpeg.h>

#include "bench/Subject.h"
#include "host/model/Image.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <memory>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <vector>

namespace {

constexpr int photoWidth = 6000;
constexpr int photoHeight = 4000;
constexpr int factor = 10;

// Neighbouring numbers have unrelated results; the same on every machine.
std::uint32_t scramble(std::uint32_t n) {
  n = (n ^ (n >> 16)) * 0x7feb352dU;
  n = (n ^ (n >> 15)) * 0x846ca68bU;
  return n ^ (n >> 16);
}

// Smooth noise of wave length `cell`, 0 to 1, at a pixel.
float smoothNoise(int x, int y, int cell, std::uint32_t seed) {
  const int column = x / cell;
  const int row = y / cell;
  const auto corner = [&](int i, int j) {
    const auto n = static_cast<std::uint32_t>((row + j) * 8191 + column + i);
    return static_cast<float>(scramble(n + seed) & 0xffff) / 65535.0F;
  };
  const auto u = static_cast<float>(x - column * cell) / static_cast<float>(cell);
  const auto v = static_cast<float>(y - row * cell) / static_cast<float>(cell);
  const float upper = std::lerp(corner(0, 0), corner(1, 0), u);
  const float lower = std::lerp(corner(0, 1), corner(1, 1), u);
  return std::lerp(upper, lower, v);
}

// Light that falls off to the corners, patches and texture of several sizes, a row of
// discs with sharp edges, and the grain of a sensor: what a photograph of a measured
// object is made of, and as many bytes as one (about 10 MB).
void drawRow(int y, std::uint8_t* row) {
  for (int x = 0; x < photoWidth; ++x) {
    const float dx = (static_cast<float>(x) / photoWidth) - 0.5F;
    const float dy = (static_cast<float>(y) / photoHeight) - 0.5F;
    float light = 0.9F - 0.6F * (dx * dx + dy * dy);
    light *= 0.35F + 0.3F * smoothNoise(x, y, 411, 1) + 0.2F * smoothNoise(x, y, 53, 2) +
             0.15F * smoothNoise(x, y, 7, 3);
    const int inCellX = x % 500 - 250;
    const int inCellY = y % 500 - 250;
    if (inCellX * inCellX + inCellY * inCellY < 60 * 60) light = 0.95F;
    const float hue = smoothNoise(x, y, 307, 4);
    const std::array<float, 3> tint{0.8F + 0.2F * hue, 0.9F, 1.0F - 0.3F * hue};
    for (std::size_t c = 0; c < 3; ++c) {
      const auto n = static_cast<std::uint32_t>((y * photoWidth + x) * 3) + std::uint32_t(c);
      const std::uint32_t bits = scramble(n);
      const float grain = static_cast<float>((bits & 0xff) + (bits >> 8 & 0xff)) / 255.0F - 1.0F;
      row[static_cast<std::size_t>(x) * 3 + c] = static_cast<std::uint8_t>(
          std::lround(std::clamp(light * tint[c] * 255.0F + 14.0F * grain, 0.0F, 255.0F)));
    }
  }
}

void check(bool success, const std::string& what) {
  if (!success) throw std::runtime_error(what);
}

// The photograph's file, made on first use.
std::string photograph() {
  const std::string fileName = bench::keptFolder() + "/photograph-1.jpg";
  if (std::filesystem::exists(fileName)) return fileName;
  std::vector<std::uint8_t> pixels(std::size_t{photoWidth} * photoHeight * 3);
  for (int y = 0; y < photoHeight; ++y) {
    drawRow(y, &pixels[static_cast<std::size_t>(y) * photoWidth * 3]);
  }
  const std::unique_ptr<void, int (*)(tjhandle)> compressor(tjInitCompress(), &tjDestroy);
  unsigned char* encoded = nullptr;
  unsigned long size = 0;
  const int failed = tjCompress2(compressor.get(), pixels.data(), photoWidth, 0, photoHeight,
                                 TJPF_RGB, &encoded, &size, TJSAMP_420, 95, 0);
  const std::unique_ptr<unsigned char, void (*)(unsigned char*)> owner(encoded, &tjFree);
  check(!failed, "the photograph cannot be encoded");
  const std::string unfinished = fileName + ".part";
  std::ofstream file(unfinished, std::ios::binary);
  file.write(reinterpret_cast<const char*>(encoded), static_cast<std::streamsize>(size));
  file.close();
  check(file.good(), unfinished + " cannot be written");
  std::filesystem::rename(unfinished, fileName);
  return fileName;
}

void reduceByImage(const std::string& photo, const std::string& texture) {
  tarn::Image image(tarn::VPathString(photo.c_str()));
  int width = 0;
  int height = 0;
  check(image.Load(1) && image.GetExtents(width, height) &&
            image.ResizeInterpolated(width / factor, height / factor, 0, 1) &&
            image.Save(tarn::VPathString(texture.c_str()), tarn::Image::formatSGI, 50),
        image.LastError());
}

void reduceBySimage(const std::string& photo, const std::string& texture) {
  using Pixels = std::unique_ptr<unsigned char, void (*)(unsigned char*)>;
  int width = 0;
  int height = 0;
  int components = 0;
  const Pixels pixels(simage_read_image(photo.c_str(), &width, &height, &components),
                      &simage_free_image);
  check(pixels != nullptr, "simage cannot read the photograph");
  const Pixels reduced(
      simage_resize(pixels.get(), width, height, components, width / factor, height / factor),
      &simage_free_image);
  check(reduced && simage_save_image(texture.c_str(), reduced.get(), width / factor,
                                     height / factor, components, "rgb"),
        "simage cannot write the texture");
}

// Runs a program without a shell and waits for it; its exit status, or -1.
int runProgram(std::vector<std::string> arguments) {
  std::vector<char*> pointers;
  for (std::string& argument : arguments) pointers.push_back(argument.data());
  pointers.push_back(nullptr);
  pid_t process = 0;
  if (posix_spawnp(&process, pointers[0], nullptr, nullptr, pointers.data(), environ) != 0) {
    return -1;
  }
  int status = 0;
  if (waitpid(process, &status, 0) != process || !WIFEXITED(status)) return -1;
  return WEXITSTATUS(status);
}

bool isInstalled(const std::string& program) {
  const char* path = std::getenv("PATH");
  std::string folders = path ? path : "";
  for (std::size_t begin = 0; begin <= folders.size();) {
    const std::size_t end = std::min(folders.find(':', begin), folders.size());
    const std::string file = folders.substr(begin, end - begin) + "/" + program;
    if (access(file.c_str(), X_OK) == 0) return true;
    begin = end + 1;
  }
  return false;
}

const bench::Subject photo("photo", "reducing a photograph by 10 and saving it as SGI", [] {
  const std::string photo = photograph();
  const std::string ours = bench::keptFolder() + "/ours.sgi";
  const std::string simages = bench::keptFolder() + "/simage.sgi";
  // vips has no SGI; its PPM is as plain.
  const std::string vips = bench::keptFolder() + "/vips.ppm";
  const bench::Measure measured = bench::timeOf("ours", [=] { reduceByImage(photo, ours); });
  return std::vector<bench::Row>{
      {.work = "JPEG to SGI, a tenth",
       .size = "6000 x 4000",
       .ours = measured,
       .against = bench::timeOf("simage", [=] { reduceBySimage(photo, simages); }),
       .target = 0.25},
      {.work = "JPEG to SGI, a tenth",
       .size = "6000 x 4000",
       .ours = measured,
       .against = bench::timeOf("vipsthumbnail",
                                [=] {
                                  check(runProgram({"vipsthumbnail", photo, "--size", "600x400",
                                                    "-o", vips}) == 0,
                                        "vipsthumbnail failed");
                                }),
       .target = 1.1,
       .skipped = isInstalled("vipsthumbnail")
                      ? ""
                      : "vipsthumbnail is not installed (package libvips-tools)"},
  };
});

}  // namespace
