#include "io/AssimpFile.h"

#include "io/FaceTriangles.h"
#include "io/FileContent.h"
#include "io/ReadError.h"
#include "io/TextFields.h"

#include <algorithm>
#include <assimp/Importer.hpp>
#include <assimp/MemoryIOWrapper.h>
#include <assimp/ProgressHandler.hpp>
#include <assimp/scene.h>
#include <bit>
#include <cmath>
#include <map>
#include <memory>
#include <unordered_map>
#include <vector>

namespace tarn::assimpFile {

namespace {

// The exponent of a highlight that counts as a shininess of 1, as OpenGL counts it.
constexpr double mostShiny = 128.0;

class Progress : public Assimp::ProgressHandler {
public:
  explicit Progress(ReadProgress& progress) : progress(progress) {}
  bool Update(float percentage) override {
    // It is half of the work, and unknown is negative.
    if (percentage > 0.0F) progress.at(0.5 * static_cast<double>(percentage));
    return true;
  }

private:
  ReadProgress& progress;
};

[[noreturn]] void refuse(const std::string& path, const Assimp::Importer& importer,
                         const char* expected) {
  throw ReadError::inFile(
      path, "what cannot be read (" + std::string(importer.GetErrorString()) + ")", expected);
}

/// Files that are texts in memory.
class Texts : public Assimp::IOSystem {
public:
  explicit Texts(std::map<std::string, std::string, std::less<>> files) : files(std::move(files)) {}
  bool Exists(const char* name) const override { return files.contains(std::string_view(name)); }
  char getOsSeparator() const override { return '/'; }
  Assimp::IOStream* Open(const char* name, const char*) override {
    const auto found = files.find(std::string_view(name));
    if (found == files.end()) return nullptr;
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(found->second.data());
    open.push_back(std::make_unique<Assimp::MemoryIOStream>(bytes, found->second.size()));
    return open.back().get();
  }
  void Close(Assimp::IOStream* stream) override {
    std::erase_if(open, [stream](const auto& one) { return one.get() == stream; });
  }

private:
  std::map<std::string, std::string, std::less<>> files;
  // The library leaves a stream open where it gives a file up.
  std::vector<std::unique_ptr<Assimp::IOStream>> open;
};

// Takes the colour where the material has it.
void take(Colour& colour, const aiMaterial& material, const char* key, unsigned type,
          unsigned index) {
  aiColor3D color;
  if (material.Get(key, type, index, color) != aiReturn_SUCCESS) return;
  const auto byte = [](ai_real value) {
    const ai_real inside = value > 0 ? std::min(value, ai_real{1}) : ai_real{0};
    return static_cast<std::uint8_t>(std::lround(255 * inside));
  };
  colour = {byte(color.r), byte(color.g), byte(color.b)};
}

std::string textureOf(const aiMaterial& material) {
  aiString file;
  for (const aiTextureType type : {aiTextureType_DIFFUSE, aiTextureType_BASE_COLOR}) {
    if (material.GetTexture(type, 0, &file) != aiReturn_SUCCESS) continue;
    std::string name = file.C_Str();
    name.erase(name.find_last_not_of(" \t\r\n") + 1);
    return name;
  }
  return {};
}

SurfaceModel::Material lookOf(const aiMaterial& from) {
  SurfaceModel::Material to;
  aiString name;
  from.Get(AI_MATKEY_NAME, name);
  to.name = name.C_Str();
  take(to.ambient, from, AI_MATKEY_COLOR_AMBIENT);
  take(to.diffuse, from, AI_MATKEY_COLOR_DIFFUSE);
  take(to.emissive, from, AI_MATKEY_COLOR_EMISSIVE);
  float exponent = 0.0F;
  from.Get(AI_MATKEY_SHININESS, exponent);
  to.shininess = 0.0;
  // A highlight with an exponent of 0 would be no highlight: it brightens all that is lit.
  if (exponent > 0.0F) {
    take(to.specular, from, AI_MATKEY_COLOR_SPECULAR);
    to.shininess = std::min(static_cast<double>(exponent) / mostShiny, 1.0);
  }
  to.texture = textureOf(from);
  return to;
}

struct PlaceHash {
  std::size_t operator()(const Point3DDouble& p) const {
    std::uint64_t hash = 0;
    for (const double coordinate : {p.x, p.y, p.z}) {
      // The sum makes one zero of both.
      hash = (hash ^ std::bit_cast<std::uint64_t>(coordinate + 0.0)) * 0x9E3779B97F4A7C15U;
      hash ^= hash >> 32;
    }
    return hash;
  }
};

/// Takes the meshes of the library's scene into a model, node by node.
class Meshes {
public:
  Meshes(const std::string& path, const aiScene& scene, SurfaceModel& model, ReadProgress& progress)
      : path(path), scene(scene), model(model), progress(progress) {}

