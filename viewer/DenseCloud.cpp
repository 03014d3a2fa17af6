#include "viewer/DenseCloud.h"

#include <filesystem>
#include <vector>

namespace fs = std::filesystem;

namespace {

bool isModelItself(const fs::path& folder) {
  std::error_code ignored;
  return fs::exists(folder / "cameras.bin", ignored) || fs::exists(folder / "cameras.txt", ignored);
}

// Where a workspace keeps its parts: the folder, and those above one that is a model itself
// ("sparse", or "0" in it).
std::vector<fs::path> workspaces(const std::string& folder) {
  std::error_code ignored;
  fs::path path = fs::absolute(folder, ignored).lexically_normal();
  if (!path.has_filename()) path = path.parent_path();  // "sparse/" is "sparse"
  std::vector<fs::path> found{path};
  if (!isModelItself(path)) return found;
  found.push_back(path.parent_path());
  if (path.parent_path().filename() == "sparse") {
    found.push_back(path.parent_path().parent_path());
  }
  return found;
}

}  // namespace

std::string DenseCloud::find(const std::string& folder) {
  std::error_code ignored;
  for (const char* name : {"fused.ply", "cloud.ply", "meshed-poisson.ply", "meshed-delaunay.ply"}) {
    for (const fs::path& workspace : workspaces(folder)) {
      for (const char* place : {".", "sparse", "sparse/0", "0", "dense", "dense/0"}) {
        const fs::path file = (workspace / place / name).lexically_normal();
        if (fs::is_regular_file(file, ignored)) return file.string();
      }
    }
  }
  return {};
}
