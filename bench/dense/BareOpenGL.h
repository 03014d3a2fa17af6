#pragma once

#include "bench/dense/View.h"
#include "viewer/Framebuffer.h"
#include "viewer/HeadlessContext.h"

#include <cstdint>
#include <vector>

namespace bench {

/// The floor of the frames: OpenGL called by hand, in a context of its own, drawing one
/// vertex buffer into a picture of the same size and format as OffscreenRenderer's.
///
/// What is drawn is what Coin draws, and with the state that Coin sets: otherwise a shorter
/// time would tell of less work and not of less overhead. tarn_bench_dense compares the two
/// pictures. The buffers hold what Coin's hold: three floats a position, four bytes a colour,
/// and for a mesh three floats a normal.
class BareOpenGL {
public:
  BareOpenGL();

  /// Points of one pixel, unlit. Positions x, y, z and colours red, green, blue, opacity.
  void setCloud(std::vector<float> positions, std::vector<std::uint8_t> colours);
  /// Triangles lit from the front: each three vertices of its own, or, where `corners` is not
  /// empty, three numbers of vertices that it shares with others.
  void setMesh(std::vector<float> positions, std::vector<float> normals,
               std::vector<std::uint32_t> corners);

  /// Draws one frame and waits until it is drawn. The first one with something to draw fills
  /// the buffers.
  void draw(const View& view);
  Picture read();

private:
  void fillBuffers();
  static void place(const View& view);
  static void lightUp();

  HeadlessContext context;
  Framebuffer framebuffer;
  std::vector<float> positions;
  std::vector<float> normals;
  std::vector<std::uint8_t> colours;
  std::vector<std::uint32_t> corners;
  bool filled = false;
};

}  // namespace bench
