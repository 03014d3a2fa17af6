// What this library and its peers do with the same cloud, each in programs of its own.
#include "bench/Companion.h"
#include "bench/Contest.h"
#include "bench/Subject.h"

#include <array>
#include <memory>
#include <string>
#include <vector>

namespace {

constexpr const char* points = "5000000";
constexpr const char* screen = "-screen 0 1600x1200x24";

struct Peer {
  const char* name;
  bench::Companion program;
  bool needsScreen;
};

const std::array<Peer, 3>& peers() {
  static const std::array<Peer, 3> all{
      {{"VTK", bench::Companion("tarn_bench_vtk_cloud", "VTK (package libvtk9-dev)"), true},
       {"OpenSceneGraph",
        bench::Companion("tarn_bench_osg_cloud", "OpenSceneGraph (package libopenscenegraph-dev)"),
        false},
       {"Open3D", bench::Companion("tarn_bench_open3d_cloud", "Open3D (package libopen3d-dev)"),
        true}}};
  return all;
}

const bench::Companion& screenProgram() {
  static const bench::Companion program("/usr/bin/xvfb-run");
  return program;
}

bool canDraw(const Peer& peer) { return !peer.needsScreen || screenProgram().missing().empty(); }

bench::Contest::Figures figuresOf(const Peer& peer) {
  if (!peer.needsScreen || !canDraw(peer)) return peer.program.figures({points});
  return screenProgram().figures(
      {"--auto-servernum", "--server-args", screen, peer.program.file(), points});
}

struct Figure {
  const char* work;
  const char* name;
  const char* unit;
  double target;
  bool drawn;
};
constexpr Figure figures[] = {
    {"build", "build_ms", "ms", 1.0, false},
    {"colour by height", "colour_ms", "ms", 1.0, false},
    {"first frame", "first_ms", "ms", bench::noTarget, true},
    {"steady frame", "steady_ms", "ms", bench::noTarget, true},
    {"resident memory a point, drawn", "bytes_per_point", "bytes", bench::noTarget, true}};

std::string reasonToSkip(const Peer& peer, const Figure& figure) {
  if (std::string reason = peer.program.missing(); !reason.empty()) return reason;
  if (figure.drawn && !canDraw(peer)) return "it draws to a screen only (packages xvfb and xauth)";
  return {};
}

const bench::Subject cloud(
    "cloud-peers", "a cloud built, coloured and drawn by other libraries", [] {
      const auto contest = std::make_shared<bench::Contest>();
      contest->add("ours", [] {
        return bench::Companion("tarn_bench_dense").figures({"work", points});
      });
      for (const Peer& peer : peers()) {
        if (peer.program.missing().empty()) {
          contest->add(peer.name, [&peer] { return figuresOf(peer); });
        }
      }
      std::vector<bench::Row> rows;
      for (const Figure& figure : figures) {
        for (const Peer& peer : peers()) {
          rows.push_back({.work = figure.work,
                          .size = "5,000,000 points",
                          .ours = contest->measure("ours", figure.name),
                          .against = contest->measure(peer.name, figure.name),
                          .target = figure.target,
                          .unit = figure.unit,
                          .repetitions = 3,
                          .skipped = reasonToSkip(peer, figure)});
        }
      }
      return rows;
    });

}  // namespace
