// A hundred thousand object points, one node each: what a node costs to make, keep, find,
// highlight and take down.
#include <Inventor/SoPath.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoSeparator.h>

#include "bench/Building.h"
#include "bench/Companion.h"
#include "bench/Contest.h"
#include "bench/PointNodes.h"
#include "bench/Subject.h"
#include "nodes/framework/TarnOISearchAction.h"

#include <algorithm>
#include <ctime>
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

// Runs of tarn_bench_frames.
std::shared_ptr<bench::Contest> drawnFrames(bool rasterise) {
  auto contest = std::make_shared<bench::Contest>();
  contest->add("ours", [rasterise] {
    std::vector<std::string> environment;
    if (!rasterise) environment.emplace_back("GALLIUM_NOOP=1");
    return bench::Companion("tarn_bench_frames").figures({std::to_string(manyPoints)}, environment);
  });
  return contest;
}

// The frames after a highlight against the steady frame of the same run. A frame varies by a
// quarter when nothing happens: the steady frame is back below that.
void addHighlightRows(std::vector<bench::Row>& rows, bool rasterise) {
  const auto contest = drawnFrames(rasterise);
  const auto add = [&](const char* work, const char* figure, double target) {
    rows.push_back({.work = work,
                    .size = std::string(many) + (rasterise ? ", rasterised" : ", not rasterised"),
                    .ours = contest->measure("ours", figure, "after"),
                    .against = contest->measure("ours", "steady_ms", "steady frame"),
                    .target = target,
                    .unit = "ms",
                    .repetitions = 9});
  };
  add("longest frame", "longest_ms", 3.0);
  add("fourth frame", "fourth_ms", 1.25);
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
  return std::vector<bench::Row>{{.work = "resident memory a node",
                                  .size = many,
                                  .ours = drawnFrames(true)->measure("ours", "bytes_per_node"),
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
                                 std::vector<bench::Row> rows;
                                 addHighlightRows(rows, false);
                                 addHighlightRows(rows, true);
                                 return rows;
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
