#pragma once

#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "bench/dense/View.h"
#include "nodes/framework/NodeRef.h"
#include "viewer/OffscreenRenderer.h"

namespace bench {

/// A node of ours under a camera and a light from the front, as a viewer draws it. SoDB must be
/// initialised.
class DenseScene {
public:
  /// Nothing but the camera and the light.
  DenseScene();
  void add(SoNode* node) { root->addChild(node); }

  /// Draws one frame and waits until it is drawn.
  void draw(const View& view);
  Picture render(const View& view);

private:
  void place(const View& view);

  OffscreenRenderer renderer{View::width, View::height};
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
  SoPerspectiveCamera* camera = new SoPerspectiveCamera;
};

}  // namespace bench
