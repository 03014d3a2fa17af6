#include "nodes/framework/SoGradientBackground.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/bundles/SoMaterialBundle.h>
#include <Inventor/elements/SoViewportRegionElement.h>
#include <Inventor/nodes/SoSubNode.h>
#include <Inventor/system/gl.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <optional>

TARNOI_NODE_SOURCE(SoGradientBackground, SoBackground);

void SoGradientBackground::initClass() { registration.init(&SoGradientBackground::atexit_cleanup); }

namespace {

// Lower left, lower right, upper right, upper left.
constexpr std::size_t cornerCount = 4;
using CornerColors = std::array<SbVec3f, cornerCount>;

// Of unit length; zero where there is none. In double, for the square of a float may be none.
SbVec2f unit(const SbVec2f& direction) {
  const double x = direction[0];
  const double y = direction[1];
  const double length = std::hypot(x, y);
  if (!(length > 0.0)) return SbVec2f(0.0F, 0.0F);
  return SbVec2f(static_cast<float>(x / length), static_cast<float>(y / length));
}

// How far each corner is along the gradient: 0 at its low end, 1 at its high end. None where
// the two ends are one.
std::optional<std::array<float, cornerCount>> parametersOf(const SbViewportRegion& viewport,
                                                           const SbVec2f& direction) {
  const SbVec2f o = viewport.getViewportOrigin();
  const SbVec2f s = viewport.getViewportSize();
  const std::array corners = {o, SbVec2f(o[0] + s[0], o[1]), o + s, SbVec2f(o[0], o[1] + s[1])};
  std::array<float, cornerCount> along{};
  for (std::size_t i = 0; i < cornerCount; ++i) along[i] = corners[i].dot(direction);
  // The fourth corner is left out of the range: its colour is extrapolated.
  const auto [low, high] = std::minmax({along[0], along[1], along[2]});
  const float range = high - low;
  if (!(range > 0.0F)) return std::nullopt;
  for (float& t : along) t = (t - low) / range;
  return along;
}

void sendGradient(const CornerColors& colors) {
  glPushAttrib(GL_ENABLE_BIT | GL_DEPTH_BUFFER_BIT | GL_PIXEL_MODE_BIT);
  // Of the textures the one-dimensional only: hosts rely on it.
  for (const GLenum capability :
       {GL_ALPHA_TEST, GL_BLEND, GL_DEPTH_TEST, GL_DITHER, GL_FOG, GL_LIGHTING, GL_LOGIC_OP,
        GL_POLYGON_SMOOTH, GL_POLYGON_STIPPLE, GL_STENCIL_TEST, GL_TEXTURE_1D}) {
    glDisable(capability);
  }
  glDepthMask(GL_FALSE);

  glMatrixMode(GL_MODELVIEW);
  glPushMatrix();
  glLoadIdentity();
  glMatrixMode(GL_PROJECTION);
  glPushMatrix();
  glLoadIdentity();
  glOrtho(0, 1, 0, 1, 0, 1);

  glBegin(GL_QUADS);
  glColor3fv(colors[0].getValue());
  glVertex2i(0, 0);
  glColor3fv(colors[1].getValue());
  glVertex2i(1, 0);
  glColor3fv(colors[2].getValue());
  glVertex2i(1, 1);
  glColor3fv(colors[3].getValue());
  glVertex2i(0, 1);
  glEnd();

  glDepthMask(GL_TRUE);
  glPopMatrix();
  glMatrixMode(GL_MODELVIEW);
  glPopMatrix();
  glPopAttrib();
}

}  // namespace

SoGradientBackground::SoGradientBackground() {
  TARNOI_NODE_CONSTRUCTOR();
  SO_NODE_ADD_FIELD(color0, (0.7F, 0.7F, 0.8F));
  SO_NODE_ADD_FIELD(color1, (0.0F, 0.1F, 0.3F));
  SO_NODE_ADD_FIELD(swapColors, (FALSE));
  SO_NODE_ADD_FIELD(direction, (0.0F, 1.0F));
}

SoGradientBackground::SoGradientBackground(const SoGradientBackground& other)
    : SoGradientBackground() {
  *this = other;
}

SoGradientBackground& SoGradientBackground::operator=(const SoGradientBackground& other) {
  color0 = other.color0;
  color1 = other.color1;
  swapColors = other.swapColors;
  direction = other.direction;
  return *this;
}

SoGradientBackground::~SoGradientBackground() = default;

void SoGradientBackground::GLRender(SoGLRenderAction* action) {
  const auto parameters =
      parametersOf(SoViewportRegionElement::get(action->getState()), unit(direction.getValue()));
  if (!parameters) return;

  const bool swapped = swapColors.getValue();
  const SbVec3f low = swapped ? color1.getValue() : color0.getValue();
  const SbVec3f high = swapped ? color0.getValue() : color1.getValue();
  CornerColors colors;
  for (std::size_t i = 0; i < cornerCount; ++i) colors[i] = low + (high - low) * (*parameters)[i];

  SoMaterialBundle material(action);
  material.sendFirst();
  sendGradient(colors);
}

SbBool SoGradientBackground::affectsState() const { return FALSE; }
