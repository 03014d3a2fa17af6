#include "viewer/layers/SurfaceGroupLayer.h"

#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoPolygonOffset.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "host/general/assertError.h"
#include "host/model/Project.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/TarnOITexture.h"
#include "nodes/surfaces/TarnOISurfaceSeparator.h"
#include "viewer/StationSurface.h"
#include "viewer/layers/SceneContext.h"

#include <filesystem>
#include <memory>
#include <string_view>
#include <utility>

namespace {

/// Passes over the report by which the node marks each setting: here it tells of no fault.
class MarkPassedOver {
public:
  MarkPassedOver() { earlier = tarn::setAssertHandler(&passOn); }
  ~MarkPassedOver() { tarn::setAssertHandler(earlier); }
  MarkPassedOver(const MarkPassedOver&) = delete;
  MarkPassedOver& operator=(const MarkPassedOver&) = delete;

private:
  static void passOn(const char* condition, const char* file, int line) {
    if (std::string_view(condition) == "0" && std::string_view(file) == "TarnOISurfaceSeparator") {
      return;
    }
    tarn::setAssertHandler(earlier);
    tarn::assertError(condition, file, line);
    tarn::setAssertHandler(&passOn);
  }
  static inline tarn::AssertHandler earlier = nullptr;
};

}  // namespace

SurfaceGroupLayer::SurfaceGroupLayer(tarn::Project& project, const tarn::CameraStation& station,
                                     SceneContext& context)
    : SceneLayer("Station surface", context) {
  StationSurface::fill(group, station, *project.GetPhotoCollection());
  group.SetDoubleSided(1);
  group.SetMaterial(&material);
  const std::string picture = pictureFile(project);
  material.SetDiffuseType(picture.empty() ? tarn::Material::eFixedColour
                                          : tarn::Material::ePhotoTexture);

  auto* light = new SoLightModel;
  light->model = picture.empty() ? SoLightModel::PHONG : SoLightModel::BASE_COLOR;
  separator->addChild(light);
  auto* color = new SoMaterial;
  color->diffuseColor = picture.empty() ? SbColor(0.8F, 0.78F, 0.72F) : SbColor(1.0F, 1.0F, 1.0F);
  separator->addChild(color);
  // Points on it are picked through it, and drawn before it.
  auto* picking = new SoPickStyle;
  picking->style = SoPickStyle::UNPICKABLE;
  separator->addChild(picking);
  separator->addChild(new SoPolygonOffset);
  const auto hints = makeNode<SoShapeHints>();
  hints->vertexOrdering = SoShapeHints::COUNTERCLOCKWISE;
  auto* node = new TarnOISurfaceSeparator;
  separator->addChild(node);
  const MarkPassedOver passedOver;
  node->SetSurface(&group, &context.objects, &project, nullptr, hints.get());
  if (picture.empty()) return;
  const auto texture = makeNode<TarnOITexture>();
  texture->wrapS = SoTexture2::CLAMP;
  texture->wrapT = SoTexture2::CLAMP;
  texture->SetFileName(std::make_shared<tarn::VPathString>(picture), &textures);
  node->SetTexture(texture.get(), nullptr);
}

SurfaceGroupLayer::~SurfaceGroupLayer() {
  // Its node lets the group and the textures go.
  separator->removeAllChildren();
}

// The file of the photograph that the node takes its texture coordinates from; empty, and the
// reason noted, where it cannot be shown.
std::string SurfaceGroupLayer::pictureFile(tarn::Project& project) {
  auto* first = static_cast<tarn::SurfaceElement*>(group.GetSelsCollection(0)->at(0));
  const tarn::Photograph* photograph = project.GetPhotoCollection()->GetBestFacePhoto(first);
  if (!photograph) {
    pictureNote = "the surface has no picture: no photograph shows one of its triangles";
    return {};
  }
  const tarn::Image* image = photograph->GetImage();
  if (!image) {
    pictureNote = "the surface has no picture: there is no file of its photograph";
    return {};
  }
  tarn::Image header(*image);
  if (!header.Load(0)) {
    pictureNote = "the surface has no picture: " + header.LastError();
    return {};
  }
  // A link in the user's cache would not last as long as a scene that is written.
  std::error_code failed;
  const auto file = std::filesystem::canonical(image->GetFileName()->text(), failed);
  return failed ? image->GetFileName()->str() : file.string();
}
