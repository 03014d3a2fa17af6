#include "io/SurfaceProject.h"

#include "host/general/VectorProducts.h"
#include "host/model/Material.h"
#include "host/model/Project.h"
#include "io/NamedFile.h"

#include <algorithm>
#include <filesystem>

namespace fs = std::filesystem;

namespace tarn {

namespace {

// Steele, Lea, Flood, Fast splittable pseudorandom number generators, 2014: the mixing function.
std::uint64_t mixed(std::uint64_t value) {
  value = (value ^ (value >> 30)) * 0xBF58476D1CE4E5B9U;
  value = (value ^ (value >> 27)) * 0x94D049BB133111EBU;
  return value ^ (value >> 31);
}

std::uint64_t hashOfEdge(int from, int to) {
  return mixed((std::uint64_t{static_cast<std::uint32_t>(from)} << 32) +
               static_cast<std::uint32_t>(to) + 0x9E3779B97F4A7C15U);
}

}  // namespace

SurfaceProject::SurfaceProject(const std::string& path, SurfaceModel& model)
    : _path(path), _model(model), _points(model.points.size()), _normals(0) {
  findTextures();
  for (SurfaceModel::Object& object : model.objects) completeNormals(object);
  _normals = Made<const Point3DDouble>(model.normals.size());
  _all = model.triangleCount();
}

std::vector<ImportedSurface*> SurfaceProject::addTo(Project& project, ReadProgress& progress) {
  std::vector<ImportedSurface*> surfaces;
  for (const SurfaceModel::Object& object : _model.objects) {
    ImportedSurface& surface = project.AddImportedSurface();
    surface.SetName(object.name.empty() ? VString(fs::path(_path).stem().native())
                                        : VString(object.name));
    fill(object, surface, progress);
    surfaces.push_back(&surface);
  }
  const std::string all = " of " + std::to_string(_all) + " triangles";
  if (_withoutNormals > 0) {
    _notes.push_back(std::to_string(_withoutNormals) + all + " have no normals and are lit flat");
  }
  if (_withoutUvs > 0) {
    _notes.push_back(std::to_string(_withoutUvs) + all +
                     " have a texture but no texture coordinates and are shown without it");
  }
  return surfaces;
}

void SurfaceProject::findTextures() {
  for (const SurfaceModel::Material& material : _model.materials) {
    std::string& texture = _textures.emplace_back();
    if (material.texture.empty()) continue;
    if (material.texture.starts_with('*')) {
      _notes.push_back("the texture of the material \"" + material.name +
                       "\" stands inside of the file and is not shown");
      continue;
    }
    texture = namedFile(_path, material.texture);
    if (texture.empty()) {
      _notes.push_back("the texture \"" + material.texture + "\" of the material \"" +
                       material.name + "\" is not there; its surfaces are shown without it");
    }
  }
}

// Has triangles turn as their normals say, by which they are lit; and where an object has normals
// at all, all its corners have one.
void SurfaceProject::completeNormals(SurfaceModel::Object& object) {
  const auto given = [this](const SurfaceModel::Corner& corner) {
    return corner.normal < 0 ? Point3DDouble()
                             : _model.normals[static_cast<std::size_t>(corner.normal)];
  };
  const auto isMissing = [&given](const SurfaceModel::Corner& corner) {
    return given(corner) == Point3DDouble();
  };
  bool hasAny = false;
  for (SurfaceModel::Set& set : object.sets) {
    for (SurfaceModel::Triangle& triangle : set.triangles) {
      auto& [a, b, c] = triangle;
      const Point3DDouble across = cross(place(b) - place(a), place(c) - place(a));
      if (dot(across, given(a) + given(b) + given(c)) < 0.0) std::swap(b, c);
      const auto missing = std::ranges::count_if(triangle, isMissing);
      if (missing > 0) ++_withoutNormals;
      hasAny = hasAny || missing < 3;
    }
  }
  for (SurfaceModel::Set& set : object.sets) {
    for (SurfaceModel::Triangle& triangle : set.triangles) {
      const auto& [a, b, c] = triangle;
      if (std::ranges::none_of(triangle, isMissing)) continue;
      const Point3DDouble across = cross(place(b) - place(a), place(c) - place(a));
      for (SurfaceModel::Corner& corner : triangle) {
        if (!isMissing(corner)) continue;
        corner.normal = hasAny ? static_cast<int>(_model.normals.size()) : -1;
      }
      if (hasAny) _model.normals.push_back(across);
    }
  }
}

// Whether nobody can see the surface from behind: each edge is gone along as often in one direction
// as in the other, so that there is no border, and the volume inside is positive. The edges are
// compared by the sum of their hashes, which differs where they do but once in 2^64 times.
bool SurfaceProject::isClosed(const SurfaceModel::Object& object) const {
  std::uint64_t border = 0;
  double volume = 0.0;
  const Point3DDouble& origin = place(object.sets.front().triangles.front()[0]);
  for (const SurfaceModel::Set& set : object.sets) {
    for (const SurfaceModel::Triangle& triangle : set.triangles) {
      for (std::size_t k = 0; k < 3; ++k) {
        const int from = triangle[k].point;
        const int to = triangle[(k + 1) % 3].point;
        border += hashOfEdge(from, to) - hashOfEdge(to, from);
      }
      const auto& [a, b, c] = triangle;
      volume += dot(place(a) - origin, cross(place(b) - origin, place(c) - origin));
    }
  }
  return border == 0 && volume > 0.0;
}

void SurfaceProject::fill(const SurfaceModel::Object& object, ImportedSurface& surface,
                          ReadProgress& progress) {
  const bool hasNormals = object.sets.front().triangles.front()[0].normal >= 0;
  surface.SetDoubleSided(!hasNormals || !isClosed(object));
  for (const SurfaceModel::Set& set : object.sets) {
    const auto number = static_cast<std::size_t>(set.material);
    const SurfaceModel::Material* look = set.material < 0 ? nullptr : &_model.materials[number];
    Material* material = nullptr;
    if (look) {
      const bool hasTexture = !_textures[number].empty();
      material = &surface.AddMaterial();
      material->SetFixedColor(look->ambient, look->diffuse, look->specular, look->emissive,
                              look->shininess);
      material->SetDiffuseType(hasTexture ? Material::ePhotoTexture : Material::eFixedColour);
      // A texture is multiplied by the diffuse colour; programs that write none leave it black.
      material->SetBlendRGBWithTexture(hasTexture && look->diffuse != Colour());
    }
    addSet(set, true, surface, material, progress);
    addSet(set, false, surface, material, progress);
    if (object.sets.size() == 1) surface.SetMaterial(material);
  }
}

// The triangles of the set that have a texture, or those that have none.
void SurfaceProject::addSet(const SurfaceModel::Set& set, bool textured, ImportedSurface& surface,
                            Material* material, ReadProgress& progress) {
  int number = -1;
  for (const SurfaceModel::Triangle& triangle : set.triangles) {
    if (isTextured(set, triangle) != textured) continue;
    if (number < 0) {
      number = surface.AddTriangleSet();
      surface.SetMaterialOfSet(number, material);
      if (textured) {
        surface.SetTextureFile(number,
                               VPathString(_textures[static_cast<std::size_t>(set.material)]));
      }
    }
    std::array<std::array<double, 2>, 3> uvs{};
    std::array<ThreeDPoint*, 3> corners{};
    for (std::size_t k = 0; k < 3; ++k) corners[k] = pointOf(triangle[k].point, surface);
    Triangle& added = surface.AddTriangle(number, corners[0], corners[1], corners[2]);
    for (std::size_t k = 0; k < 3; ++k) {
      if (triangle[k].normal >= 0) {
        added.SetNormal(static_cast<int>(k), normalOf(triangle[k].normal, surface));
      }
      if (!textured) continue;
      const auto& [u, up] = _model.uvs[static_cast<std::size_t>(triangle[k].uv)];
      uvs[k] = {u, 1.0 - up};
    }
    if (textured) surface.SetTextureCoordinates(added, uvs);
    if (!textured && set.material >= 0 &&
        !_textures[static_cast<std::size_t>(set.material)].empty()) {
      ++_withoutUvs;
    }
    if (++_done % 1024 == 0) progress.at(static_cast<double>(_done) / static_cast<double>(_all));
  }
}

bool SurfaceProject::isTextured(const SurfaceModel::Set& set,
                                const SurfaceModel::Triangle& triangle) const {
  return set.material >= 0 && !_textures[static_cast<std::size_t>(set.material)].empty() &&
         std::ranges::all_of(triangle, [](const auto& corner) { return corner.uv >= 0; });
}

ThreeDPoint* SurfaceProject::pointOf(int index, ImportedSurface& surface) {
  const auto i = static_cast<std::size_t>(index);
  if (_points.surfaces[i] != &surface) {
    _points.surfaces[i] = &surface;
    _points.objects[i] = &surface.AddPoint(_model.points[i]);
  }
  return _points.objects[i];
}

// Null for one without direction.
const Point3DDouble* SurfaceProject::normalOf(int index, ImportedSurface& surface) {
  const auto i = static_cast<std::size_t>(index);
  if (_normals.surfaces[i] != &surface) {
    const Point3DDouble& normal = _model.normals[i];
    const double length = normal.length();
    _normals.surfaces[i] = &surface;
    _normals.objects[i] = length > 0.0 ? &surface.AddNormal((1.0 / length) * normal) : nullptr;
  }
  return _normals.objects[i];
}

}  // namespace tarn
