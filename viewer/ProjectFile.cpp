#include "viewer/ProjectFile.h"

#include "host/model/ImportedSurface.h"
#include "host/model/Project.h"
#include "io/ColmapReader.h"
#include "io/PlyReader.h"
#include "io/ReadError.h"
#include "io/SurfaceReader.h"
#include "viewer/DenseCloud.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string_view>
#include <vector>

namespace fs = std::filesystem;

namespace ProjectFile {

namespace {

constexpr std::size_t mostListed = 20;

// The names, separated by commas; only the first ones of a long list.
std::string listed(const std::vector<std::string>& names) {
  std::string text;
  for (std::size_t i = 0; i < std::min(names.size(), mostListed); ++i) {
    if (i > 0) text += ", ";
    text += names[i];
  }
  if (names.size() > mostListed) {
    text += " and " + std::to_string(names.size() - mostListed) + " more";
  }
  return text.empty() ? "none" : text;
}

// What is there that is none of the files that are read, as far as its first bytes tell.
std::string describe(const std::string& path) {
  std::error_code ignored;
  const fs::file_status status = fs::status(path, ignored);
  if (!fs::exists(status)) return "nothing";
  if (fs::is_directory(status)) return "a folder";
  if (!fs::is_regular_file(status)) return "no ordinary file";
  std::ifstream stream(path, std::ios::binary);
  char bytes[16] = {};
  stream.read(bytes, sizeof bytes);
  std::string_view begin(bytes, static_cast<std::size_t>(stream.gcount()));
  if (begin.empty()) return stream.eof() ? "an empty file" : "a file that cannot be read";
  begin = begin.substr(0, begin.find_first_of("\r\n"));
  const bool isText =
      std::ranges::all_of(begin, [](unsigned char c) { return c >= 32 && c < 127; });
  return isText ? "a file that begins with \"" + std::string(begin) + "\"" : "a binary file";
}

void readPly(const std::string& path, const char* expected, tarn::Project& project,
             const tarn::ProgressHandler& progress) {
  if (!tarn::PlyReader::IsPlyFile(path)) {
    throw tarn::ReadError::inFile(path, describe(path), expected);
  }
  tarn::PlyReader::Read(path, project, progress);
}

// A PLY file is a cloud or a mesh, which is more than a surface: it has colours and heights.
void readFile(const std::string& path, tarn::Project& project,
              const tarn::ProgressHandler& progress) {
  if (!tarn::PlyReader::IsPlyFile(path) && tarn::SurfaceReader::IsSurfaceFile(path)) {
    tarn::SurfaceReader::Read(path, project, progress);
    return;
  }
  readPly(path,
          "the folder of a COLMAP model, a PLY file or a file of surfaces (OBJ, STL, OFF, glTF, "
          "FBX or 3DS)",
          project, progress);
}

}  // namespace

std::string open(const std::string& path, tarn::Project& project, const Options& options) {
  std::error_code ignored;
  const bool isFile = !fs::is_directory(path, ignored);
  if (isFile) {
    readFile(path, project, options.progress);
  } else {
    tarn::ColmapReader::Options model;
    model.progress = options.progress;
    tarn::ColmapReader::Read(path, project, model);
  }
  if (!options.cloud.empty()) {
    readPly(options.cloud, "a PLY file", project, options.progress);
    return {};
  }
  const std::string found = isFile || !options.findCloud ? "" : DenseCloud::find(path);
  if (found.empty()) return {};
  try {
    readPly(found, "a PLY file", project, options.progress);
  } catch (const tarn::ReadError& error) {
    return std::string(error.what()) + "; the dense cloud is left out";
  }
  return {};
}

bool isPictureOf(const tarn::Project& project, const std::string& file) {
  const auto isSame = [&file](const tarn::VPathString* other) {
    std::error_code ignored;
    return other && fs::equivalent(file, other->text(), ignored);
  };
  const tarn::VOrdCollect& stations = project.GetCameraStations();
  for (int i = 0; i < stations.size(); ++i) {
    const auto* station = static_cast<tarn::CameraStation*>(stations.at(i));
    const tarn::Photograph* photograph = station->GetPhotograph();
    const tarn::Image* image = photograph ? photograph->GetImage() : nullptr;
    if (image && isSame(image->GetFileName())) return true;
  }
  const tarn::VOrdCollect& surfaces = project.GetImportedSurfaces();
  for (int i = 0; i < surfaces.size(); ++i) {
    const auto* surface = static_cast<tarn::ImportedSurface*>(surfaces.at(i));
    for (int set = 0; set < surface->GetNumTriangleSets(); ++set) {
      if (isSame(surface->GetTextureFile(set))) return true;
    }
  }
  return false;
}

tarn::CameraStation& findStation(const tarn::Project& project, const std::string& name) {
  if (tarn::CameraStation* station = project.FindCameraStation(name)) return *station;
  std::vector<std::string> names;
  std::vector<tarn::CameraStation*> sameStem;
  const tarn::VOrdCollect& stations = project.GetCameraStations();
  for (int i = 0; i < stations.size(); ++i) {
    auto* station = static_cast<tarn::CameraStation*>(stations.at(i));
    names.push_back(station->GetName().str());
    if (std::filesystem::path(names.back()).stem() == name) sameStem.push_back(station);
  }
  if (sameStem.size() == 1) return *sameStem.front();
  std::ranges::sort(names);
  if (!sameStem.empty()) {
    std::erase_if(names, [&name](const std::string& one) {
      return std::filesystem::path(one).stem() != name;
    });
    throw UnknownName("\"" + name +
                      "\" is ambiguous; the stations of that name are: " + listed(names));
  }
  throw UnknownName("there is no station \"" + name + "\"; the stations are: " + listed(names));
}

tarn::ObjectPoint& findPoint(const tarn::Project& project, long number) {
  if (tarn::ObjectPoint* point = project.FindObjectPoint(number)) return *point;
  std::vector<long> numbers;
  const tarn::VOrdCollect& points = project.GetObjectPoints();
  for (int i = 0; i < points.size(); ++i) {
    numbers.push_back(static_cast<tarn::ObjectPoint*>(points.at(i))->GetNumber());
  }
  std::ranges::sort(numbers);
  std::vector<std::string> names;
  for (const long one : numbers) names.push_back(std::to_string(one));
  throw UnknownName("there is no object point " + std::to_string(number) + "; the " +
                    std::to_string(names.size()) + " object points are: " + listed(names));
}

}  // namespace ProjectFile
