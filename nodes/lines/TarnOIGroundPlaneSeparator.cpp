#include "nodes/lines/TarnOIGroundPlaneSeparator.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoTransparencyType.h>

#include "host/general/Preferences.h"
#include "host/model/Project.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/Narrowing.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/SceneColor.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/ViewerFrame.h"

#include <array>
#include <cstddef>
#include <cstdint>

TARNOI_NODE_SOURCE(TarnOIGroundPlaneSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIGroundPlaneSeparator);

namespace {

constexpr const char* sourceFile = "TarnOIGroundPlaneSeparator";
constexpr std::size_t cornerCount = 4;
using Corners = std::array<tarn::Point3DDouble, cornerCount>;

SoTransparencyType* makeTransparencyType() {
  auto* type = new SoTransparencyType;
  type->value.setValue(tarn::gPref->GetPreference("GroundPlaneTransparencyType",
                                                  SoTransparencyType::DELAYED_BLEND, "Colors"));
  return type;
}

SoMaterial* makeMaterial() {
  auto* material = new SoMaterial;
  const SbColor color = SceneColor::from(
      tarn::gPref->GetPreference("GroundPlaneColor", tarn::Colour(0, 200, 0), "Colors"));
  material->diffuseColor.setValue(color);
  material->ambientColor.setValue(color);
  material->transparency.setValue(
      static_cast<float>(tarn::gPref->GetPreference("GroundPlaneTransparency", 0.5, "Colors")));
  return material;
}

SoIndexedFaceSet* makeFaces() {
  // The second triangle ends with the list: hosts rely on there being no -1 after it.
  constexpr std::array<std::int32_t, 7> indices = {0, 1, 2, -1, 2, 3, 0};
  auto* faces = new SoIndexedFaceSet;
  faces->coordIndex.setValues(0, static_cast<int>(indices.size()), indices.data());
  return faces;
}

// Adds the margin to each side. The order matters: see UpdatePosition.
void enlarge(tarn::Point3DDouble& min, tarn::Point3DDouble& max) {
  const double m =
      Narrowing::narrowed(tarn::gPref->GetPreference("GroundPlaneMultiplier", 2.0, "GroundPlane"));
  min.x -= (max.x - min.x) / m;
  min.y -= (max.y - min.y) / m;
  max.x += (max.x - min.x) / m;
  max.y += (max.y - min.y) / m;
}

double groundHeight(const tarn::Project& project) {
  const double height = project.GetVolumeAboveXY_ZLevel();
  const tarn::Units* units = project.GetUnits();
  return units ? units->UnitsToMeters(height) : height;
}

// From the project's own coordinate system back into the model.
void convertToModel(Corners& corners, tarn::BasicAffine& affine) {
  affine.DoInversion(1);
  for (tarn::Point3DDouble& corner : corners) affine.ConvertPoint(corner);
  affine.DoInversion(0);
}

}  // namespace

TarnOIGroundPlaneSeparator::TarnOIGroundPlaneSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIGroundPlaneSeparator::TarnOIGroundPlaneSeparator(const TarnOIGroundPlaneSeparator& other)
    : TarnOIGroundPlaneSeparator() {
  *this = other;
}

TarnOIGroundPlaneSeparator& TarnOIGroundPlaneSeparator::operator=(
    const TarnOIGroundPlaneSeparator& other) = default;

TarnOIGroundPlaneSeparator::~TarnOIGroundPlaneSeparator() = default;

void TarnOIGroundPlaneSeparator::SetRoot(SoNode* newRoot, tarn::Project* newProject) {
  root = newRoot;
  project = newProject;
}

void TarnOIGroundPlaneSeparator::UpdatePosition() {
  if (!root) return;
  if (getNumChildren() == 0) CreateChildren();
  if (!project || !coords) return;

  tarn::BasicAffine* affine = project->GetAffineTransform(1);
  tarn::Extents extents;
  project->GetProjectExtents(extents, affine, 1, 1);
  tarn::Point3DDouble min;
  tarn::Point3DDouble max;
  if (!extents.GetExtents(min, max)) return;
  enlarge(min, max);
  const double z = groundHeight(*project);
  // Around the rectangle, as the faces name them.
  Corners corners = {tarn::Point3DDouble(min.x, max.y, z), tarn::Point3DDouble(max.x, max.y, z),
                     tarn::Point3DDouble(max.x, min.y, z), tarn::Point3DDouble(min.x, min.y, z)};
  if (affine) convertToModel(corners, *affine);

  std::array<SbVec3f, cornerCount> shown;
  for (std::size_t i = 0; i < cornerCount; ++i) shown[i] = ViewerFrame::fromModel(corners[i]);
  coords->point.setValues(0, static_cast<int>(shown.size()), shown.data());
}

void TarnOIGroundPlaneSeparator::Hide(int hide) {
  if (getNumChildren() == 0) {
    if (hide) return;
    CreateChildren();
  }
  if (drawStyle) drawStyle->style.setValue(hide ? SoDrawStyle::INVISIBLE : SoDrawStyle::FILLED);
}

void TarnOIGroundPlaneSeparator::getBoundingBox(SoGetBoundingBoxAction* action) {
  if (getNumChildren() == 0) return;
  if (drawStyle && drawStyle->style.getValue() == SoDrawStyle::INVISIBLE) return;
  TarnOISeparator::getBoundingBox(action);
}

void TarnOIGroundPlaneSeparator::copyContents(const SoFieldContainer* from,
                                              SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOIGroundPlaneSeparator*>(from);
  coords = ChildNodes::counterpart(*this, *other, other->coords);
  drawStyle = ChildNodes::counterpart(*this, *other, other->drawStyle);
  SetRoot(other->root, other->project);
}

void TarnOIGroundPlaneSeparator::CreateChildren() {
  TARNOI_ASSERT(!coords, "!coords", sourceFile);
  const OneNotification once(*this);
  coords = makeNode<SoCoordinate3>();
  // The faces name four corners, also before they are placed.
  constexpr float unset[cornerCount][3] = {};
  coords->point.setValues(0, static_cast<int>(cornerCount), unset);
  drawStyle = makeNode<SoDrawStyle>();
  drawStyle->style.setValue(SoDrawStyle::FILLED);
  addChild(makeTransparencyType());
  addChild(drawStyle.get());
  addChild(makeMaterial());
  addChild(coords.get());
  addChild(makeFaces());
}
