#pragma once

#include <Inventor/SbColor.h>

#include "nodes/framework/NodeRef.h"
#include "viewer/CommandLine.h"

class SoGradientBackground;
class SoGroup;

/// What is behind the scene: a gradient that the scene draws itself, or the one colour that
/// a picture or a window is cleared with.
class SceneBackground {
public:
  using Kind = CommandLine::Background;

  /// Stands as the first child of `scene`, which must outlive it, while it is a gradient.
  SceneBackground(SoGroup& scene, Kind kind);
  ~SceneBackground();

  void set(Kind kind);
  Kind kind() const { return shown; }

  /// What to clear with: black for none.
  SbColor color() const;

private:
  SoGroup& scene;
  NodeRef<SoGradientBackground> gradient;
  Kind shown = Kind::eNone;
};
