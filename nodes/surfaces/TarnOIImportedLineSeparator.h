#pragma once

#include "nodes/framework/TarnOISeparator.h"

namespace tarn {
class ImportedLine;
}  // namespace tarn

/// Shows a line that was brought into the project from outside, as a segment between its ends.
///
/// Children: SoCoordinate3, SoLineSet.
class TARNOI_EXPORT TarnOIImportedLineSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIImportedLineSeparator);

public:
  TarnOIImportedLineSeparator();
  /// Copies what the node is bound to; no child becomes one of this node.
  TarnOIImportedLineSeparator(const TarnOIImportedLineSeparator& other);
  TarnOIImportedLineSeparator& operator=(const TarnOIImportedLineSeparator& other);

  /// Binds the node to `line` under `dict` (see SetTarnObject; neither is owned) and builds the
  /// children or, called again, moves their ends. An end that is an inactive imported point
  /// stands at its stored position, one that is missing or has no position at the model's
  /// origin. Null only unbinds.
  void SetImportedLine(tarn::ImportedLine* line, tarn::VDictionary* dict);

  /// A copy that is set to the same line: its ends are those of the model at that time.
  SoNode* copy(SbBool copyConnections = FALSE) const override;

protected:
  ~TarnOIImportedLineSeparator() override;
};
