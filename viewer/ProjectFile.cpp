#include "viewer/ProjectFile.h"

#include "host/model/Project.h"

#include <algorithm>
#include <filesystem>
#include <vector>

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

}  // namespace

void open(const std::string& path, tarn::Project& project, const tarn::ProgressHandler& progress) {
  tarn::ColmapReader::Options options;
  options.progress = progress;
  tarn::ColmapReader::Read(path, project, options);
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
