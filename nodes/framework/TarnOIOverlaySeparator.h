#pragma once

#include "nodes/framework/TarnOISeparator.h"

/// Shows what is fixed to the screen: it is drawn through a camera of its own, in a frame that
/// does not move with the scene's.
///
///     auto* overlay = new TarnOIOverlaySeparator(0.0F, 0.0F, 1.0F);
///     overlay->addChild(scale);  // within -1..1 in x and y: the whole viewport
///     root->addChild(overlay);   // after the scene
///
/// Children: SoOrthographicCamera, then what is added.
class TARNOI_EXPORT TarnOIOverlaySeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIOverlaySeparator);

public:
  /// An unbound overlay with an orthographic camera at that place as its only child, which
  /// fits its view into any viewport, stretching it (LEAVE_ALONE).
  TarnOIOverlaySeparator(float x, float y, float z);
  /// Copies what the overlay is bound to, as assignment does; no child becomes one of this
  /// node. Coin's `copy` makes a node with children of its own.
  TarnOIOverlaySeparator(const TarnOIOverlaySeparator& other);
  TarnOIOverlaySeparator& operator=(const TarnOIOverlaySeparator& other);

protected:
  /// No children: for classes that see to the camera themselves.
  TarnOIOverlaySeparator();
  ~TarnOIOverlaySeparator() override;
};
