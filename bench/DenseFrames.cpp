// Frames of clouds and meshes against bare OpenGL that draws the same vertices.
#include "bench/Companion.h"
#include "bench/Contest.h"
#include "bench/Subject.h"

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace {

using Figures = bench::Contest::Figures;

// A run of tarn_bench_dense, for a contest.
std::function<Figures()> dense(std::vector<std::string> arguments, bool rasterise = true) {
  return [arguments = std::move(arguments), rasterise] {
    std::vector<std::string> environment;
    if (!rasterise) environment.emplace_back("GALLIUM_NOOP=1");
    return bench::Companion("tarn_bench_dense").figures(arguments, environment);
  };
}

// What is drawn, by its name on the command line, and how much of it.
struct Drawn {
  std::string subject;
  std::string count;
  std::string size;
};

// The first frame of either side, each in processes of its own.
bench::Row firstFrame(const Drawn& drawn, double target) {
  const auto contest = std::make_shared<bench::Contest>();
  contest->add("ours", dense({"alone", drawn.subject, "ours", drawn.count, "0"}));
  contest->add("bare OpenGL", dense({"alone", drawn.subject, "bare", drawn.count, "0"}));
  return {.work = "first frame",
          .size = drawn.size,
          .ours = contest->measure("ours", "first_ms"),
          .against = contest->measure("bare OpenGL", "first_ms"),
          .target = target,
          .unit = "ms",
          .repetitions = 5};
}

// Later frames of both sides, in turn in one process.
bench::Row steadyFrame(const Drawn& drawn, double target) {
  const auto contest = std::make_shared<bench::Contest>();
  contest->add("ours", dense({"both", drawn.subject, drawn.count}));
  return {.work = "steady frame",
          .size = drawn.size,
          .ours = contest->measure("ours", "ours_ms"),
          .against = contest->measure("ours", "bare_ms", "bare OpenGL"),
          .target = target,
          .unit = "ms",
          .repetitions = 3};
}

// What the program does itself for a later frame: Mesa draws nothing.
bench::Row undrawnFrame(const Drawn& drawn, double target) {
  const auto contest = std::make_shared<bench::Contest>();
  contest->add("ours", dense({"alone", drawn.subject, "ours", drawn.count, "15"}, false));
  return {.work = "steady frame",
          .size = drawn.size + ", not rasterised",
          .ours = contest->measure("ours", "steady_ms"),
          .against = {},
          .target = target,
          .unit = "ms",
          .repetitions = 3};
}

const bench::Subject cloud("cloud-frames", "drawing a coloured cloud", [] {
  const Drawn drawn{"cloud", "5000000", "5,000,000 points"};
  return std::vector<bench::Row>{firstFrame(drawn, 1.1), steadyFrame(drawn, 1.05),
                                 undrawnFrame(drawn, 0.05)};
});

const bench::Subject mesh("mesh-frames", "drawing a mesh of triangles", [] {
  const Drawn drawn{"terrain", "1000000", "1,000,000 triangles"};
  // What it costs that hosts rely on faces being numbered as in the model, each with vertices of
  // its own.
  const Drawn shared{"shared-terrain", drawn.count, drawn.size + ", floor with shared vertices"};
  return std::vector<bench::Row>{firstFrame(drawn, bench::noTarget), steadyFrame(drawn, 1.15),
                                 steadyFrame(shared, bench::noTarget)};
});

}  // namespace
