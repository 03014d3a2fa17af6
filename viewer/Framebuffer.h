#pragma once

#include "viewer/Picture.h"

/// A picture in memory that OpenGL draws into: eight bits a colour, 24 bits of depth and a
/// stencil. It belongs to the context that was current when it was made, which must be
/// current again wherever it is used or destroyed.
class Framebuffer {
public:
  /// Throws std::runtime_error when the context draws no picture of that size.
  Framebuffer(int width, int height);
  ~Framebuffer();
  Framebuffer(const Framebuffer&) = delete;
  Framebuffer& operator=(const Framebuffer&) = delete;

  /// The number that OpenGL knows it by.
  unsigned int name() const { return frame; }
  /// Makes it what is drawn into, all of it.
  void bind() const;
  /// What was drawn. It must be bound.
  Picture read() const;

private:
  void release();

  const int width;
  const int height;
  unsigned int frame = 0;
  unsigned int color = 0;
  unsigned int depth = 0;
};