  void take() {
    for (unsigned i = 0; i < scene.mNumMaterials; ++i) {
      model.materials.push_back(lookOf(*scene.mMaterials[i]));
    }
    if (scene.mRootNode) takeNode(*scene.mRootNode, aiMatrix4x4());
    if (model.objects.empty()) {
      throw ReadError::inFile(path, "no triangles in it", "a surface of at least one");
    }
  }

private:
  void takeNode(const aiNode& node, const aiMatrix4x4& parent) {
    const aiMatrix4x4 model_from_node = parent * node.mTransformation;
    SurfaceModel::Object object;
    // The root's name is that of the format, or of the whole file.
    if (node.mParent) object.name = node.mName.C_Str();
    for (unsigned i = 0; i < node.mNumMeshes; ++i) {
      takeMesh(*scene.mMeshes[node.mMeshes[i]], model_from_node, object);
      progress.at(0.5 + 0.5 * ++taken / std::max(scene.mNumMeshes, 1U));
    }
    if (!object.sets.empty()) model.objects.push_back(std::move(object));
    for (unsigned i = 0; i < node.mNumChildren; ++i) takeNode(*node.mChildren[i], model_from_node);
  }

  void takeMesh(const aiMesh& mesh, const aiMatrix4x4& model_from_node,
                SurfaceModel::Object& object) {
    const int firstUv = static_cast<int>(model.uvs.size());
    const int firstNormal = static_cast<int>(model.normals.size());
    std::vector<int> points(mesh.mNumVertices);
    for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
      points[i] = pointAt(model_from_node * mesh.mVertices[i], mesh);
    }
    if (mesh.HasTextureCoords(0)) {
      for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
        const aiVector3D& uv = mesh.mTextureCoords[0][i];
        const bool isFinite = std::isfinite(uv.x) && std::isfinite(uv.y);
        model.uvs.push_back(isFinite ? std::array{double{uv.x}, double{uv.y}} : std::array{0., 0.});
      }
    }
    aiMatrix3x3 directions(model_from_node);
    const bool mirrors = directions.Determinant() < 0;
    if (mesh.HasNormals()) {
      directions.Inverse().Transpose();
      for (unsigned i = 0; i < mesh.mNumVertices; ++i) {
        const aiVector3D n = directions * mesh.mNormals[i];
        const Point3DDouble normal(double{n.x}, double{n.y}, double{n.z});
        model.normals.push_back(std::isfinite(normal.length()) ? normal : Point3DDouble());
      }
    }
    std::vector<SurfaceModel::Triangle> triangles;
    for (unsigned f = 0; f < mesh.mNumFaces; ++f) {
      const aiFace& face = mesh.mFaces[f];
      if (face.mNumIndices < 3) continue;  // points and lines
      corners.clear();
      polygon.clear();
      for (unsigned k = 0; k < face.mNumIndices; ++k) {
        const unsigned vertex = face.mIndices[k];
        if (vertex >= mesh.mNumVertices) {
          throw ReadError::inFile(path, "the corner " + std::to_string(vertex) + " of a face",
                                  "one of " + std::to_string(mesh.mNumVertices) + " vertices");
        }
        SurfaceModel::Corner& corner = corners.emplace_back();
        corner.point = points[vertex];
        if (mesh.HasTextureCoords(0)) corner.uv = firstUv + static_cast<int>(vertex);
        if (mesh.HasNormals()) corner.normal = firstNormal + static_cast<int>(vertex);
        polygon.push_back(model.points[static_cast<std::size_t>(corner.point)]);
      }
      faceTriangles(polygon, cut);
      for (const std::array<int, 3>& three : cut) {
        SurfaceModel::Triangle& triangle = triangles.emplace_back();
        for (std::size_t k = 0; k < 3; ++k)
          triangle[k] = corners[static_cast<std::size_t>(three[k])];
        if (mirrors) std::swap(triangle[1], triangle[2]);
      }
    }
    if (triangles.empty()) return;
    const auto material = static_cast<int>(mesh.mMaterialIndex);
    auto set = std::ranges::find(object.sets, material, &SurfaceModel::Set::material);
    if (set == object.sets.end()) {
      object.sets.push_back({material, std::move(triangles)});
    } else {
      set->triangles.insert(set->triangles.end(), triangles.begin(), triangles.end());
    }
  }

