#include "io/PlyReader.h"

#include "host/general/warning.h"
#include "host/model/Project.h"
#include "io/FileContent.h"
#include "io/PlyFaces.h"
#include "io/PlyHeader.h"
#include "io/PlySource.h"
#include "io/PlyVertices.h"
#include "io/ReadError.h"
#include "io/ReadProgress.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <limits>
#include <memory>

namespace tarn {

namespace {

const PlyElement& verticesOf(const std::string& path, const PlyHeader& header) {
  const auto found = std::ranges::find(header.elements, "vertex", &PlyElement::name);
  if (found == header.elements.end()) {
    throw ReadError::inFile(path, "no element \"vertex\" in the header", "one");
  }
  constexpr int most = std::numeric_limits<int>::max();
  if (found->count > std::uint64_t{most}) {
    found->place.refuse(std::to_string(found->count) + " vertices",
                        "at most " + std::to_string(most));
  }
  return *found;
}

bool hasFaces(const PlyHeader& header) {
  return std::ranges::any_of(header.elements, [](const PlyElement& element) {
    return PlyFaces::areIn(element) && element.count > 0;
  });
}

void setShift(const Point3DDouble& shift, PointMesh& mesh) {
  if (shift == Point3DDouble()) return;
  BasicAffine model_from_stored;
  model_from_stored.SetTranslation({}, shift);
  mesh.SetLocalAffine(model_from_stored);
}

// What is left out because of points without a usable position.
void dropUnusable(const std::string& path, PlyVertices& vertices, PlyFaces& faces,
                  PointMesh& mesh) {
  const std::vector<int> newIndexes = vertices.dropUnusable(mesh);
  if (newIndexes.empty()) return;
  const std::size_t triangles = faces.renumber(newIndexes);
  std::string text =
      path + ": " +
      std::to_string(newIndexes.size() - static_cast<std::size_t>(mesh.GetNumPoints())) + " of " +
      std::to_string(newIndexes.size()) +
      " points are left out, for their positions are not finite";
  if (triangles > 0) text += "; with them " + std::to_string(triangles) + " triangles";
  warning("%s", text.c_str());
}

}  // namespace

bool PlyReader::IsPlyFile(const std::string& path) {
  std::error_code error;
  if (!std::filesystem::is_regular_file(path, error)) return false;
  std::ifstream file(path, std::ios::binary);
  std::string line;
  char c = 0;
  while (line.size() < 5 && file.get(c) && c != '\n') line += c;
  return c == '\n' && (line == "ply" || line == "ply\r");
}

PointMesh& PlyReader::Read(const std::string& path, Project& project,
                           const ProgressHandler& progress) {
  const FileContent content(path, "a PLY file");
  const PlyHeader header = PlyHeader::read(path, content.bytes());
  const PlyElement& vertexElement = verticesOf(path, header);
  // The normals of points without faces are nobody's.
  PlyVertices vertices(vertexElement, hasFaces(header));
  PlyFaces faces(vertexElement.count);
  auto mesh = std::make_unique<PointMesh>();

  const std::unique_ptr<PlySource> source = PlySource::of(path, content.bytes(), header);
  ReadProgress reading(progress, "Reading points");
  for (const PlyElement& element : header.elements) {
    source->begin(element);
    if (&element == &vertexElement) {
      vertices.read(*source, *mesh, reading);
    } else if (PlyFaces::areIn(element)) {
      faces.read(element, *source, reading);
    } else {
      source->skipElement(element);
    }
  }
  const std::string surplus = source->surplus();
  if (!surplus.empty()) {
    warning("%s: the data that follow the last element, from %s on, are not read", path.c_str(),
            surplus.c_str());
  }
  dropUnusable(path, vertices, faces, *mesh);
  if (!faces.empty()) mesh->SetTriangles(faces.takeTriangles(), vertices.takeNormals());
  setShift(vertices.shift(), *mesh);
  mesh->SetName(std::filesystem::path(path).stem().c_str());
  reading.end();
  return project.AddPointMesh(std::move(mesh));
}

}  // namespace tarn
