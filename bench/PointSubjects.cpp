// A hundred thousand object points, one node each: what a node costs to make, keep, find,
// highlight and take down.
#include <Inventor/SoPath.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoSeparator.h>

#include "bench/Building.h"
#include "bench/Companion.h"
#include "bench/PointNodes.h"
#include "bench/Subject.h"
#include "nodes/framework/TarnOISearchAction.h"

#include <algorithm>
#include <ctime>
#include <map>
#include <memory>
#include <random>
#include <string>

namespace {

constexpr int manyPoints = 100000;
constexpr const char* many = "100,000 nodes";

// The time of taking down; building does not count.
bench::Measure takingDown(std::string name, int count) {
  auto points = std::make_shared<std::vector<tarn::ObjectPoint>>(bench::objectPoints(count));
  return {.name = std::move(name),
          .time =
              [points](benchmark::State& state) {
                for ([[maybe_unused]] auto _ : state) {
                  state.PauseTiming();
                  bench::PointNodes nodes;
                  nodes.build(*points);
                  state.ResumeTiming();
                  nodes.layer.reset();
                }
              },
          .figure = {}};
}

// The processor time of this thread: a target in nanoseconds has no other side to be
// measured in turn with, so what other programs take of the machine must not count.
double processorNanoseconds() {
  timespec time{};
  clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
  return static_cast<double>(time.tv_sec) * 1e9 + static_cast<double>(time.tv_nsec);
}

// A layer of nodes, with what is sought among them.
struct Scene {
  explicit Scene(int count) : points(bench::objectPoints(count)) {
    nodes.build(points);
    shuffled.reserve(points.size());
    for (tarn::ObjectPoint& point : points) shuffled.push_back(&point);
    std::shuffle(shuffled.begin(), shuffled.end(), std::mt19937(1));
  }

  // Nanoseconds of one look-up, all of them in an order that no cache can guess.
  double lookUp() const {
    std::size_t found = 0;
    const double start = processorNanoseconds();
    for (tarn::ObjectPoint* point : shuffled) found += nodes.objects.atKey(point) != nullptr;
    const double taken = processorNanoseconds() - start;
    if (found != shuffled.size()) throw std::runtime_error("a point is not in the dictionary");
    return taken / static_cast<double>(found);
  }

  void searchLast(SoSearchAction& action) {
    action.setInterest(SoSearchAction::FIRST);
    action.apply(nodes.layer.get());
    if (!action.getPath()) throw std::runtime_error("the last node was not found");
  }
  void searchLastObject() {
    TarnOISearchAction action;
    action.SetTarnObject(&points.back());
    searchLast(action);
  }
  void searchLastNode() {
    SoSearchAction action;
    action.setNode(nodes.layer->getChild(nodes.layer->getNumChildren() - 1));
    searchLast(action);
  }

  std::vector<tarn::ObjectPoint> points;
  bench::PointNodes nodes;
  std::vector<tarn::ObjectPoint*> shuffled;
};

// What tarn_bench_frames prints, by name. A process of its own each time.
std::map<std::string, double> drawnFrames(bool rasterise) {
  std::vector<std::string> environment;
  if (!rasterise) environment.emplace_back("GALLIUM_NOOP=1");
  return bench::Companion("tarn_bench_frames").figures({std::to_string(manyPoints)}, environment);
}

// A figure of the frames after a highlight against the steady frame of the same run.
bench::Row highlightRow(std::string work, const char* figure, bool rasterise, double target) {
  auto figures = std::make_shared<std::map<std::string, double>>();
  return {
      .work = std::move(work),
      .size = std::string(many) + (rasterise ? ", rasterised" : ", not rasterised"),
      .ours = bench::figureOf("after",
                              [figures, figure, rasterise] {
                                *figures = drawnFrames(rasterise);
                                return figures->at(figure);
                              }),
      .against = bench::figureOf("steady frame", [figures] { return figures->at("steady_ms"); }),
      .target = target,
      .unit = "ms",
      .repetitions = 9};
}

const bench::Subject build(
    "points-build", "making object point nodes against their children alone", [] {
      auto points =
          std::make_shared<std::vector<tarn::ObjectPoint>>(bench::objectPoints(manyPoints));
      return std::vector<bench::Row>{{.work = "make nodes under a layer",
                                      .size = many,
                                      .ours = bench::building<bench::PointNodes>("ours", points),
                                      .against = bench::building<bench::PlainNodes>(
                                          "separators by hand, with dictionary", points),
                                      .target = 1.3}};
    });

const bench::Subject memory("points-memory", "what an object point node takes once drawn", [] {
  return std::vector<bench::Row>{
      {.work = "resident memory a node",
       .size = many,
       .ours = bench::figureOf("ours", [] { return drawnFrames(true).at("bytes_per_node"); }),
       .against = {},
       .target = 2400,
       .unit = "bytes",
       .repetitions = 3}};
});

const bench::Subject lookup("points-lookup", "looking a node up by its object", [] {
  auto scene = std::make_shared<Scene>(manyPoints);
  return std::vector<bench::Row>{
      {.work = "look up in the dictionary",
       .size = many,
       .ours = bench::figureOf("ours", [scene] { return scene->lookUp(); }),
       .against = {},
       .target = 100,
       .unit = "ns"}};
});

const bench::Subject highlight("points-highlight",
                               "frames after one node among many is highlighted", [] {
                                 // A frame varies by a quarter when nothing happens: the steady
                                 // frame is back below that.
                                 return std::vector<bench::Row>{
                                     highlightRow("longest frame", "longest_ms", false, 3.0),
                                     highlightRow("fourth frame", "fourth_ms", false, 1.25),
                                     highlightRow("longest frame", "longest_ms", true, 3.0),
                                     highlightRow("fourth frame", "fourth_ms", true, 1.25)};
                               });

const bench::Subject search("points-search", "searching a scene for the last of many nodes", [] {
  auto scene = std::make_shared<Scene>(manyPoints);
  return std::vector<bench::Row>{
      {.work = "search for the last",
       .size = many,
       .ours = bench::timeOf("TarnOISearchAction", [scene] { scene->searchLastObject(); }),
       .against = bench::timeOf("SoSearchAction", [scene] { scene->searchLastNode(); }),
       .target = 0.5}};
});

const bench::Subject teardown("points-teardown", "taking twice as many nodes down", [] {
  return std::vector<bench::Row>{{.work = "take nodes down",
                                  .size = "200,000 nodes",
                                  .ours = takingDown("ours", 2 * manyPoints),
                                  .against = takingDown(many, manyPoints),
                                  .target = 2.3}};
});

}  // namespace
