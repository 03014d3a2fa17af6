#include "nodes/lines/TarnOIEdgeSeparator.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>

#include "host/model/Edge.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/LineSegment.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/lines/ThreeDExtension.h"

TARNOI_NODE_SOURCE(TarnOIEdgeSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIEdgeSeparator);

namespace {

constexpr const char* sourceFile = "TarnOIEdgeSeparator";

// Whether the edge says that it has positions is not asked: hosts rely on it.
LineSegment::Ends endsOf(const tarn::Edge& edge) {
  LineSegment::Ends ends;
  edge.GetPointsForm(ends[0], ends[1]);
  return ends;
}

}  // namespace

TarnOIEdgeSeparator::TarnOIEdgeSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIEdgeSeparator::TarnOIEdgeSeparator(const TarnOIEdgeSeparator& other) : TarnOIEdgeSeparator() {
  *this = other;
}

TarnOIEdgeSeparator& TarnOIEdgeSeparator::operator=(const TarnOIEdgeSeparator& other) = default;

TarnOIEdgeSeparator::~TarnOIEdgeSeparator() = default;

void TarnOIEdgeSeparator::SetEdge(tarn::Edge* edge, tarn::VDictionary* dict) {
  SetTarnObject(edge, dict);
  if (!edge) return;
  const OneNotification once(*this);
  if (getNumChildren() == 0) {
    // Of children that the host dropped none is taken up again.
    edgeExtensionPos.reset();
    edgeExtensionSet.reset();
  }
  SoCoordinate3* coordinates = LineSegment::findOrAppend(*this, sourceFile, __LINE__);
  if (coordinates) LineSegment::place(*coordinates, endsOf(*edge));
  AddExtension(edge);
}

void TarnOIEdgeSeparator::AddExtension(tarn::Edge* edge) {
  const double factor = edge->GetThreeDExtenstionFactor();
  const ThreeDExtension extension{edgeExtensionPos, edgeExtensionSet};
  if (!ThreeDExtension::isShown(factor)) {
    extension.removeFrom(*this);
    return;
  }
  if (!edgeExtensionPos) extension.appendTo(*this);
  TARNOI_ASSERT(edgeExtensionPos, "edgeExtensionPos", sourceFile);
  TARNOI_ASSERT(edgeExtensionSet, "edgeExtensionSet", sourceFile);
  extension.place(endsOf(*edge), factor);
}

void TarnOIEdgeSeparator::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOIEdgeSeparator*>(from);
  edgeExtensionPos = ChildNodes::counterpart(*this, *other, other->edgeExtensionPos);
  edgeExtensionSet = ChildNodes::counterpart(*this, *other, other->edgeExtensionSet);
}
