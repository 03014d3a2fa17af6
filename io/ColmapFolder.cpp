#include "io/ColmapFolder.h"

#include "io/ReadError.h"

#include <filesystem>
#include <vector>

namespace tarn {

namespace fs = std::filesystem;

namespace {

constexpr const char* required[] = {"cameras", "images", "points3D"};
constexpr const char* candidates[] = {"", "sparse", "sparse/0", "0"};

int filesOf(const ColmapFolder& folder) {
  int there = 0;
  for (const char* name : required) there += folder.has(name);
  return there;
}

// The form of a candidate with the most files; binary where both have as many.
ColmapFolder fullerForm(const std::string& folder, const char* candidate, int& files) {
  const fs::path path = *candidate ? fs::path(folder) / candidate : fs::path(folder);
  const ColmapFolder binary{path.string(), true};
  const ColmapFolder text{path.string(), false};
  files = filesOf(binary);
  const int texts = filesOf(text);
  if (files >= texts) return binary;
  files = texts;
  return text;
}

}  // namespace

std::string ColmapFolder::file(const char* name) const {
  return (fs::path(folder) / name).string() + (binary ? ".bin" : ".txt");
}

bool ColmapFolder::has(const char* name) const {
  std::error_code error;
  return fs::exists(file(name), error);
}

bool ColmapFolder::find(const std::string& folder, ColmapFolder& found) {
  for (const char* candidate : candidates) {
    int files = 0;
    const ColmapFolder form = fullerForm(folder, candidate, files);
    if (files < 3) continue;
    found = form;
    return true;
  }
  return false;
}

ColmapFolder ColmapFolder::require(const std::string& folder) {
  ColmapFolder found;
  if (find(folder, found)) return found;
  std::error_code error;
  if (!fs::is_directory(folder, error)) {
    throw ReadError::inFile(folder, fs::exists(folder, error) ? "a file" : "nothing",
                            "a folder with a COLMAP model");
  }
  for (const char* candidate : candidates) {
    int files = 0;
    const ColmapFolder form = fullerForm(folder, candidate, files);
    if (files == 0) continue;
    for (const char* name : required) {
      if (!form.has(name)) {
        throw ReadError::inFile(form.file(name), "no such file",
                                "it beside the other files of the model");
      }
    }
  }
  throw ReadError::inFile(folder, "no COLMAP model",
                          "cameras, images and points3D as .bin or .txt here, in sparse, in "
                          "sparse/0 or in 0");
}

std::string ColmapFolder::imageFolder() const {
  std::error_code error;
  fs::path model = fs::absolute(folder, error).lexically_normal();
  if (!model.has_filename()) model = model.parent_path();  // "sparse/" is "sparse"
  const fs::path parent = model.parent_path();
  const fs::path beside = parent / "images";
  for (const fs::path& images : {beside, parent.parent_path() / "images", model / "images"}) {
    if (fs::is_directory(images, error)) return images.string();
  }
  return beside.string();
}

}  // namespace tarn
