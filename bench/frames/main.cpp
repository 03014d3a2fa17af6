// Draws a layer of object point nodes, highlights one of them, and prints what frames and
// nodes cost. A program of its own, because whether Mesa rasterises (GALLIUM_NOOP) and what
// memory a node takes can be told in a fresh process only.
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "bench/PointNodes.h"
#include "viewer/OffscreenRenderer.h"

#include <algorithm>
#include <chrono>
#include <cstdlib>
#include <exception>
#include <fstream>
#include <iostream>
#include <malloc.h>
#include <numbers>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

// Resident memory now, in bytes.
double residentBytes() {
  std::ifstream file("/proc/self/statm");
  double total = 0;
  double resident = 0;
  file >> total >> resident;
  return resident * static_cast<double>(sysconf(_SC_PAGESIZE));
}

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
    const auto start = std::chrono::steady_clock::now();
    renderer.draw(root.get());
    const std::chrono::duration<double, std::milli> taken =
        std::chrono::steady_clock::now() - start;
    return taken.count();
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

double median(std::vector<double> values) {
  std::ranges::sort(values);
  return values[values.size() / 2];
}

void measure(int count) {
  bench::initialiseNodes();
  std::vector<tarn::ObjectPoint> points = bench::objectPoints(count);
  bench::PointNodes nodes;
  Frames frames(nodes.layer.get());
  frames.next(3);  // what the driver takes for itself is no node's
  malloc_trim(0);
  const double before = residentBytes();
  nodes.build(points);
  frames.next(8);
  const double bytes = (residentBytes() - before) / static_cast<double>(count);
  const double steady = median(frames.next(15));

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
