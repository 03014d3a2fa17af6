// Draws a layer of object point nodes, highlights one of them, and prints what frames and
// nodes cost. A program of its own, because whether Mesa rasterises (GALLIUM_NOOP) and what
// memory a node takes can be told in a fresh process only.
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "bench/Memory.h"
#include "bench/PointNodes.h"
#include "bench/Timing.h"
#include "viewer/OffscreenRenderer.h"

#include <algorithm>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <numbers>
#include <string>
#include <vector>

namespace {

class Frames {
public:
  explicit Frames(SoNode* layer) {
    camera->heightAngle = std::numbers::pi_v<float> / 4;
    camera->nearDistance = 0.1F;
    camera->farDistance = 5.0F;
    auto* light = new SoLightModel;
    light->model = SoLightModel::BASE_COLOR;
    root->addChild(camera);
    root->addChild(light);
    root->addChild(layer);
  }

  // Milliseconds of the next frame, the camera a little further on.
  double next() {
    camera->position.setValue(0.5F + 0.001F * static_cast<float>(frame++), 0.5F, 0.6F);
    return 1e3 * bench::secondsOf([this] { renderer.draw(root.get()); });
  }

  std::vector<double> next(int count) {
    std::vector<double> times(static_cast<std::size_t>(count));
    for (double& time : times) time = next();
    return times;
  }

private:
  OffscreenRenderer renderer{1600, 1200};
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
  SoPerspectiveCamera* camera = new SoPerspectiveCamera;
  int frame = 0;
};

void measure(int count) {
  bench::initialiseNodes();
  std::vector<tarn::ObjectPoint> points = bench::objectPoints(count);
  bench::PointNodes nodes;
  Frames frames(nodes.layer.get());
  frames.next(3);  // what the driver takes for itself is no node's
  const double before = bench::residentBytes();
  nodes.build(points);
  frames.next(8);
  const double bytes = (bench::residentBytes() - before) / static_cast<double>(count);
  const double steady = bench::medianOf(frames.next(15));

  const auto highlight = makeNode<SoMaterial>();
  highlight->diffuseColor.setValue(1, 0, 0);
  auto* node = static_cast<TarnOISeparator*>(nodes.layer->getChild(count / 2));
  node->Highlight(highlight.get(), 1);
  const std::vector<double> after = frames.next(12);
  std::cout << "bytes_per_node " << bytes << "\nsteady_ms " << steady << "\nlongest_ms "
            << *std::ranges::max_element(after) << "\nfourth_ms " << after[3] << '\n';
}

}  // namespace

int main(int argc, char** argv) {
  const int count = argc == 2 ? std::atoi(argv[1]) : 0;
  if (count < 1) {
    std::cerr << "usage: tarn_bench_frames COUNT\n";
    return 2;
  }
  try {
    measure(count);
  } catch (const std::exception& problem) {
    std::cerr << problem.what() << '\n';
    return 1;
  }
  return 0;
}
