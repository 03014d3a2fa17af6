#include "nodes/lines/TarnOILineSeparator.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>

#include "host/model/Line.h"
#include "host/model/Point3DRandom.h"
#include "host/model/ThreeDPoint.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/LineSegment.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/lines/ThreeDExtension.h"

TARNOI_NODE_SOURCE(TarnOILineSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOILineSeparator);

namespace {

constexpr const char* sourceFile = "TarnOILineSeparator";

LineSegment::Ends endsOf(const tarn::Line& line) {
  LineSegment::Ends ends;
  tarn::Point3DRandom position;
  for (int i = 0; i < 2; ++i) {
    const tarn::ThreeDPoint* point = line.GetThreeDPoint(i);
    if (point && point->GetApproximation(position)) {
      ends[static_cast<std::size_t>(i)] = position.position();
    }
  }
  return ends;
}

}  // namespace

TarnOILineSeparator::TarnOILineSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOILineSeparator::TarnOILineSeparator(const TarnOILineSeparator& other) : TarnOILineSeparator() {
  *this = other;
}

TarnOILineSeparator& TarnOILineSeparator::operator=(const TarnOILineSeparator& other) = default;

TarnOILineSeparator::~TarnOILineSeparator() = default;

void TarnOILineSeparator::SetLine(tarn::Line* line, tarn::VDictionary* dict) {
  SetTarnObject(line, dict);
  if (!line) return;
  const OneNotification once(*this);
  if (getNumChildren() == 0) {
    // Of children that the host dropped none is taken up again.
    lineExtensionPos.reset();
    lineExtensionSet.reset();
  }
  SoCoordinate3* coordinates = LineSegment::findOrAppend(*this, sourceFile, __LINE__);
  if (coordinates) LineSegment::place(*coordinates, endsOf(*line));
  AddExtension(line);
}

void TarnOILineSeparator::AddExtension(tarn::Line* line) {
  const double factor = line->GetThreeDExtenstionFactor();
  const ThreeDExtension extension{lineExtensionPos, lineExtensionSet};
  if (!ThreeDExtension::isShown(factor)) {
    extension.removeFrom(*this);
    return;
  }
  if (!lineExtensionPos) extension.appendTo(*this);
  TARNOI_ASSERT(lineExtensionPos, "lineExtensionPos", sourceFile);
  TARNOI_ASSERT(lineExtensionSet, "lineExtensionSet", sourceFile);
  extension.place(endsOf(*line), factor);
}

void TarnOILineSeparator::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  const auto* other = static_cast<const TarnOILineSeparator*>(from);
  lineExtensionPos = ChildNodes::counterpart(*this, *other, other->lineExtensionPos);
  lineExtensionSet = ChildNodes::counterpart(*this, *other, other->lineExtensionSet);
}
