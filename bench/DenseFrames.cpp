// Frames of clouds and meshes against bare OpenGL that draws the same vertices.
#include "bench/Companion.h"
#include "bench/Subject.h"

#include <map>
#include <memory>
#include <string>
#include <vector>

namespace {

using Figures = std::map<std::string, double>;

Figures dense(const std::vector<std::string>& arguments, bool rasterise = true) {
  std::vector<std::string> environment;
  if (!rasterise) environment.emplace_back("GALLIUM_NOOP=1");
  return bench::Companion("tarn_bench_dense").figures(arguments, environment);
}

// The first frame of either side, each in a process of its own.
bench::Row firstFrame(const std::string& subject, const std::string& count, std::string size,
                      double target) {
  const auto first = [=](const std::string& side) {
    return [=] { return dense({"alone", subject, side, count, "0"}).at("first_ms"); };
  };
  return {.work = "first frame",
          .size = std::move(size),
          .ours = bench::figureOf("ours", first("ours")),
          .against = bench::figureOf("bare OpenGL", first("bare")),
          .target = target,
          .unit = "ms",
          .repetitions = 5};
}

// Later frames of both sides, in turn in one process.
bench::Row steadyFrame(const std::string& subject, const std::string& count, std::string size,
                       double target) {
  auto figures = std::make_shared<Figures>();
  return {.work = "steady frame",
          .size = std::move(size),
          .ours = bench::figureOf("ours",
                                  [=] {
                                    *figures = dense({"both", subject, count});
                                    return figures->at("ours_ms");
                                  }),
          .against = bench::figureOf("bare OpenGL", [=] { return figures->at("bare_ms"); }),
          .target = target,
          .unit = "ms",
          .repetitions = 3};
}

// What the program does itself for a later frame: Mesa draws nothing.
bench::Row undrawnFrame(const std::string& subject, const std::string& count, std::string size,
                        double target) {
  return {.work = "steady frame",
          .size = std::move(size) + ", not rasterised",
          .ours = bench::figureOf(
              "ours",
              [=] {
                return dense({"alone", subject, "ours", count, "15"}, false).at("steady_ms");
              }),
          .against = {},
          .target = target,
          .unit = "ms",
          .repetitions = 3};
}

const bench::Subject cloud("cloud-frames", "drawing a coloured cloud", [] {
  const std::string count = "5000000";
  const std::string size = "5,000,000 points";
  return std::vector<bench::Row>{firstFrame("cloud", count, size, 1.1),
                                 steadyFrame("cloud", count, size, 1.05),
                                 undrawnFrame("cloud", count, size, 0.05)};
});

const bench::Subject mesh("mesh-frames", "drawing a mesh of triangles", [] {
  const std::string count = "1000000";
  const std::string size = "1,000,000 triangles";
  return std::vector<bench::Row>{
      firstFrame("terrain", count, size, bench::noTarget),
      steadyFrame("terrain", count, size, 1.15),
      // What it costs that faces are numbered as in the model.
      steadyFrame("shared-terrain", count, size + ", floor with shared vertices", bench::noTarget)};
});

}  // namespace
