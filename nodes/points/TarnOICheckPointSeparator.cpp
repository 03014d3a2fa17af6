#include "nodes/points/TarnOICheckPointSeparator.h"

#include "host/model/CheckPoint.h"
#include "nodes/framework/OneNotification.h"

TARNOI_NODE_SOURCE(TarnOICheckPointSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOICheckPointSeparator);

TarnOICheckPointSeparator::TarnOICheckPointSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOICheckPointSeparator::TarnOICheckPointSeparator(const TarnOICheckPointSeparator& other)
    : TarnOICheckPointSeparator() {
  *this = other;
}

TarnOICheckPointSeparator& TarnOICheckPointSeparator::operator=(
    const TarnOICheckPointSeparator& other) = default;

TarnOICheckPointSeparator::~TarnOICheckPointSeparator() = default;

void TarnOICheckPointSeparator::SetCheckPoint(tarn::CheckPoint* point, tarn::VDictionary* dict) {
  SetTarnObject(point, dict);
  if (!point) return;
  const OneNotification once(*this);
  shape.findOrBuild(*this, "TarnOICheckPointSeparator", __LINE__);
  shape.place(point->GetPosition());
}

SoNode* TarnOICheckPointSeparator::copy(SbBool copyConnections) const {
  return boundCopy(TarnOISeparator::copy(copyConnections));
}

void TarnOICheckPointSeparator::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOICheckPointSeparator*>(from);
  shape = other->shape.counterpart(*this, *other);
}
