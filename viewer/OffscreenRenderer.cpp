#include "viewer/OffscreenRenderer.h"

#include <GL/gl.h>
#include <Inventor/C/errors/debugerror.h>
#include <Inventor/C/glue/gl.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/elements/SoGLCacheContextElement.h>
#include <Inventor/misc/SoContextHandler.h>

#include "viewer/CommandLine.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

namespace {

/// Lets Coin look at the current context. It asks GLX about it and warns that there is
/// none, which is so by design here; all other messages pass.
class ContextIntroduction {
public:
  explicit ContextIntroduction(std::uint32_t contextId)
      : earlier(cc_debugerror_get_handler_callback()),
        earlierData(cc_debugerror_get_handler_data()) {
    cc_debugerror_set_handler_callback(&ContextIntroduction::pass, this);
    cc_glglue_instance(static_cast<int>(contextId));
    cc_debugerror_set_handler_callback(earlier, earlierData);
  }

private:
  static void pass(const cc_debugerror* error, void* data) {
    const char* text =
        cc_string_get_text(cc_error_get_debug_string(reinterpret_cast<const cc_error*>(error)));
    if (std::string_view(text).find("glxglue_isdirect") != std::string_view::npos) return;
    const auto* self = static_cast<ContextIntroduction*>(data);
    if (self->earlier) self->earlier(error, self->earlierData);
  }

  cc_debugerror_cb* earlier;
  void* earlierData;
};

}  // namespace

OffscreenRenderer::OffscreenRenderer(int width, int height) {
  constexpr int most = CommandLine::Size::mostPixels;
  if (width > most || height > most) {
    throw std::runtime_error("a picture of " + std::to_string(width) + " x " +
                             std::to_string(height) + " pixels cannot be drawn here");
  }
  framebuffer = std::make_unique<Framebuffer>(width, height);
  viewport = SbViewportRegion(static_cast<short>(width), static_cast<short>(height));
  renderAction = std::make_unique<SoGLRenderAction>(viewport);
  const std::uint32_t cacheContext = SoGLCacheContextElement::getUniqueCacheContext();
  renderAction->setCacheContext(cacheContext);
  const ContextIntroduction introduction(cacheContext);
  renderAction->setTransparencyType(SoGLRenderAction::SORTED_OBJECT_BLEND);
}

OffscreenRenderer::~OffscreenRenderer() {
  context.makeCurrent();
  // Coin gives up what it keeps for this context: textures and display lists.
  SoContextHandler::destructingContext(renderAction->getCacheContext());
}

void OffscreenRenderer::draw(SoNode* scene) {
  context.makeCurrent();
  framebuffer->bind();
  glEnable(GL_DEPTH_TEST);
  glClearColor(background[0], background[1], background[2], 1.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
  renderAction->apply(scene);
  glFinish();
}

Picture OffscreenRenderer::render(SoNode* scene) {
  draw(scene);
  return framebuffer->read();
}

Picture OffscreenRenderer::renderTransparent(SoNode* scene) {
  const SbColor asked = background;
  background = SbColor(1.0F, 1.0F, 1.0F);
  const Picture onWhite = render(scene);
  background = SbColor(0.0F, 0.0F, 0.0F);
  Picture picture = render(scene);
  background = asked;
  picture.alpha.resize(picture.bytes.size() / 3);
  for (std::size_t i = 0; i < picture.alpha.size(); ++i) {
    std::uint8_t* pixel = &picture.bytes[3 * i];
    int through = 0;
    for (std::size_t c = 0; c < 3; ++c) through += onWhite.bytes[3 * i + c] - pixel[c];
    const int alpha = std::clamp(255 - (through + 1) / 3, 0, 255);
    picture.alpha[i] = static_cast<std::uint8_t>(alpha);
    // What was drawn over black is the colour times alpha.
    for (std::size_t c = 0; c < 3 && alpha > 0; ++c) {
      pixel[c] = static_cast<std::uint8_t>(std::min(255, (pixel[c] * 255 + alpha / 2) / alpha));
    }
  }
  return picture;
}
