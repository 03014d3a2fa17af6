#include "tests/support/Baseline.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <stdexcept>

namespace Baseline {

namespace {

std::string saveFailed(const Picture& picture, const std::string& name) {
  const std::filesystem::path folder = TARN_FAILED_PICTURES;
  std::filesystem::create_directories(folder);
  const std::string file = (folder / (name + ".png")).string();
  picture.writePng(file);
  return file;
}

struct Difference {
  int maximum = 0;
  double mean = 0.0;
  Picture picture;  // grey where the two agree, brighter or darker where not
};

Difference differenceOf(const Picture& drawn, const Picture& accepted) {
  Difference result;
  result.picture = Picture(drawn.width, drawn.height);
  double sum = 0.0;
  for (std::size_t i = 0; i < drawn.bytes.size(); ++i) {
    const int difference = drawn.bytes[i] - accepted.bytes[i];
    result.maximum = std::max(result.maximum, std::abs(difference));
    sum += std::abs(difference);
    result.picture.bytes[i] = static_cast<std::uint8_t>(std::clamp(128 + difference, 0, 255));
  }
  result.mean = drawn.bytes.empty() ? 0.0 : sum / static_cast<double>(drawn.bytes.size());
  return result;
}

}  // namespace

void expectMatch(const Picture& picture, const std::string& name, const Tolerance& tolerance,
                 const std::string& folder) {
  const std::string file = folder + "/" + name + ".png";
  const char* accept = std::getenv("TARN_ACCEPT_BASELINES");
  if (accept && std::strcmp(accept, "1") == 0) {
    std::filesystem::create_directories(folder);
    picture.writePng(file);
    return;
  }
  Picture accepted;
  try {
    accepted = Picture::read(file);
  } catch (const std::runtime_error&) {
    ADD_FAILURE() << "there is no readable baseline " << file << "; the picture is "
                  << saveFailed(picture, name);
    return;
  }
  if (accepted.width != picture.width || accepted.height != picture.height) {
    ADD_FAILURE() << "the picture is " << picture.width << " x " << picture.height
                  << " pixels, its baseline " << accepted.width << " x " << accepted.height
                  << "; the picture is " << saveFailed(picture, name);
    return;
  }
  const Difference difference = differenceOf(picture, accepted);
  if (difference.maximum > tolerance.maximum || difference.mean > tolerance.mean) {
    ADD_FAILURE() << "the picture differs from its baseline " << file << ": maximum "
                  << difference.maximum << " (allowed " << tolerance.maximum << "), mean "
                  << difference.mean << " (allowed " << tolerance.mean << "); the picture is "
                  << saveFailed(picture, name) << ", the difference "
                  << saveFailed(difference.picture, name + "-difference");
  }
}

}  // namespace Baseline
