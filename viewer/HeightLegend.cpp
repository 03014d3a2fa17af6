#include "viewer/HeightLegend.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/elements/SoViewportRegionElement.h>
#include <Inventor/nodes/SoCallback.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoFaceSet.h>
#include <Inventor/nodes/SoFont.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoResetTransform.h>
#include <Inventor/nodes/SoText2.h>
#include <Inventor/nodes/SoTransparencyType.h>

#include "host/model/Project.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>

namespace {

/// The project as its legend asks it: for heights where the meshes stand, not as they are stored.
class PlacedMeshes : public tarn::Project {
public:
  explicit PlacedMeshes(const tarn::Project& project) : project(project) {}

  tarn::BasicAffine* GetAffineTransform(int active) const override {
    return project.GetAffineTransform(active);
  }
  const tarn::Units* GetUnits() const override { return project.GetUnits(); }
  void GetPointMeshExtents(tarn::Extents& extents, tarn::BasicAffine* affine) const override {
    const tarn::VOrdCollect& meshes = project.GetPointMeshes();
    for (int i = 0; i < meshes.size(); ++i) {
      tarn::Point3DDouble low;
      tarn::Point3DDouble high;
      const auto* mesh = static_cast<tarn::PointMesh*>(meshes.at(i));
      if (!mesh->GetBoundingBox(low, high, affine, /*stored=*/0)) continue;
      extents.Add(low);
      extents.Add(high);
    }
  }

private:
  const tarn::Project& project;
};

constexpr float fontSize = 14.0F;
constexpr int air = 8;  // pixels around the legend

// The numbers have the colours of their heights, of which a dark plate swallows the blues.
void lightenNumbers(TarnOIColorizeScaleHUD& scale) {
  const auto* shown = static_cast<SoGroup*>(static_cast<SoGroup*>(scale.getChild(0))->getChild(0));
  SoMaterial* last = nullptr;
  for (int i = 0; i < shown->getNumChildren(); ++i) {
    SoNode* child = shown->getChild(i);
    if (child->isOfType(SoMaterial::getClassTypeId())) last = static_cast<SoMaterial*>(child);
    if (!child->isOfType(SoText2::getClassTypeId()) || !last) continue;
    last->diffuseColor = 0.5F * (last->diffuseColor[0] + SbColor(1.0F, 1.0F, 1.0F));
  }
}

SoOrthographicCamera* cameraOf(TarnOIOverlaySeparator& overlay) {
  return static_cast<SoOrthographicCamera*>(overlay.getChild(0));
}

NodeRef<TarnOIOverlaySeparator> makeOverlay() {
  NodeRef<TarnOIOverlaySeparator> overlay(new TarnOIOverlaySeparator(0.5F, 0.5F, 1.0F));
  cameraOf(*overlay)->height = 1.0F;
  auto* font = new SoFont;
  font->size = fontSize;
  overlay->addChild(font);
  return overlay;
}

}  // namespace

HeightLegend::HeightLegend(tarn::Project& project)
    : overlay(makeOverlay()),
      camera(cameraOf(*overlay)),
      plate(makeNode<SoCoordinate3>()),
      scale(makeNode<TarnOIColorizeScaleHUD>()) {
  auto* callback = new SoCallback;
  callback->setCallback(&HeightLegend::isDrawn, this);
  overlay->insertChild(callback, 0);
  auto* pick = new SoPickStyle;
  pick->style = SoPickStyle::UNPICKABLE;
  overlay->addChild(pick);
  auto* ground = new SoSeparator;
  overlay->addChild(ground);
  // Drawn at once: what is blended later, and is behind it, must not be drawn over it.
  auto* blending = new SoTransparencyType;
  blending->value = SoTransparencyType::BLEND;
  ground->addChild(blending);
  auto* model = new SoLightModel;
  model->model = SoLightModel::BASE_COLOR;
  ground->addChild(model);
  auto* dark = new SoMaterial;
  dark->diffuseColor = SbColor(0.0F, 0.0F, 0.0F);
  dark->transparency = 0.3F;
  ground->addChild(dark);
  ground->addChild(plate.get());
  ground->addChild(new SoFaceSet);
  lightenNumbers(*scale);
  overlay->addChild(scale.get());
  auto* reset = new SoResetTransform;
  reset->whatToReset = SoResetTransform::BBOX;
  overlay->addChild(reset);

  PlacedMeshes placed(project);
  scale->UpdateRangeLables(&placed, TarnOIColorizeScaleHUD::eHeightRange);
  scale->ShowColorizeScale(1);
}

HeightLegend::~HeightLegend() = default;

// Ahead of the overlay's camera: what is changed here holds for this picture.
void HeightLegend::isDrawn(void* self, SoAction* action) {
  if (!action->isOfType(SoGLRenderAction::getClassTypeId())) return;
  static_cast<HeightLegend*>(self)->fit(SoViewportRegionElement::get(action->getState()));
}

void HeightLegend::fit(const SbViewportRegion& picture) {
  if (picture.getViewportSizePixels() == fittedTo) return;
  fittedTo = picture.getViewportSizePixels();
  // How much room the numbers take depends on the size of the picture: measured as it is drawn.
  const NodeRef<TarnOIOverlaySeparator> measured = makeOverlay();
  measured->addChild(scale.get());
  SoGetBoundingBoxAction box(picture);
  box.apply(measured.get());
  if (box.getBoundingBox().isEmpty()) return;  // a preference hides it
  SbVec3f low;
  SbVec3f high;
  box.getBoundingBox().getBounds(low, high);
  const SbVec2s size = picture.getViewportSizePixels();
  const SbVec2f around(static_cast<float>(air) / static_cast<float>(size[0]),
                       static_cast<float>(air) / static_cast<float>(size[1]));
  const float cutOff = std::max(0.0F, high[0] + around[0] - 1.0F);
  camera->position = SbVec3f(0.5F + cutOff, 0.5F, 1.0F);
  // A little behind the legend, and ahead of the scene.
  constexpr float depth = -1e-3F;
  const float left = low[0] - around[0];
  const float right = high[0] + around[0];
  const float bottom = low[1] - around[1];
  const float top = high[1] + around[1];
  const std::array corners = {SbVec3f(left, bottom, depth), SbVec3f(right, bottom, depth),
                              SbVec3f(right, top, depth), SbVec3f(left, top, depth)};
  plate->point.setValues(0, static_cast<int>(corners.size()), corners.data());
}

bool HeightLegend::explains(const tarn::Project& project) {
  const tarn::VOrdCollect& meshes = project.GetPointMeshes();
  std::optional<double> shift;
  for (int i = 0; i < meshes.size(); ++i) {
    const auto* mesh = static_cast<tarn::PointMesh*>(meshes.at(i));
    if (mesh->GetNumPoints() == 0) continue;
    const double own = mesh->GetModelPoint(0).z - mesh->GetPoint(0).z;
    if (shift && std::abs(own - *shift) > 1e-6 * std::max(1.0, std::abs(own))) return false;
    shift = own;
  }
  return true;
}
