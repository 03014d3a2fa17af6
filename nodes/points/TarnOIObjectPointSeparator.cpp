#include "nodes/points/TarnOIObjectPointSeparator.h"

#include <Inventor/SbMatrix.h>
#include <Inventor/nodes/SoMarkerSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSphere.h>
#include <Inventor/nodes/SoTransform.h>

#include "host/general/DisplayBitmaps.h"
#include "host/general/Preferences.h"
#include "host/general/ThreeDViewOffset.h"
#include "host/model/ImportedPoint.h"
#include "host/model/MatrixDouble.h"
#include "host/model/ObjectPoint.h"
#include "host/model/SurfacePoint.h"
#include "host/model/VectorDouble.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/Narrowing.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/SceneColor.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/ViewerFrame.h"

#include <cmath>
#include <string>

TARNOI_NODE_SOURCE(TarnOIObjectPointSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIObjectPointSeparator);

namespace {

constexpr const char* sourceFile = "TarnOIObjectPointSeparator";

bool isShownAsControlPoint(const tarn::ObjectPoint& point) {
  return point.IsControlPoint(tarn::gPref->GetBoolPreference("ShowOnlyActive", 1, "Control"));
}

bool isCodedTarget(const tarn::ObjectPoint& point) {
  int code = 0;
  int ring = 0;
  return point.GetTargetCode(code, ring);
}

int markerIndexOf(const tarn::ObjectPoint& point) {
  if (isShownAsControlPoint(point)) return tarn::gSymbols.controlPoint;
  if (point.HasSecondState()) return tarn::gSymbols.secondState;
  if (point.AllMarksAreSubPixel(nullptr)) {
    return isCodedTarget(point) ? tarn::gSymbols.codedTarget : tarn::gSymbols.subPixel;
  }
  return tarn::gSymbols.point;
}

tarn::Point3DRandom positionOf(const tarn::ObjectPoint& point) {
  tarn::Point3DRandom position;
  point.GetApproximation(position);
  return position;
}

bool mayHaveEllipsoid(const tarn::ObjectPoint& point) {
  return point.IsProcessed() || point.IsControlPoint(1) || point.GetFrozen();
}

// The unit sphere to the ellipsoid, in the model frame. The position is narrowed before
// the view offset is taken off: hosts rely on it.
SbMatrix ellipsoidInModel(const tarn::Point3DDouble& position, const tarn::MatrixDouble& axes,
                          const tarn::VectorDouble& variances, double scale) {
  SbVec3f halfAxes;
  SbMatrix rotation = SbMatrix::identity();
  for (int i = 0; i < 3; ++i) {
    halfAxes[i] = static_cast<float>(std::sqrt(variances(i + 1)) * scale);
    for (int j = 0; j < 3; ++j) rotation[i][j] = static_cast<float>(axes(j + 1, i + 1));
  }
  using Narrowing::narrowed;
  const tarn::Point3DDouble& offset = tarn::gThreeDViewOffset;
  SbMatrix result;
  result.setScale(halfAxes);
  result.multRight(rotation);
  SbMatrix translation;
  translation.setTranslate(SbVec3f(static_cast<float>(narrowed(position.x) - offset.x),
                                   static_cast<float>(narrowed(position.y) - offset.y),
                                   static_cast<float>(narrowed(position.z) - offset.z)));
  result.multRight(translation);
  return result;
}

}  // namespace

TarnOIObjectPointSeparator::TarnOIObjectPointSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIObjectPointSeparator::TarnOIObjectPointSeparator(const TarnOIObjectPointSeparator& other)
    : TarnOIObjectPointSeparator() {
  *this = other;
}

TarnOIObjectPointSeparator& TarnOIObjectPointSeparator::operator=(
    const TarnOIObjectPointSeparator& other) = default;

TarnOIObjectPointSeparator::~TarnOIObjectPointSeparator() = default;

void TarnOIObjectPointSeparator::SetObjectPoint(tarn::ObjectPoint* point, tarn::VDictionary* dict,
                                                int useMarkers, int useRGB) {
  SetTarnObject(point, dict);
  if (!point) return;
  const OneNotification once(*this);
  if (getNumChildren() == 0) {
    // Of children that the host dropped nothing is taken up again but the shape.
    rgbMaterial.reset();
    label = PointLabel();
    UpdateMarkerSet(useMarkers);
    UpdateRGBColor(useRGB);
    shape.append(*this, shape.markerSet.get());
  } else {
    shape.findCoordinate(*this, sourceFile, __LINE__);
    UpdateMarkerSet(useMarkers);
    UpdateRGBColor(useRGB);
  }
  shape.place(positionOf(*point).position());
}

void TarnOIObjectPointSeparator::UpdateMarkerSet(int useMarkers) {
  const bool asMarker = useMarkers != 0;
  NodeRef<SoPointSet>& markerSet = shape.markerSet;
  if (!markerSet || markerSet->isOfType(SoMarkerSet::getClassTypeId()) != asMarker) {
    NodeRef<SoPointSet> wanted(asMarker ? new SoMarkerSet : new SoPointSet);
    const int place = markerSet ? findChild(markerSet.get()) : -1;
    if (place != -1) replaceChild(place, wanted.get());
    markerSet = wanted;
  }
  if (asMarker && point()) {
    static_cast<SoMarkerSet*>(markerSet.get())->markerIndex.setValue(markerIndexOf(*point()));
  }
}

