#include "nodes/lines/TarnOIAxisSeparator.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoScale.h>
#include <Inventor/nodes/SoText2.h>
#include <Inventor/nodes/SoTranslation.h>

#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/LineSegment.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/ViewerFrame.h"

#include <array>

TARNOI_NODE_SOURCE(TarnOIAxisSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIAxisSeparator);

namespace {

// What tells one axis from another, in scene coordinates.
struct Axis {
  const char* label;
  SbColor color;
  std::array<SbVec3f, 2> ends;
  SbVec3f labelPosition;
};

NodeRef<SoTranslation> appendLabel(SoGroup& parent, const char* label, const SbVec3f& position) {
  auto place = makeNode<SoTranslation>();
  place->translation.setValue(position);
  auto* text = new SoText2;
  text->string.setValue(label);
  parent.addChild(place.get());
  parent.addChild(text);
  return place;
}

void appendAxis(SoGroup& parent, const Axis& axis, NodeRef<SoCoordinate3>& coords,
                NodeRef<SoTranslation>& labelPos) {
  auto* group = new SoSeparator;
  auto* material = new SoMaterial;
  material->ambientColor.setValue(0.9F, 0.9F, 0.9F);
  material->diffuseColor.setValue(axis.color);
  group->addChild(material);
  coords = NodeRef(LineSegment::append(*group));
  LineSegment::place(*coords, axis.ends);
  labelPos = appendLabel(*group, axis.label, axis.labelPosition);
  parent.addChild(group);
}

// For a member of a node whose copy is `copy`: the copy of that member, which is a child of one
// of the node's own children.
template <typename Node>
NodeRef<Node> grandchildOfCopy(const SoGroup& copy, const SoGroup& original,
                               const NodeRef<Node>& member) {
  for (int i = 0; i < original.getNumChildren(); ++i) {
    if (!original.getChild(i)->isOfType(SoGroup::getClassTypeId())) continue;
    const auto& child = static_cast<const SoGroup&>(*original.getChild(i));
    const auto& itsCopy = static_cast<const SoGroup&>(*copy.getChild(i));
    if (auto found = ChildNodes::counterpart(itsCopy, child, member)) return found;
  }
  return {};
}

}  // namespace

TarnOIAxisSeparator::TarnOIAxisSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIAxisSeparator::TarnOIAxisSeparator(const TarnOIAxisSeparator& other) : TarnOIAxisSeparator() {
  *this = other;
}

TarnOIAxisSeparator& TarnOIAxisSeparator::operator=(const TarnOIAxisSeparator& other) = default;

TarnOIAxisSeparator::~TarnOIAxisSeparator() = default;

void TarnOIAxisSeparator::SetScale(double scale) {
  const OneNotification once(*this);
  createMissingChildren();
  const auto factor = static_cast<float>(scale);
  if (axisScale) axisScale->scaleFactor.setValue(factor, factor, factor);
}

void TarnOIAxisSeparator::SetOrigin(tarn::Point3DDouble origin) {
  const OneNotification once(*this);
  createMissingChildren();
  if (!originPos) originPos = makeNode<SoTranslation>();
  originPos->translation.setValue(ViewerFrame::fromModel(origin));
  if (findChild(originPos.get()) == -1) insertChild(originPos.get(), 0);
}

void TarnOIAxisSeparator::UpdateCoordinates(tarn::Point3DDouble& origin, tarn::Point3DDouble& xEnd,
                                            tarn::Point3DDouble& yEnd, tarn::Point3DDouble& zEnd) {
  const OneNotification once(*this);
  createMissingChildren();
  for (tarn::Point3DDouble* point : {&origin, &xEnd, &yEnd, &zEnd}) {
    *point = ViewerFrame::exactFromModel(*point);
  }
  const auto place = [&](const NodeRef<SoTranslation>& labelPos,
                         const NodeRef<SoCoordinate3>& coords, tarn::Point3DDouble& end) {
    if (labelPos) labelPos->translation.setValue(ViewerFrame::stored(end));
    SetLinePosition(coords.get(), origin, end);
  };
  place(yLabelPos, yAxisCoords, yEnd);
  place(zLabelPos, zAxisCoords, zEnd);
  place(xLabelPos, xAxisCoords, xEnd);
}

void TarnOIAxisSeparator::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOIAxisSeparator*>(from);
  axisScale = ChildNodes::counterpart(*this, *other, other->axisScale);
  originPos = ChildNodes::counterpart(*this, *other, other->originPos);
  yAxisCoords = grandchildOfCopy(*this, *other, other->yAxisCoords);
  xAxisCoords = grandchildOfCopy(*this, *other, other->xAxisCoords);
  zAxisCoords = grandchildOfCopy(*this, *other, other->zAxisCoords);
  yLabelPos = grandchildOfCopy(*this, *other, other->yLabelPos);
  xLabelPos = grandchildOfCopy(*this, *other, other->xLabelPos);
  zLabelPos = grandchildOfCopy(*this, *other, other->zLabelPos);
}

void TarnOIAxisSeparator::CreateChildren() {
  axisScale = makeNode<SoScale>();
  addChild(axisScale.get());
  // The model's Y points along the scene's -z, its Z along the scene's y.
  const SbVec3f origin(0, 0, 0);
  const SbVec3f x(1, 0, 0);
  const SbVec3f y(0, 0, -1);
  const SbVec3f z(0, 1, 0);
  appendAxis(*this, {"Y", SbColor(0, 1, 0), {origin, y}, y}, yAxisCoords, yLabelPos);
  appendAxis(*this, {"X", SbColor(1, 0, 0), {x, origin}, x}, xAxisCoords, xLabelPos);
  appendAxis(*this, {"Z", SbColor(0, 0, 1), {z, origin}, z}, zAxisCoords, zLabelPos);
}

void TarnOIAxisSeparator::SetLinePosition(SoCoordinate3* coords, tarn::Point3DDouble& from,
                                          tarn::Point3DDouble& to) {
  if (!coords) return;
  LineSegment::place(*coords, std::array{ViewerFrame::stored(from), ViewerFrame::stored(to)});
}

void TarnOIAxisSeparator::createMissingChildren() {
  if (getNumChildren() == 0) CreateChildren();
}
