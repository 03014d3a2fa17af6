#include "nodes/hud/TarnOIColorizeScaleHUD.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMaterialBinding.h>
#include <Inventor/nodes/SoSwitch.h>
#include <Inventor/nodes/SoText2.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/general/Preferences.h"
#include "host/model/Project.h"
#include "nodes/framework/FalseColour.h"
#include "nodes/framework/FieldFill.h"
#include "nodes/framework/TarnOIAssert.h"

#include <memory>
#include <optional>

TARNOI_NODE_SOURCE(TarnOIColorizeScaleHUD, TarnOIOverlaySeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIColorizeScaleHUD);

namespace {

constexpr int colours = 100;

// Where things stand in the separator, for copies.
constexpr int coordinatesIndex = 0;
constexpr std::array labelIndices = {7, 10, 13};

// The ramp's colour at `percent` of its hues.
SbColor rampColour(const FalseColour& ramp, int percent) {
  return ramp.at(ramp.startHue + percent * 0.01 * (ramp.endHue - ramp.startHue));
}

struct Range {
  double least = 0.0;
  double most = 0.0;
};

// The heights that the ramp colours, in the project's units; none when there are no extents.
std::optional<Range> heightRange(tarn::Project& project) {
  tarn::Extents extents;
  if (tarn::gPref->GetBoolPreference("UseMeshExtentsForHueRange", 1, "DenseStereo")) {
    project.GetPointMeshExtents(extents, project.GetAffineTransform(1));
  } else if (tarn::gPref->GetBoolPreference("UseProjectExtentsForHueRange", 1, "DenseStereo")) {
    extents = project.GetProjectExtents(project.GetAffineTransform(1), 1, 1);
  } else {
    return Range();
  }
  tarn::Point3DDouble least;
  tarn::Point3DDouble most;
  if (!extents.GetExtents(least, most)) return std::nullopt;
  if (const tarn::Units* units = project.GetUnits()) {
    units->MetersToUnits(least);
    units->MetersToUnits(most);
  }
  return Range{least.z, most.z};
}

Range photoOverlapRange(tarn::Project& project) {
  Range range;
  if (const auto* photographs = project.GetPhotoCollection()) {
    const std::unique_ptr<tarn::VOrdCollect> oriented(
        photographs->GetPhotographsByType(tarn::PhotoCollection::eOriented, nullptr));
    if (oriented) range.most = oriented->size();
  }
  range.least = tarn::gPref->GetPreference("MinNumPhotoRange", 0, "PhotoOverlap");
  return range;
}

}  // namespace

TarnOIColorizeScaleHUD::TarnOIColorizeScaleHUD() {
  TARNOI_NODE_CONSTRUCTOR();
  scaleSwitch = makeNode<SoSwitch>();
  scaleSeparator = makeNode<SoSeparator>();
  CreateLineSet();
  scaleSwitch->addChild(scaleSeparator.get());
  addChild(scaleSwitch.get());
}

TarnOIColorizeScaleHUD::TarnOIColorizeScaleHUD(const TarnOIColorizeScaleHUD& other)
    : TarnOIColorizeScaleHUD() {
  *this = other;
}

TarnOIColorizeScaleHUD& TarnOIColorizeScaleHUD::operator=(const TarnOIColorizeScaleHUD& other) =
    default;

TarnOIColorizeScaleHUD::~TarnOIColorizeScaleHUD() = default;

void TarnOIColorizeScaleHUD::ShowColorizeScale(int show) {
  const bool shown =
      show && tarn::gPref->GetBoolPreference("AllowColorizeScale", 1, "ColorizeScale");
  scaleSwitch->whichChild.setValue(shown ? SO_SWITCH_ALL : SO_SWITCH_NONE);
}

