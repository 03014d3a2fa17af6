#include "nodes/meshes/TarnOIContourSeparator.h"

#include <Inventor/SbColor.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoMaterial.h>

#include "host/general/Preferences.h"
#include "host/model/PointMeshContour.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/FieldFill.h"
#include "nodes/framework/MaterialColours.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/meshes/MeshContours.h"

#include <algorithm>

TARNOI_NODE_SOURCE(TarnOIContourSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIContourSeparator);

TarnOIContourSeparator::TarnOIContourSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIContourSeparator::TarnOIContourSeparator(const TarnOIContourSeparator& other)
    : TarnOIContourSeparator() {
  *this = other;
}

TarnOIContourSeparator& TarnOIContourSeparator::operator=(const TarnOIContourSeparator& other) =
    default;

TarnOIContourSeparator::~TarnOIContourSeparator() = default;

int TarnOIContourSeparator::SetContour(tarn::PointMeshContour* contour, tarn::VDictionary* dict) {
  SetTarnObject(contour, dict);
  if (!contour) return 1;
  const OneNotification once(*this);
  if (getNumChildren() == 0) forgetChildren();  // the host dropped them
  build();
  place();
  return 1;
}

void TarnOIContourSeparator::HighlightSubPoints(tarn::VOrdCollect* pointIndexes) {
  const OneNotification once(*this);
  subHighlight.place(*this, fixedMaterial ? findChild(fixedMaterial.get()) + 1 : 0);
  colorPoints(0, pointIndexes);
}

void TarnOIContourSeparator::ClearSubPointHighlights() { subHighlight.remove(*this); }

void TarnOIContourSeparator::Highlight(SoMaterial* material, int on) {
  TarnOISeparator::Highlight(material, on);
  subHighlight.chooseBinding(*this);
}

void TarnOIContourSeparator::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  // A copy that is set again writes into its own children.
  const auto* other = static_cast<const TarnOIContourSeparator*>(from);
  fixedMaterial = ChildNodes::counterpart(*this, *other, other->fixedMaterial);
  coordinates = ChildNodes::counterpart(*this, *other, other->coordinates);
  subHighlight = other->subHighlight.counterpart(*this, *other);
}

tarn::PointMeshContour* TarnOIContourSeparator::contour() const {
  return static_cast<tarn::PointMeshContour*>(tarnObject);
}

void TarnOIContourSeparator::forgetChildren() {
  fixedMaterial.reset();
  coordinates.reset();
  subHighlight = SubHighlight();
}

void TarnOIContourSeparator::build() {
  if (tarn::gPref->GetBoolPreference("ContoursUseFixedColor", 0, "DenseStereo")) {
    if (!fixedMaterial) {
      fixedMaterial = makeNode<SoMaterial>();
      addChild(fixedMaterial.get());
    }
    fixedMaterial->diffuseColor = MeshContours::preferredColor();
  }
  if (coordinates) return;
  coordinates = makeNode<SoCoordinate3>();
  coordinates->point.setNum(0);  // by default it has one value
  addChild(coordinates.get());
  MeshContours::appendShapes(*this);
}

void TarnOIContourSeparator::place() {
  double** const points = contour()->GetPoints(1);
  const int count = points ? contour()->GetNumberOfPoints() : 0;
  if (count < 1) return;
  SoMFVec3f& field = coordinates->point;
  const int before = field.getNum();
  {
    const FieldFill fill(field, std::max(before, count));
    for (int i = 0; i < count; ++i) {
      fill.values()[i] = ViewerFrame::fromModel({points[i][0], points[i][1], points[i][2]});
    }
  }
  // Each point has its colour while some are highlighted, also one that has just come.
  if (subHighlight.material && before < count) colorPoints(before, nullptr);
}

SbColor TarnOIContourSeparator::contourColor() const {
  const tarn::Material* material = contour() ? contour()->GetMaterial() : nullptr;
  return material ? MaterialColours::of(*material).diffuse : MeshContours::preferredColor();
}

// Colours the points from `first` on like the contour, but those listed as selected.
void TarnOIContourSeparator::colorPoints(int first, tarn::VOrdCollect* marked) {
  SoMFColor& field = subHighlight.material->diffuseColor;
  const int count = coordinates ? coordinates->point.getNum() : 0;
  const OneNotification once(field);
  field.setNum(count);
  SbColor* const colors = field.startEditing();
  std::fill(colors + first, colors + count, contourColor());
  SubHighlight::paint(colors, count, marked, SubHighlight::selectionColour());
  field.finishEditing();
}
