#include "io/SurfaceReader.h"

#include "host/general/warning.h"
#include "host/model/Project.h"
#include "host/model/Triangle.h"
#include "io/AssimpFile.h"
#include "io/FileContent.h"
#include "io/NamedFile.h"
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

// The first ten of them, and how many there are besides.
void say(const std::string& path, const std::vector<std::string>& notes) {
  constexpr std::size_t most = 10;
  for (std::size_t i = 0; i < std::min(notes.size(), most); ++i) {
    warning("%s: %s", path.c_str(), notes[i].c_str());
  }
  if (notes.size() > most) warning("%s: and %zu notes more", path.c_str(), notes.size() - most);
}

// The files of materials that are there. The name is the rest of the line, for names have blanks;
// where there is no such file it may be several names.
std::vector<std::string> materialFiles(const std::string& path, const ObjFile& file) {
  std::vector<std::string> files;
  const auto add = [&](const std::string& name) {
    std::string file = namedFile(path, name);
    if (file.empty()) return false;
    files.push_back(std::move(file));
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
  std::string firstUndefined;
  for (SurfaceModel::Material& material : model.materials) {
    const auto found = defined.find(material.name);
    if (found != defined.end()) material = found->second;
    if (found == defined.end() && undefined++ == 0) firstUndefined = material.name;
  }
  if (undefined == 0 || files.empty()) return;
  warning(
      "%s: %zu of its %zu materials, the first \"%s\", are defined in none of its files of "
      "materials",
      path.c_str(), undefined, model.materials.size(), firstUndefined.c_str());
}

void readObj(const std::string& path, std::string_view text, SurfaceModel& model,
             ReadProgress& progress) {
  ObjFile file(path, text);
  file.read(model, progress);
  say(path, file.passedOver());
  readMaterials(path, materialFiles(path, file), model);
}

// By the reader of clouds and meshes, which names the line or the byte of what it refuses.
void readPly(const std::string& path, SurfaceModel& model, const ProgressHandler& progress) {
  Project apart;
  PointMesh& mesh = PlyReader::Read(path, apart, progress);
  if (mesh.GetNumTriangles() == 0) {
    throw ReadError::inFile(path, "points without triangles", "a surface");
  }
  for (int i = 0; i < mesh.GetNumPoints(); ++i) model.points.push_back(mesh.GetModelPoint(i));
  std::vector<SurfaceModel::Triangle>& triangles =
      model.objects.emplace_back().sets.emplace_back().triangles;
  PointMesh::Corners corners;
  for (int i = 0; mesh.GetTriangleCorners(i, corners); ++i) {
    const auto* withNormals = static_cast<const Triangle*>(mesh.GetTriangles()->at(i));
    SurfaceModel::Triangle& triangle = triangles.emplace_back();
    for (std::size_t k = 0; k < 3; ++k) {
      triangle[k].point = corners[k];
      const Point3DDouble* normal = withNormals->GetNormal(static_cast<int>(k));
      if (!normal) continue;
      triangle[k].normal = static_cast<int>(model.normals.size());
      model.normals.push_back(*normal);
    }
  }
}

}  // namespace

bool SurfaceReader::IsSurfaceFile(const std::string& path) {
  std::error_code error;
  if (!fs::is_regular_file(path, error)) return false;
  const std::string extension = extensionOf(path);
  if (extension == ".obj" || assimpFile::isKnown(extension)) return true;
  if (PlyReader::IsPlyFile(path)) return true;
  std::ifstream file(path, std::ios::binary);
  std::string begin(std::size_t{1} << 16, '\0');
  file.read(begin.data(), static_cast<std::streamsize>(begin.size()));
  begin.resize(static_cast<std::size_t>(file.gcount()));
  return ObjFile::isObj(begin);
}

std::vector<ImportedSurface*> SurfaceReader::Read(const std::string& path, Project& project,
                                                  const ProgressHandler& progress) {
  SurfaceModel model;
  if (PlyReader::IsPlyFile(path)) {
    readPly(path, model, progress);
  } else {
    const FileContent content(path, "a file of surfaces");
    ReadProgress reading(progress, "Reading surfaces");
    if (assimpFile::isKnown(extensionOf(path)) && !ObjFile::isObj(content.bytes())) {
      assimpFile::read(path, model, reading);
    } else {
      readObj(path, content.bytes(), model, reading);
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
