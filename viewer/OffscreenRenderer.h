#pragma once

#include <Inventor/SbColor.h>
#include <Inventor/SbViewportRegion.h>

#include "viewer/Framebuffer.h"
#include "viewer/HeadlessContext.h"
#include "viewer/Picture.h"

#include <memory>

class SoGLRenderAction;
class SoNode;

/// Draws scenes into pictures without a window. It has an OpenGL context of its own and
/// keeps Coin's render caches between frames, as a window does. SoDB must be initialised,
/// after HeadlessContext::prepareEnvironment.
class OffscreenRenderer {
public:
  /// Throws std::runtime_error when there is no OpenGL to draw with, or the size is not
  /// between 1 and CommandLine::Size::mostPixels or more than it can draw.
  OffscreenRenderer(int width, int height);
  ~OffscreenRenderer();

  void setBackgroundColor(const SbColor& color) { background = color; }
  const SbViewportRegion& getViewportRegion() const { return viewport; }
  SoGLRenderAction& action() { return *renderAction; }

  /// Draws the scene, which holds its own camera, and waits until it is drawn.
  void draw(SoNode* scene);

  /// Draws the scene and reads the picture back.
  Picture render(SoNode* scene);

  /// Draws the scene on a transparent background. Drawn over black and over white, a pixel
  /// differs by what shows through it, whatever was blended in between.
  Picture renderTransparent(SoNode* scene);

private:
  HeadlessContext context;
  SbViewportRegion viewport;
  SbColor background{0.0F, 0.0F, 0.0F};
  std::unique_ptr<Framebuffer> framebuffer;
  std::unique_ptr<SoGLRenderAction> renderAction;
};
