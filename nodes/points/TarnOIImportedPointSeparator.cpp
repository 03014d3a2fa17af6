#include "nodes/points/TarnOIImportedPointSeparator.h"

#include "host/general/Preferences.h"
#include "host/model/ImportedPoint.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"

#include <string>

TARNOI_NODE_SOURCE(TarnOIImportedPointSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIImportedPointSeparator);

namespace {

constexpr const char* sourceFile = "TarnOIImportedPointSeparator";

tarn::Point3DDouble positionOf(const tarn::ImportedPoint& point) {
  tarn::Point3DRandom position;
  if (point.GetApproximation(position)) return position.position();
  TARNOI_ASSERT(!point.IsActive(1), "!point->IsActive( TRUE )", sourceFile);
  return point.GetStoredPosition().position();
}

}  // namespace

TarnOIImportedPointSeparator::TarnOIImportedPointSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIImportedPointSeparator::TarnOIImportedPointSeparator(
    const TarnOIImportedPointSeparator& other)
    : TarnOIImportedPointSeparator() {
  *this = other;
}

TarnOIImportedPointSeparator& TarnOIImportedPointSeparator::operator=(
    const TarnOIImportedPointSeparator& other) = default;

TarnOIImportedPointSeparator::~TarnOIImportedPointSeparator() = default;

void TarnOIImportedPointSeparator::SetSphereSize(float radius) { sphere.sphereSize = radius; }

void TarnOIImportedPointSeparator::SetImportedPoint(tarn::ImportedPoint* point,
                                                    tarn::VDictionary* dict) {
  SetTarnObject(point, dict);
  if (!point) return;
  const OneNotification once(*this);
  if (sphere.useSphere()) {
    AddAsSphere(point);
  } else {
    AddAsPoint(point);
  }
}

void TarnOIImportedPointSeparator::UpdateTextLable(int showNumber, int markT) {
  auto* point = tarnObjectAs<tarn::ImportedPoint>(tarn::ImportedPointCls);
  tarn::Point3DRandom position;
  if (point) point->GetApproximation(position);
  label.update(*this, GetTextLable(showNumber, markT, point), position.position(), "textTrans",
               sourceFile);
}

tarn::VString TarnOIImportedPointSeparator::GetTextLable(int showNumber, int,
                                                         tarn::ImportedPoint* point) {
  if (!showNumber || !point) return {};
  const std::string number = std::to_string(point->GetIDNumber());
  switch (tarn::gPref->GetPreference("DisplayNameAndID", 0, "Control")) {
    case 0:
      return std::string_view(number + ":" + point->GetName().str());
    case 1:
      return point->GetName();
    default:
      return std::string_view(number);
  }
}

void TarnOIImportedPointSeparator::GetPointSet(SoCoordinate3** coords, SoPointSet** points) const {
  shape.get(coords, points);
}

SoNode* TarnOIImportedPointSeparator::copy(SbBool copyConnections) const {
  return boundCopy(TarnOISeparator::copy(copyConnections));
}

void TarnOIImportedPointSeparator::copyContents(const SoFieldContainer* from,
                                                SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOIImportedPointSeparator*>(from);
  sphere = other->sphere;
  shape = other->shape.counterpart(*this, *other);
  label = other->label.counterpart(*this, *other);
}

void TarnOIImportedPointSeparator::AddAsPoint(tarn::ImportedPoint* point) {
  // A label whose nodes the host dropped is not taken up again.
  if (getNumChildren() == 0) label = PointLabel();
  shape.findOrBuild(*this, sourceFile, __LINE__);
  shape.place(positionOf(*point));
}

void TarnOIImportedPointSeparator::AddAsSphere(tarn::ImportedPoint* point) {
  shape = PointShape();
  label = PointLabel();
  sphere.rebuild(*this, positionOf(*point));
}