void TarnOIColorizeScaleHUD::UpdateRangeLables(tarn::Project* project, eRangeType type) {
  if (!project) {
    clearLabels();
    return;
  }
  std::optional<Range> range = Range();
  if (type == eHeightRange) {
    range = heightRange(*project);
  } else if (type == ePhotoOverlapRange) {
    range = photoOverlapRange(*project);
  } else {
    TARNOI_ASSERT_AT(false, "0", "TarnOIColorizeScaleHUD", 220);
  }
  if (!range) {
    clearLabels();
    return;
  }
  const auto write = [this](int label, double number) {
    tarn::VString text;
    text.prints(" %0.2f", number);
    labels[static_cast<std::size_t>(label)]->string.setValue(text.text());
  };
  write(top, range->most);
  write(middle, range->least + (range->most - range->least) * 0.5);
  write(bottom, range->least);
}

void TarnOIColorizeScaleHUD::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  // The constructor made a legend already.
  removeAllChildren();
  TarnOIOverlaySeparator::copyContents(from, copyConnections);
  scaleSwitch = NodeRef(static_cast<SoSwitch*>(getChild(0)));
  scaleSeparator = NodeRef(static_cast<SoSeparator*>(scaleSwitch->getChild(0)));
  barCoordinates = NodeRef(static_cast<SoCoordinate3*>(scaleSeparator->getChild(coordinatesIndex)));
  for (std::size_t i = 0; i < labels.size(); ++i) {
    labels[i] = NodeRef(static_cast<SoText2*>(scaleSeparator->getChild(labelIndices[i])));
  }
}

void TarnOIColorizeScaleHUD::CreateLineSet() {
  const FalseColour ramp = FalseColour::fromPreferences();
  barCoordinates = makeNode<SoCoordinate3>();
  {
    const FieldFill fill(barCoordinates->point, colours + 1);
    for (int i = 0; i <= colours; ++i) {
      fill.values()[i].setValue(0.9F, static_cast<float>(0.1 + 0.008 * i), 0.0F);
    }
  }
  auto material = makeNode<SoMaterial>();
  {
    const FieldFill fill(material->diffuseColor, colours);
    for (int i = 0; i < colours; ++i) fill.values()[i] = rampColour(ramp, i);
  }
  auto binding = makeNode<SoMaterialBinding>();
  binding->value.setValue(SoMaterialBinding::PER_PART);
  auto style = makeNode<SoDrawStyle>();
  style->lineWidth.setValue(
      static_cast<float>(tarn::gPref->GetPreference("LineWidth", 3, "ColorizeScale")));
  auto line = makeNode<SoLineSet>();
  // One less than there are vertices: hosts rely on it.
  line->numVertices.setValue(colours);
  scaleSeparator->addChild(barCoordinates.get());
  scaleSeparator->addChild(material.get());
  scaleSeparator->addChild(binding.get());
  scaleSeparator->addChild(style.get());
  scaleSeparator->addChild(line.get());

  struct Place {
    SbVec3f fromLast;
    int percent;
  };
  const std::array<Place, 3> places = {{{SbVec3f(0.9F, 0.08F, 0.0F), 0},
                                        {SbVec3f(0.0F, 0.4F, 0.0F), 50},
                                        {SbVec3f(0.0F, 0.4F, 0.0F), 99}}};
  for (std::size_t i = 0; i < places.size(); ++i) {
    auto translation = makeNode<SoTranslation>();
    translation->translation.setValue(places[i].fromLast);
    auto colour = makeNode<SoMaterial>();
    colour->diffuseColor.setValue(rampColour(ramp, places[i].percent));
    labels[i] = makeNode<SoText2>();
    labels[i]->string.setValue("");
    scaleSeparator->addChild(translation.get());
    scaleSeparator->addChild(colour.get());
    scaleSeparator->addChild(labels[i].get());
  }
  // All of them into the lower label, so that the last one stays: hosts rely on it.
  for (const char* text : {" 100.0", "  50.0", "  0.0"}) labels[bottom]->string.setValue(text);
}

void TarnOIColorizeScaleHUD::clearLabels() {
  for (const auto& label : labels) label->string.setValue("");
}
