#include "nodes/surfaces/TarnOIImportedLineSeparator.h"

#include "host/model/ImportedLine.h"
#include "nodes/framework/LineSegment.h"
#include "nodes/surfaces/PositionOrStored.h"

TARNOI_NODE_SOURCE(TarnOIImportedLineSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIImportedLineSeparator);

TarnOIImportedLineSeparator::TarnOIImportedLineSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIImportedLineSeparator::TarnOIImportedLineSeparator(const TarnOIImportedLineSeparator& other)
    : TarnOIImportedLineSeparator() {
  *this = other;
}

TarnOIImportedLineSeparator& TarnOIImportedLineSeparator::operator=(
    const TarnOIImportedLineSeparator& other) = default;

TarnOIImportedLineSeparator::~TarnOIImportedLineSeparator() = default;

void TarnOIImportedLineSeparator::SetImportedLine(tarn::ImportedLine* line,
                                                  tarn::VDictionary* dict) {
  SetTarnObject(line, dict);
  if (!line) return;
  SoCoordinate3* coordinates = LineSegment::findOrAppend(*this, "TarnOIImportedLineSeparator", 111);
  if (!coordinates) return;
  LineSegment::Ends ends;
  for (int i = 0; i < 2; ++i) {
    positionOrStored(line->GetThreeDPoint(i), ends[static_cast<std::size_t>(i)]);
  }
  LineSegment::place(*coordinates, ends);
}

SoNode* TarnOIImportedLineSeparator::copy(SbBool copyConnections) const {
  auto* copied = static_cast<TarnOIImportedLineSeparator*>(TarnOISeparator::copy(copyConnections));
  copied->SetImportedLine(static_cast<tarn::ImportedLine*>(tarnObject), searchDict);
  return copied;
}
