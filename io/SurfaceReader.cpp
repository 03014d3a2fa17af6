#include "io/SurfaceReader.h"

#include "host/general/warning.h"
#include "host/model/Project.h"
#include "io/AssimpFile.h"
#include "io/FileContent.h"
#include "io/ObjFile.h"
#include "io/PlyReader.h"
#include "io/ReadError.h"
#include "io/SurfaceProject.h"

#include <algorithm>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <unordered_map>

namespace fs = std::filesystem;

namespace tarn {

namespace {

std::string extensionOf(const std::string& path) {
  std::string extension = fs::path(path).extension();
  std::ranges::transform(extension, extension.begin(),
                         [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return extension;
}

void say(const std::string& path, const std::vector<std::string>& notes) {
  for (const std::string& note : notes) warning("%s: %s", path.c_str(), note.c_str());
}

// The files of materials that are there. The name is the rest of the line, for names have blanks;
// where there is no such file it may be several names.
std::vector<std::string> materialFiles(const std::string& path, const ObjFile& file) {
  const fs::path folder = fs::absolute(path).parent_path();
  std::vector<std::string> files;
  const auto add = [&](std::string name) {
    std::ranges::replace(name, '\\', '/');
    const fs::path place = (folder / name).lexically_normal();
    std::error_code ignored;
    if (!fs::is_regular_file(place, ignored)) return false;
    files.push_back(place);
    return true;
  };
  for (const ObjFile::Library& library : file.libraries()) {
    if (add(library.name)) continue;
    std::istringstream words(library.name);
    bool isAny = false;
    for (std::string word; words >> word;) isAny = add(word) || isAny;
    if (isAny) continue;
    warning("%s:%lld: the file of materials \"%s\" is not there; surfaces are shown without them",
            path.c_str(), library.line, library.name.c_str());
  }
  return files;
}

// Gives the model's materials their looks, each as it is defined first.
void readMaterials(const std::string& path, const std::vector<std::string>& files,
                   SurfaceModel& model) {
  std::unordered_map<std::string, SurfaceModel::Material> defined;
  for (const std::string& file : files) {
    try {
      for (SurfaceModel::Material& material : assimpFile::readMaterials(file)) {
        std::string name = material.name;
        defined.try_emplace(std::move(name), std::move(material));
      }
    } catch (const ReadError& error) {
      warning("%s; surfaces are shown without its materials", error.what());
    }
  }
  std::size_t undefined = 0;
  for (SurfaceModel::Material& material : model.materials) {
    const auto found = defined.find(material.name);
    if (found != defined.end()) material = found->second;
    if (found == defined.end()) ++undefined;
  }
  if (undefined == 0 || files.empty()) return;
  warning("%s: %zu of its %zu materials are defined in none of its files of materials",
          path.c_str(), undefined, model.materials.size());
}

void readObj(const std::string& path, std::string_view text, SurfaceModel& model,
             ReadProgress& progress) {
  ObjFile file(path, text);
  file.read(model, progress);
  say(path, file.passedOver());
  readMaterials(path, materialFiles(path, file), model);
}

}  // namespace

bool SurfaceReader::IsSurfaceFile(const std::string& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return false;
  const std::string extension = extensionOf(path);
  if (extension == ".ply" && PlyReader::IsPlyFile(path)) return true;
  if (extension != ".ply" && assimpFile::isKnown(extension)) return true;
  std::ifstream file(path, std::ios::binary);
  std::string begin(std::size_t{1} << 16, '\0');
  file.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  begin.resize(static_cast<std::size_t>(file.gcount()));
  return ObjFile::isObj(begin);
}

std::vector<ImportedSurface*> SurfaceReader::Read(const std::string& path, Project& project,
                                                  const ProgressHandler& progress) {
  SurfaceModel model;
  {
    const FileContent content(path, "a file of surfaces");
    ReadProgress reading(progress, "Reading surfaces");
    if (extensionOf(path) == ".obj" || ObjFile::isObj(content.bytes())) {
      readObj(path, content.bytes(), model, reading);
    } else {
      assimpFile::read(path, model, reading);
    }
    reading.end();
  }
  SurfaceProject computed(path, model);
  ReadProgress building(progress, "Building surfaces");
  std::vector<ImportedSurface*> surfaces = computed.addTo(project, building);
  building.end();
  say(path, computed.notes());
  return surfaces;
}

}  // namespace tarn
