#pragma once

#include <Inventor/fields/SoSFBool.h>
#include <Inventor/fields/SoSFColor.h>
#include <Inventor/fields/SoSFVec2f.h>

#include "nodes/framework/SoBackground.h"

/// Fills the viewport with a linear gradient of two colours. It stands ahead of everything
/// that is drawn in a scene, for it draws over what was there before; the depth buffer stays
/// as it is.
///
///     auto* background = new SoGradientBackground;
///     background->direction.setValue(1.0F, 0.0F);  // from left to right
///     root->insertChild(background, 0);
class TARNOI_EXPORT SoGradientBackground : public SoBackground {
  TARNOI_NODE_HEADER(SoGradientBackground);

public:
  SoGradientBackground();
  /// Copies the values of the fields, as assignment does.
  SoGradientBackground(const SoGradientBackground& other);
  SoGradientBackground& operator=(const SoGradientBackground& other);

  SoSFColor color0;     ///< at the gradient's low end (0.7, 0.7, 0.8)
  SoSFColor color1;     ///< at its high end (0.0, 0.1, 0.3)
  SoSFBool swapColors;  ///< exchanges the two (FALSE)
  SoSFVec2f direction;  ///< in which it runs, in normalised viewport coordinates: x to the
                        ///< right, y up; of any length (0, 1)

  /// Draws the gradient. Its low and high ends are the least and the greatest of three corners
  /// of the viewport along the direction: lower left, lower right and upper right. The upper
  /// left may lie beyond them, its colour is then extrapolated: hosts rely on it. Nothing is
  /// drawn when the three lie on one line across the direction, as with a direction of no
  /// length or a viewport of no size. OpenGL's matrix mode is the model view's afterwards; a
  /// texture in two dimensions that is enabled is drawn onto the gradient.
  void GLRender(SoGLRenderAction* action) override;

  /// FALSE: nothing that follows depends on it. Coin then leaves it out where it draws a path
  /// to something else, as it does with delayed transparent shapes.
  SbBool affectsState() const override;

protected:
  ~SoGradientBackground() override;
};
