#include "nodes/points/TarnOIOffsetPointSeparator.h"

#include "host/general/Preferences.h"
#include "host/model/ObjectPoint.h"
#include "host/model/OffsetPoint.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"

#include <string>

TARNOI_NODE_SOURCE(TarnOIOffsetPointSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIOffsetPointSeparator);

namespace {
constexpr const char* sourceFile = "TarnOIOffsetPointSeparator";
}

TarnOIOffsetPointSeparator::TarnOIOffsetPointSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIOffsetPointSeparator::TarnOIOffsetPointSeparator(const TarnOIOffsetPointSeparator& other)
    : TarnOIOffsetPointSeparator() {
  *this = other;
}

TarnOIOffsetPointSeparator& TarnOIOffsetPointSeparator::operator=(
    const TarnOIOffsetPointSeparator& other) = default;

TarnOIOffsetPointSeparator::~TarnOIOffsetPointSeparator() = default;

void TarnOIOffsetPointSeparator::SetOffsetPoint(tarn::OffsetPoint* point, tarn::VDictionary* dict) {
  SetTarnObject(point, dict);
  if (!point) return;
  const OneNotification once(*this);
  // A label whose nodes the host dropped is not taken up again.
  if (getNumChildren() == 0) label = PointLabel();
  shape.findOrBuild(*this, sourceFile, __LINE__);
  tarn::Point3DRandom position;
  TARNOI_ASSERT(point->GetApproximation(position), "point->GetApproximation( pt )", sourceFile);
  shape.place(position.position());
}

void TarnOIOffsetPointSeparator::UpdateTextLable(int showNumber, int markT) {
  auto* point = tarnObjectAs<tarn::OffsetPoint>(tarn::OffsetPointCls);
  tarn::Point3DRandom position;
  if (point) point->GetApproximation(position);
  label.update(*this, GetTextLable(showNumber, markT, point), position.position(), "textTrans",
               sourceFile);
}

tarn::VString TarnOIOffsetPointSeparator::GetTextLable(int showNumber, int,
                                                       tarn::OffsetPoint* point) {
  const tarn::ObjectPoint* from = point ? point->GetObjectPoint() : nullptr;
  if (!showNumber || !from) return {};
  const tarn::VString prefix = tarn::gPref->GetPreference("OffsetPrefix", "Offset ", "3DViewer");
  return std::string_view(prefix.str() + std::to_string(from->GetNumber()));
}

void TarnOIOffsetPointSeparator::GetPointSet(SoCoordinate3** coords, SoPointSet** points) const {
  shape.get(coords, points);
}

SoNode* TarnOIOffsetPointSeparator::copy(SbBool copyConnections) const {
  return boundCopy(TarnOISeparator::copy(copyConnections));
}

void TarnOIOffsetPointSeparator::copyContents(const SoFieldContainer* from,
                                              SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOIOffsetPointSeparator*>(from);
  shape = other->shape.counterpart(*this, *other);
  label = other->label.counterpart(*this, *other);
}
