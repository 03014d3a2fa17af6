#include "viewer/PhotographCache.h"

#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/Image.h"
#include "host/model/Photograph.h"

#include <algorithm>
#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <filesystem>

namespace fs = std::filesystem;

namespace {

std::string cacheFolder() {
  const char* cache = std::getenv("XDG_CACHE_HOME");
  if (cache && *cache == '/') return std::string(cache) + "/tarnview/photographs";
  const char* home = std::getenv("HOME");
  if (home && *home) return std::string(home) + "/.cache/tarnview/photographs";
  return (fs::temp_directory_path() / "tarnview" / "photographs").string();
}

// Fowler, Noll and Vo's hash, FNV-1a in 64 bits.
std::string hashed(const std::string& text) {
  std::uint64_t hash = 14695981039346656037ULL;
  for (const char c : text) {
    hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
  }
  char digits[17];
  std::snprintf(digits, sizeof digits, "%016llx", static_cast<unsigned long long>(hash));
  return digits;
}

}  // namespace

PhotographCache::PhotographCache() : folder(cacheFolder()) {}

int PhotographCache::resampleFactor(const tarn::CameraStation& station) {
  const tarn::Camera* camera = station.GetCamera(1);
  if (!camera) return 1;
  int width = 0;
  int height = 0;
  camera->GetImageSize(width, height);
  return std::clamp((std::max(width, height) - 1) / longestSide + 1, 1, mostShrunk);
}

bool PhotographCache::redirect(const tarn::CameraStation& station, std::string* problem) const {
  tarn::Photograph* photograph = station.GetPhotograph();
  tarn::Image* image = photograph ? photograph->GetImage() : nullptr;
  if (!image || !image->GetFileName()) return false;
  std::error_code error;
  const fs::path original = fs::canonical(image->GetFileName()->str(), error);
  const auto give_up = [&](const std::string& reason) {
    if (problem) *problem = reason;
    photograph->SetImageFile(tarn::VPathString(""));
    return false;
  };
  if (error) return give_up(image->GetFileName()->str() + ": " + error.message());
  const auto size = fs::file_size(original, error);
  if (error) return give_up(original.string() + ": " + error.message());
  const auto changed = fs::last_write_time(original, error).time_since_epoch().count();
  const fs::path place = fs::path(folder) / hashed(original.string() + '\n' + std::to_string(size) +
                                                   '\n' + std::to_string(changed) + '\n' +
                                                   std::to_string(resampleFactor(station)));
  const fs::path link = place / original.filename();
  if (fs::is_symlink(link, error)) {
    photograph->SetImageFile(tarn::VPathString(link.string()));
    return true;
  }
  fs::create_directories(place, error);
  if (!error) fs::create_symlink(original, link, error);
  if (error && !fs::is_symlink(link)) return give_up(link.string() + ": " + error.message());
  photograph->SetImageFile(tarn::VPathString(link.string()));
  return true;
}

std::string PhotographCache::copyProblem(const tarn::CameraStation& station) {
  const tarn::Photograph* photograph = station.GetPhotograph();
  const tarn::Image* shown = photograph ? photograph->GetImage() : nullptr;
  const tarn::VPathString* file = shown ? shown->GetFileName() : nullptr;
  if (!file || file->isEmpty()) return {};
  const fs::path copy = fs::path(file->str()).replace_extension(".sgi.3dvip");
  std::error_code error;
  if (fs::exists(copy, error)) return {};
  // The node says nothing, so what it did is tried again: what fails tells why.
  tarn::Image image(*file);
  if (!image.Load() || !image.pixels()) return image.LastError();
  const tarn::VPathString trial(copy.string() + ".trial");
  std::string problem = file->str() + ": no small copy of the photograph could be made";
  if (!image.Save(trial, tarn::Image::formatSGI, 50)) problem = image.LastError();
  fs::remove(trial.str(), error);
  return problem;
}