  int pointAt(const aiVector3D& position, const aiMesh& mesh) {
    const Point3DDouble point(double{position.x}, double{position.y}, double{position.z});
    if (!std::isfinite(point.length())) {
      throw ReadError::inFile(
          path, "a coordinate that is not finite in \"" + std::string(mesh.mName.C_Str()) + "\"",
          "finite ones");
    }
    const auto [found, isNew] = places.try_emplace(point, static_cast<int>(model.points.size()));
    if (isNew) model.points.push_back(point);
    return found->second;
  }

  const std::string& path;
  const aiScene& scene;
  SurfaceModel& model;
  ReadProgress& progress;
  double taken = 0.0;
  std::unordered_map<Point3DDouble, int, PlaceHash> places;
  std::vector<SurfaceModel::Corner> corners;  // of one face
  std::vector<Point3DDouble> polygon;         // likewise
  std::vector<std::array<int, 3>> cut;        // likewise
};

}  // namespace

bool isKnown(std::string_view extension) {
  constexpr std::string_view known[] = {".stl", ".off", ".gltf", ".glb", ".fbx", ".3ds"};
  return std::ranges::find(known, extension) != std::end(known);
}

void read(const std::string& path, SurfaceModel& model, ReadProgress& progress) {
  Assimp::Importer importer;
  importer.SetProgressHandler(new Progress(progress));  // the importer's own from here on
  const aiScene* scene = importer.ReadFile(path, 0);
  if (!scene) refuse(path, importer, "a file of surfaces");
  Meshes(path, *scene, model, progress).take();
}

// The library reads materials only along with an OBJ file: here one of a triangle. What stands
// ahead of the first material would end the program.
std::vector<SurfaceModel::Material> readMaterials(const std::string& path) {
  const FileContent content(path, "a file of materials");
  std::string materials;
  TextLines lines(path, content.bytes());
  for (std::string_view line; lines.nextRecord(line);) {
    line.remove_prefix(line.find_first_not_of(" \t\r\v\f"));
    if (materials.empty() && !line.starts_with("newmtl")) continue;
    (materials += line) += '\n';
  }
  Assimp::Importer importer;
  importer.SetIOHandler(  // the importer's own from here on
      new Texts({{"made.obj", "mtllib made.mtl\nv 0 0 0\nv 1 0 0\nv 0 1 0\nf 1 2 3\n"},
                 {"made.mtl", std::move(materials)}}));
  const aiScene* scene = importer.ReadFile("made.obj", 0);
  if (!scene) refuse(path, importer, "a file of materials");
  std::vector<SurfaceModel::Material> all;
  // The first is the library's own, for faces without a material.
  for (unsigned i = 1; i < scene->mNumMaterials; ++i) all.push_back(lookOf(*scene->mMaterials[i]));
  return all;
}

}  // namespace tarn::assimpFile
