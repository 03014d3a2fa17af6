#pragma once

#include "host/model/ImportedSurface.h"
#include "io/ReadProgress.h"
#include "io/SurfaceModel.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarn {

class Project;

/// Makes the objects of a file's surfaces imported surfaces of a project. The model, which is
/// changed, and the path have to outlive this object.
class SurfaceProject {
public:
  SurfaceProject(const std::string& path, SurfaceModel& model);

  /// Adds a surface for each object.
  std::vector<ImportedSurface*> addTo(Project& project, ReadProgress& progress);

  /// What is not shown as it could be, in words.
  const std::vector<std::string>& notes() const { return _notes; }

private:
  // What a surface has made of the points or the normals of the model, whose objects may share.
  template <typename Object>
  struct Made {
    explicit Made(std::size_t count) : objects(count), surfaces(count, nullptr) {}
    std::vector<Object*> objects;
    std::vector<const ImportedSurface*> surfaces;
  };

  void findTextures();
  void completeNormals(SurfaceModel::Object& object);
  bool isClosed(const SurfaceModel::Object& object) const;
  void fill(const SurfaceModel::Object& object, ImportedSurface& surface, ReadProgress& progress);
  void addSet(const SurfaceModel::Set& set, bool textured, ImportedSurface& surface,
              Material* material, ReadProgress& progress);
  bool isTextured(const SurfaceModel::Set& set, const SurfaceModel::Triangle& triangle) const;
  ThreeDPoint* pointOf(int index, ImportedSurface& surface);
  const Point3DDouble* normalOf(int index, ImportedSurface& surface);
  const Point3DDouble& place(const SurfaceModel::Corner& corner) const {
    return _model.points[static_cast<std::size_t>(corner.point)];
  }

  const std::string& _path;
  SurfaceModel& _model;
  std::vector<std::string> _textures;  // by material; empty for none
  std::vector<std::string> _notes;
  Made<ThreeDPoint> _points;
  Made<const Point3DDouble> _normals;
  std::size_t _withoutNormals = 0;
  std::size_t _withoutUvs = 0;
  std::size_t _done = 0;
  std::size_t _all = 0;
};

}  // namespace tarn
