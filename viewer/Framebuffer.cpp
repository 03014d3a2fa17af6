#include "viewer/Framebuffer.h"

#define GL_GLEXT_PROTOTYPES
#include <GL/gl.h>
#include <GL/glext.h>

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string>
#include <vector>

Framebuffer::Framebuffer(int pictureWidth, int pictureHeight)
    : width(pictureWidth), height(pictureHeight) {
  GLint allowed = 0;
  glGetIntegerv(GL_MAX_RENDERBUFFER_SIZE, &allowed);
  bool complete = false;
  if (width > 0 && height > 0 && width <= allowed && height <= allowed) {
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
    complete = glCheckFramebufferStatus(GL_FRAMEBUFFER) == GL_FRAMEBUFFER_COMPLETE;
  }
  if (!complete) {
    release();
    throw std::runtime_error("a picture of " + std::to_string(width) + " x " +
                             std::to_string(height) + " pixels cannot be drawn here");
  }
}

Framebuffer::~Framebuffer() { release(); }

void Framebuffer::bind() const {
  glBindFramebuffer(GL_FRAMEBUFFER, frame);
  glViewport(0, 0, width, height);
}

Picture Framebuffer::read() const {
  Picture picture(width, height);
  const std::size_t rowBytes = static_cast<std::size_t>(width) * 3;
  std::vector<std::uint8_t> fromBottom(picture.bytes.size());
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, width, height, GL_RGB, GL_UNSIGNED_BYTE, fromBottom.data());
  for (std::size_t y = 0; y < static_cast<std::size_t>(height); ++y) {
    const auto row =
        fromBottom.begin() +
        static_cast<std::ptrdiff_t>((static_cast<std::size_t>(height) - 1 - y) * rowBytes);
    std::copy_n(row, rowBytes, picture.bytes.begin() + static_cast<std::ptrdiff_t>(y * rowBytes));
  }
  return picture;
}

void Framebuffer::release() {
  glDeleteRenderbuffers(1, &color);
  glDeleteRenderbuffers(1, &depth);
  glDeleteFramebuffers(1, &frame);
}
