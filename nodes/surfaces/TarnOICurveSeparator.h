#pragma once

#include "nodes/framework/TarnOISeparator.h"

namespace tarn {
class NURBSCurve;
class Project;
}  // namespace tarn

/// Shows a NURBS curve as one polyline.
///
/// Children: curvePos (SoCoordinate3), curveSet (SoLineSet).
///
/// Preference, read where no project is given: "CurveTessTolPercent" (section "Curve", 0.03).
///
/// Use:
///   auto* node = new TarnOICurveSeparator;
///   layer->addChild(node);
///   node->SetCurve(&curve, &dictionary, &project);
class TARNOI_EXPORT TarnOICurveSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOICurveSeparator);

public:
  TarnOICurveSeparator();
  /// Copies what the node is bound to; no child becomes one of this node.
  TarnOICurveSeparator(const TarnOICurveSeparator& other);
  TarnOICurveSeparator& operator=(const TarnOICurveSeparator& other);

  /// Binds the node to `curve` under `dict` (see SetTarnObject; neither is owned) and draws it
  /// to the project's chord tolerance; without a project to the preference's percentage of an
  /// extent of 1, whatever the real extent is. Called again it keeps its children. A curve that
  /// gives no points changes nothing. Null only unbinds.
  void SetCurve(tarn::NURBSCurve* curve, tarn::VDictionary* dict, tarn::Project* project);

  /// A copy that is set to the same curve, drawn to the preference's tolerance: hosts rely on
  /// it, whatever the tolerance of this node was.
  SoNode* copy(SbBool copyConnections = FALSE) const override;

protected:
  ~TarnOICurveSeparator() override;
};
