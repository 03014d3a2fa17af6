#pragma once

#include "host/classes/VDictionary.h"
#include "host/model/Material.h"
#include "host/model/SurfaceGroup.h"
#include "viewer/layers/SceneLayer.h"

#include <string>

namespace tarn {
class CameraStation;
class Project;
}  // namespace tarn

/// The surface over the object points that a station's photograph shows, with the picture of its
/// best photograph as it is: no light falls on it.
class SurfaceGroupLayer : public SceneLayer {
public:
  /// Throws std::runtime_error that names the station where there is no surface (see
  /// StationSurface). The project must outlive the layer.
  SurfaceGroupLayer(tarn::Project& project, const tarn::CameraStation& station,
                    SceneContext& context);
  ~SurfaceGroupLayer();

  const tarn::SurfaceGroup& surface() const { return group; }
  /// Why the surface has no picture, and is lit; empty where it has one.
  const std::string& note() const { return pictureNote; }

private:
  std::string pictureFile(tarn::Project& project);

  tarn::Material material;
  tarn::SurfaceGroup group;
  tarn::VDictionary textures;
  std::string pictureNote;
};
