#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"

class SoCoordinate3;
class SoDrawStyle;

namespace tarn {
class Project;
}

/// Shows the ground as a translucent horizontal rectangle: the project's extents in its own
/// coordinate system, with a margin, at the height of its ground. It is bound to no object.
///
/// Children:
///   SoTransparencyType  from the preferences
///   drawStyle           FILLED, or INVISIBLE while it is hidden
///   SoMaterial          colour and transparency from the preferences
///   coords              the four corners, in the viewer frame; all zero until they are placed
///   SoIndexedFaceSet    two triangles, which face down: ahead of the node a host that lights
///                       both sides puts shape hints
///
/// Use:
///   auto* ground = new TarnOIGroundPlaneSeparator;
///   root->addChild(ground);
///   ground->SetRoot(root, &project);
///   ground->UpdatePosition();  // and again whenever the project has changed
///
/// Preferences: "GroundPlaneTransparencyType" (5, DELAYED_BLEND), "GroundPlaneColor"
/// (000200000), "GroundPlaneTransparency" (0.5), all in section "Colors", read when the children
/// are built; "GroundPlaneMultiplier" (section "GroundPlane", 2.0), read when it is placed.
class TARNOI_EXPORT TarnOIGroundPlaneSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIGroundPlaneSeparator);

public:
  TarnOIGroundPlaneSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own.
  TarnOIGroundPlaneSeparator(const TarnOIGroundPlaneSeparator& other);
  TarnOIGroundPlaneSeparator& operator=(const TarnOIGroundPlaneSeparator& other);

  /// Remembers both and builds nothing. Neither is owned; the project must outlive the node,
  /// the root is only asked whether there is one.
  void SetRoot(SoNode* newRoot, tarn::Project* newProject);

  /// Builds the children where there are none, and places the rectangle under the project.
  /// Nothing happens without a root; without a project, or in one that has nothing with a
  /// position, the rectangle stays where it is.
  ///
  /// The margin is the rectangle's size divided by the multiplier on each side; on the greater
  /// side it is taken from the size that has grown already, so that it is larger there: hosts
  /// rely on it. With the multiplier of 2, extents of 0 to 10 become -5 to 17.5. The project's
  /// transform converts target from source afterwards, whatever it did before.
  void UpdatePosition();

  /// Hides (non-zero) the rectangle, or shows it. Showing builds the children where there are
  /// none, hiding then does nothing.
  void Hide(int hide);

  /// Nothing while there are no children or the rectangle is hidden.
  void getBoundingBox(SoGetBoundingBoxAction* action) override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIGroundPlaneSeparator() override;

  /// Appends the children. Reports "!coords" when it has done so before.
  void CreateChildren();

  NodeRef<SoCoordinate3> coords;
  NodeRef<SoDrawStyle> drawStyle;
  SoNode* root = nullptr;
  tarn::Project* project = nullptr;
};
