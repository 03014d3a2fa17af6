#include "viewer/SceneBackground.h"

#include <Inventor/nodes/SoGroup.h>

#include "nodes/framework/SoGradientBackground.h"

// The gradient's own colours reach from near white to near black; points of photographs are
// both. These keep points, marks and names apart from what is behind them.
SceneBackground::SceneBackground(SoGroup& scene, Kind kind)
    : scene(scene), gradient(makeNode<SoGradientBackground>()) {
  gradient->color0 = SbColor(0.48F, 0.51F, 0.55F);
  gradient->color1 = SbColor(0.22F, 0.26F, 0.33F);
  set(kind);
}

SceneBackground::~SceneBackground() = default;

void SceneBackground::set(Kind kind) {
  if (shown == Kind::eGradient) scene.removeChild(gradient.get());
  shown = kind;
  if (shown == Kind::eGradient) scene.insertChild(gradient.get(), 0);
}

SbColor SceneBackground::color() const {
  return shown == Kind::eNone ? SbColor(0.0F, 0.0F, 0.0F) : SbColor(0.33F, 0.36F, 0.40F);
}