void TarnOIObjectPointSeparator::UpdateRGBColor(int useRGB) {
  const tarn::Colour* colour = useRGB && point() ? point()->GetRGBTextureColor() : nullptr;
  if (!colour) {
    Highlight(rgbMaterial.get(), 0);
    rgbMaterial.reset();
    return;
  }
  const SbColor shown = SceneColor::from(*colour);
  if (rgbMaterial) {
    // The ambient part stays as it was made: hosts rely on it.
    rgbMaterial->diffuseColor.setValue(shown);
    return;
  }
  rgbMaterial = makeNode<SoMaterial>();
  rgbMaterial->ambientColor.setIgnored(FALSE);
  rgbMaterial->diffuseColor.setIgnored(FALSE);
  rgbMaterial->ambientColor.setValue(shown);
  rgbMaterial->diffuseColor.setValue(shown);
  Highlight(rgbMaterial.get(), 1);
}

void TarnOIObjectPointSeparator::UpdateTextLable(int showNumber, int markT) {
  label.update(*this, GetTextLable(showNumber, markT, point()),
               point() ? positionOf(*point()).position() : tarn::Point3DDouble(), "trans",
               sourceFile);
}

void TarnOIObjectPointSeparator::ShowErrorEllipsoid(int show) {
  if (TARNOI_ASSERT(tarnObject, "tarnObject", sourceFile) &&
      tarnObject->isA(tarn::SurfacePointCls)) {
    return;
  }
  if (!show) {
    hideErrorEllipsoid();
    return;
  }
  if (!sphereSeparator) CreateSphereSeparator();
  if (findChild(sphereSeparator.get()) != -1) return;
  int index = 0;
  while (index < getNumChildren() && getChild(index)->isOfType(SoMaterial::getClassTypeId())) {
    ++index;
  }
  insertChild(sphereSeparator.get(), index);
}

void TarnOIObjectPointSeparator::SetErrorEllipsoidScale(float scale) {
  if (!sphereTransform) return;
  if (!point() || !mayHaveEllipsoid(*point())) {
    hideErrorEllipsoid();
    return;
  }
  const tarn::Point3DRandom position = positionOf(*point());
  tarn::MatrixDouble axes;
  tarn::VectorDouble variances;
  if (position.X().varianceUnknown || position.Y().varianceUnknown ||
      position.Z().varianceUnknown || !position.EigenVectorValues(axes, variances)) {
    hideErrorEllipsoid();
    return;
  }
  sphereTransform->setMatrix(ViewerFrame::transformFromModel(
      ellipsoidInModel(position.position(), axes, variances, static_cast<double>(scale))));
}

tarn::VString TarnOIObjectPointSeparator::GetTextLable(int showNumber, int markT,
                                                       tarn::ObjectPoint* point) {
  if (!point) return {};
  const bool withT = markT && point->HasTState();
  if (!showNumber) return withT ? "T" : "";

  const int showUserName = tarn::gPref->GetBoolPreference("ShowUserNameInIDs", 1, nullptr);
  const tarn::VString* userName = showUserName ? point->GetUserName() : nullptr;
  const bool named = userName && !userName->isEmpty();
  const tarn::ImportedPoint* linked = point->GetLinkedImportedPoint();
  const std::string number = std::to_string(point->GetNumber());

  std::string label = withT ? "T " : "";
  label += isCodedTarget(*point) ? "[" + number + "]" : number;
  if (named) label += ":" + userName->str();
  // With a T the control point is named also where none is linked, and after a user name
  // a colon stands ahead of it: hosts rely on both.
  if (isShownAsControlPoint(*point) && (linked || withT)) {
    if (withT && named) label += ":";
    label += " (cpm:" + (linked ? linked->GetName().str() : std::string()) + ")";
  }
  return std::string_view(label);
}

void TarnOIObjectPointSeparator::GetPointSet(SoCoordinate3** coords, SoPointSet** points) const {
  shape.get(coords, points);
}

SoNode* TarnOIObjectPointSeparator::copy(SbBool copyConnections) const {
  return boundCopy(TarnOISeparator::copy(copyConnections));
}

void TarnOIObjectPointSeparator::copyContents(const SoFieldContainer* from,
                                              SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  // The members of a copy are its own children, where the original's were its: else a
  // label or a marker of the copy could no longer be changed.
  const auto* other = static_cast<const TarnOIObjectPointSeparator*>(from);
  shape = other->shape.counterpart(*this, *other);
  rgbMaterial = ChildNodes::counterpart(*this, *other, other->rgbMaterial);
  label = other->label.counterpart(*this, *other);
  sphereSeparator = ChildNodes::counterpart(*this, *other, other->sphereSeparator);
  sphereTransform =
      NodeRef(sphereSeparator ? static_cast<SoTransform*>(sphereSeparator->getChild(0)) : nullptr);
}

void TarnOIObjectPointSeparator::CreateSphereSeparator() {
  TARNOI_ASSERT(!sphereSeparator, "!sphereSeparator", sourceFile);
  sphereSeparator = makeNode<SoSeparator>();
  sphereTransform = makeNode<SoTransform>();
  auto* sphere = new SoSphere;
  sphere->radius.setValue(
      static_cast<float>(tarn::gPref->GetPreference("ExagerationSphereSize", 1.0, nullptr)));
  sphereSeparator->addChild(sphereTransform.get());
  sphereSeparator->addChild(sphere);
}

tarn::ObjectPoint* TarnOIObjectPointSeparator::point() const {
  return tarnObjectAs<tarn::ObjectPoint>(tarn::ObjectPointCls);
}

void TarnOIObjectPointSeparator::hideErrorEllipsoid() {
  ChildNodes::remove(*this, sphereSeparator.get());
}
