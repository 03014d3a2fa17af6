#pragma once

#include "bench/dense/View.h"

#include <vector>

namespace bench {

/// The work that this library and its peers do with the same cloud, each in a program of its
/// own: build what draws it, colour it by height, draw it. Every library does it in the way that
/// its documentation calls fast: sizes known beforehand, written in place, no copy more than it
/// asks for.
class CloudWork {
public:
  virtual ~CloudWork() = default;

  /// Does the work of `argv[1]` points and prints the figures (see Companion): build_ms, colour_ms
  /// (each into new memory, medians of five), and where it can draw first_ms, steady_ms, and
  /// bytes_per_point, the resident memory that building, colouring and drawing took. The exit
  /// status of a program.
  int run(int argc, char** argv);

protected:
  /// Makes what building reads, which does not count. The default makes what positions() gives.
  virtual void prepare();
  /// Builds what draws the cloud, uncoloured.
  virtual void build() = 0;
  /// Colours by height what was built: hue 0 for height 0 to 0.8 for height 1, saturation and
  /// lightness (or value) a half or what the library has instead.
  virtual void colour() = 0;
  /// Destroys what was built.
  virtual void drop() = 0;

  /// Makes ready to draw, before anything is built that is drawn. False: it cannot draw here.
  virtual bool open() = 0;
  /// Draws a frame of what was built, if it was, and waits until it is drawn.
  virtual void draw(const View& view) = 0;

  /// x, y, z of each point, one after the other; model coordinates.
  const float* positions() const { return coordinates.data(); }
  int count() const { return points; }

private:
  void tellBuilding();
  void tellDrawing();

  int points = 0;
  std::vector<float> coordinates;
};

}  // namespace bench
