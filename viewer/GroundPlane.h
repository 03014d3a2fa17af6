#pragma once

#include "nodes/framework/NodeRef.h"

class SoNode;
class SoSeparator;
class TarnOIGroundPlaneSeparator;
class ViewFraming;

namespace tarn {
class Project;
}

/// A translucent plane under the object. Its height is that of the object's lowest point,
/// outliers left aside, and a hundredth of the object's diagonal below, so that a flat object
/// does not lie in it; the project is told that height. Sets the preference for its colour.
class GroundPlane {
public:
  /// The scene's root and the project must outlive it.
  GroundPlane(SoNode& root, tarn::Project& project, const ViewFraming& framing);
  ~GroundPlane();

  SoSeparator* root() const { return litFromBothSides.get(); }
  void show(bool on);
  bool isShown() const { return shown; }

  /// Has the depth range hold the plane while it is shown.
  void includeIn(ViewFraming& all) const;

private:
  NodeRef<SoSeparator> litFromBothSides;
  TarnOIGroundPlaneSeparator* plane;
  bool shown = false;
};
