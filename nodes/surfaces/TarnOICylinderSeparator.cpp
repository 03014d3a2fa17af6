#include "nodes/surfaces/TarnOICylinderSeparator.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>

#include "host/model/Cylinder.h"
#include "host/model/NURBSSurfaceCylinder.h"
#include "nodes/framework/LineSegment.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/lines/ThreeDExtension.h"

TARNOI_NODE_SOURCE(TarnOICylinderSeparator, TarnOINurbsSurfaceSeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOICylinderSeparator);

namespace {

constexpr const char* sourceFile = "TarnOICylinderSeparator";

LineSegment::Ends endsOf(const tarn::Cylinder& cylinder) {
  LineSegment::Ends ends;
  cylinder.GetEndPoints(ends.data());
  return ends;
}

}  // namespace

TarnOICylinderSeparator::TarnOICylinderSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOICylinderSeparator::TarnOICylinderSeparator(const TarnOICylinderSeparator& other)
    : TarnOICylinderSeparator() {
  *this = other;
}

TarnOICylinderSeparator& TarnOICylinderSeparator::operator=(const TarnOICylinderSeparator& other) =
    default;

TarnOICylinderSeparator::~TarnOICylinderSeparator() = default;

void TarnOICylinderSeparator::SetNurbsSurface(tarn::Surface* surface, tarn::VDictionary* dict,
                                              SoShapeHints* singleSidedHints,
                                              SoShapeHints* doubleSidedHints,
                                              TarnOITexture** textures,
                                              tarn::VOrdCollect** triangleSets,
                                              tarn::VDictionary* uvMatrices, int asCentreLine) {
  SetTarnObject(surface, dict);
  if (!surface) return;
  const OneNotification once(*this);
  if (centreLineMode != asCentreLine) {
    removeAllChildren();
    centreLineMode = asCentreLine;
    cylinderExtensionPos.reset();
    cylinderExtensionSet.reset();
  }
  if (centreLineMode) {
    AsCenterLine();
  } else {
    TarnOINurbsSurfaceSeparator::SetNurbsSurface(surface, dict, singleSidedHints, doubleSidedHints,
                                                 textures, triangleSets, uvMatrices);
  }
  if (cylinder()) AddExtension(cylinder());
}

void TarnOICylinderSeparator::AsCenterLine() {
  SoCoordinate3* coordinates = LineSegment::findOrAppend(*this, sourceFile, 169);
  if (coordinates && cylinder()) LineSegment::place(*coordinates, endsOf(*cylinder()));
}

void TarnOICylinderSeparator::AddExtension(tarn::Cylinder* extended) {
  const ThreeDExtension extension{cylinderExtensionPos, cylinderExtensionSet};
  if (!ThreeDExtension::isShown(extended->GetThreeDExtenstionFactor())) {
    // Neither is a child of this node, so that the dashed line stays.
    extension.removeFrom(*this);
    return;
  }
  if (!cylinderExtensionPos) {
    auto separator = makeNode<SoSeparator>();
    extension.appendTo(*separator);
    addChild(separator.get());
  }
  TARNOI_ASSERT_AT(cylinderExtensionPos, "cylinderExtensionPos", sourceFile, 366);
  TARNOI_ASSERT_AT(cylinderExtensionSet, "cylinderExtensionSet", sourceFile, 367);
  // Ends and factor are those of the bound cylinder, whichever was handed over.
  const tarn::Cylinder* bound = cylinder();
  if (bound) extension.place(endsOf(*bound), bound->GetThreeDExtenstionFactor());
}

void TarnOICylinderSeparator::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  TarnOINurbsSurfaceSeparator::copyContents(from, copyConnections);
  centreLineMode = static_cast<const TarnOICylinderSeparator*>(from)->centreLineMode;
}

tarn::Cylinder* TarnOICylinderSeparator::cylinder() const {
  auto* surface = tarnObjectAs<tarn::NURBSSurfaceCylinder>(tarn::NURBSSurfaceCylinderCls);
  return surface ? surface->GetCylinder() : nullptr;
}
