#include "viewer/SceneBackground.h"

#include <Inventor/nodes/SoGroup.h>

#include "nodes/framework/SoGradientBackground.h"

// The gradient's own colours reach from near white to near black; points of photographs are
// both. These keep points, marks and names apart from what is behind them. It is lighter above,
// where the cameras with their dark bodies mostly are.
SceneBackground::SceneBackground(SoGroup& scene, Kind kind)
    : scene(scene), gradient(makeNode<SoGradientBackground>()) {
  gradient->color0 = SbColor(0.23F, 0.25F, 0.29F);
  gradient->color1 = SbColor(0.43F, 0.47F, 0.53F);
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
