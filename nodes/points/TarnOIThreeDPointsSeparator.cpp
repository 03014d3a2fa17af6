#include "nodes/points/TarnOIThreeDPointsSeparator.h"

#include "host/model/ThreeDPointFromTarnObject.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"

TARNOI_NODE_SOURCE(TarnOIThreeDPointsSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIThreeDPointsSeparator);

namespace {
constexpr const char* sourceFile = "TarnOIThreeDPointsSeparator";
}

TarnOIThreeDPointsSeparator::TarnOIThreeDPointsSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIThreeDPointsSeparator::TarnOIThreeDPointsSeparator(const TarnOIThreeDPointsSeparator& other)
    : TarnOIThreeDPointsSeparator() {
  *this = other;
}

TarnOIThreeDPointsSeparator& TarnOIThreeDPointsSeparator::operator=(
    const TarnOIThreeDPointsSeparator& other) = default;

TarnOIThreeDPointsSeparator::~TarnOIThreeDPointsSeparator() = default;

void TarnOIThreeDPointsSeparator::SetPoint(tarn::ThreeDPointFromTarnObject* point,
                                           tarn::VDictionary* dict) {
  SetTarnObject(point, dict);
  if (!point) return;
  const OneNotification once(*this);
  shape.findOrBuild(*this, sourceFile, __LINE__);
  tarn::Point3DRandom position;
  TARNOI_ASSERT(point->GetApproximation(position), "point->GetApproximation( pt )", sourceFile);
  shape.place(position.position());
}

void TarnOIThreeDPointsSeparator::GetPointSet(SoCoordinate3** coords, SoPointSet** points) const {
  shape.get(coords, points);
}

SoNode* TarnOIThreeDPointsSeparator::copy(SbBool copyConnections) const {
  return boundCopy(TarnOISeparator::copy(copyConnections));
}

void TarnOIThreeDPointsSeparator::copyContents(const SoFieldContainer* from,
                                               SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOIThreeDPointsSeparator*>(from);
  shape = other->shape.counterpart(*this, *other);
}
