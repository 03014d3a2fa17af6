#include "viewer/OffscreenRenderer.h"

#include <algorithm>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <string_view>

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>
#include <Inventor/C/errors/debugerror.h>
#include <Inventor/C/glue/gl.h>
#include <Inventor/actions/SoGLRenderAction.h>
#include <Inventor/elements/SoGLCacheContextElement.h>
#include <Inventor/misc/SoContextHandler.h>

#include "viewer/CommandLine.h"

struct OffscreenRenderer::Framebuffer {
  GLuint frame = 0;
  GLuint color = 0;
  GLuint depth = 0;

  Framebuffer(int width, int height) {
    glGenFramebuffers(1, &frame);
    glBindFramebuffer(GL_FRAMEBUFFER, frame);
    glGenRenderbuffers(1, &color);
    glBindRenderbuffer(GL_RENDERBUFFER, color);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_RGBA8, width, height);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_COLOR_ATTACHMENT0, GL_RENDERBUFFER, color);
    glGenRenderbuffers(1, &depth);
    glBindRenderbuffer(GL_RENDERBUFFER, depth);
    glRenderbufferStorage(GL_RENDERBUFFER, GL_DEPTH24_STENCIL8, width, height);
    glFramebufferRenderbuffer(GL_FRAMEBUFFER, GL_DEPTH_STENCIL_ATTACHMENT, GL_RENDERBUFFER, depth);
    if (glCheckFramebufferStatus(GL_FRAMEBUFFER) != GL_FRAMEBUFFER_COMPLETE) {
      release();
      throw std::runtime_error("a picture of " + std::to_string(width) + " x " +
                               std::to_string(height) + " pixels cannot be drawn here");
    }
  }
  ~Framebuffer() { release(); }
  Framebuffer(const Framebuffer&) = delete;
  Framebuffer& operator=(const Framebuffer&) = delete;

private:
  void release() {
    glDeleteRenderbuffers(1, &color);
    glDeleteRenderbuffers(1, &depth);
    glDeleteFramebuffers(1, &frame);
  }
};

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
  GLint allowed = most;
  glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &allowed);
  if (width < 1 || height < 1 || width > std::min(most, allowed) ||
      height > std::min(most, allowed)) {
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
  glBindFramebuffer(GL_FRAMEBUFFER, framebuffer->frame);
  const SbVec2s size = viewport.getWindowSize();
  glViewport(0, 0, size[0], size[1]);
  glEnable(GL_DEPTH_TEST);
  glClearColor(background[0], background[1], background[2], 1.0F);
  glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT | GL_STENCIL_BUFFER_BIT);
  renderAction->apply(scene);
  glFinish();
}

Picture OffscreenRenderer::render(SoNode* scene) {
  draw(scene);
  const SbVec2s size = viewport.getWindowSize();
  Picture picture(size[0], size[1]);
  const std::size_t rowBytes = static_cast<std::size_t>(picture.width) * 3;
  std::vector<std::uint8_t> fromBottom(picture.bytes.size());
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, picture.width, picture.height, GL_RGB, GL_UNSIGNED_BYTE, fromBottom.data());
  for (std::size_t y = 0; y < static_cast<std::size_t>(picture.height); ++y) {
    const auto row =
        fromBottom.begin() +
        static_cast<std::ptrdiff_t>((static_cast<std::size_t>(picture.height) - 1 - y) * rowBytes);
    std::copy_n(row, rowBytes, picture.bytes.begin() + static_cast<std::ptrdiff_t>(y * rowBytes));
  }
  return picture;
}
