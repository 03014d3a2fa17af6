#include "nodes/points/TarnOIAffineObjectSeparator.h"

#include "host/model/AffineObjectNPoint.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"

TARNOI_NODE_SOURCE(TarnOIAffineObjectSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIAffineObjectSeparator);

namespace {

constexpr const char* sourceFile = "TarnOIAffineObjectSeparator";

tarn::Point3DDouble positionOf(const tarn::AffineObject& object) {
  if (!TARNOI_ASSERT(object.isA(tarn::AffineObjectNPointCls), "point->isA( AffineObjectNPointCls )",
                     sourceFile)) {
    return {};
  }
  return static_cast<const tarn::AffineObjectNPoint&>(object).GetPosition();
}

}  // namespace

TarnOIAffineObjectSeparator::TarnOIAffineObjectSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIAffineObjectSeparator::TarnOIAffineObjectSeparator(const TarnOIAffineObjectSeparator& other)
    : TarnOIAffineObjectSeparator() {
  *this = other;
}

TarnOIAffineObjectSeparator& TarnOIAffineObjectSeparator::operator=(
    const TarnOIAffineObjectSeparator& other) = default;

TarnOIAffineObjectSeparator::~TarnOIAffineObjectSeparator() = default;

void TarnOIAffineObjectSeparator::SetSphereSize(float radius) { sphere.sphereSize = radius; }

void TarnOIAffineObjectSeparator::SetAffineObject(tarn::AffineObject* object,
                                                  tarn::VDictionary* dict) {
  SetTarnObject(object, dict);
  if (!object) return;
  const OneNotification once(*this);
  if (sphere.useSphere()) {
    AddAsSphere(object);
  } else {
    AddAsPoint(object);
  }
}

SoNode* TarnOIAffineObjectSeparator::copy(SbBool copyConnections) const {
  return boundCopy(TarnOISeparator::copy(copyConnections));
}

void TarnOIAffineObjectSeparator::copyContents(const SoFieldContainer* from,
                                               SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOIAffineObjectSeparator*>(from);
  sphere = other->sphere;
  shape = other->shape.counterpart(*this, *other);
}

void TarnOIAffineObjectSeparator::AddAsPoint(tarn::AffineObject* object) {
  shape.findOrBuild(*this, sourceFile, __LINE__);
  shape.place(positionOf(*object));
}

void TarnOIAffineObjectSeparator::AddAsSphere(tarn::AffineObject* object) {
  shape = PointShape();
  sphere.rebuild(*this, positionOf(*object));
}
