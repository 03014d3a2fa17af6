#pragma once

#include <benchmark/benchmark.h>

#include <functional>
#include <limits>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// One side of a row: something that is measured, and its name in the table.
///
/// What goes wrong is thrown (any std::exception): the row then fails with its text.
struct Measure {
  std::string name;
  /// A time, in Google Benchmark's form: `for (auto _ : state) work();`. The figure is the
  /// wall clock time of one pass of that loop; what happens outside the loop, or between
  /// state.PauseTiming() and state.ResumeTiming(), does not count.
  std::function<void(benchmark::State&)> time;
  /// Any other figure (bytes a node, the longest of several frames); instead of a time.
  std::function<double()> figure;
};

/// A time of work that needs nothing of benchmark::State.
Measure timeOf(std::string name, std::function<void()> work);

/// A figure that is not the time of one piece of work.
Measure figureOf(std::string name, std::function<double()> figure);

/// The target of a row that has none.
inline constexpr double noTarget = std::numeric_limits<double>::infinity();

/// A line of the table: ours against a floor (a plain loop, bare calls) or a peer.
///
/// Both sides are measured in turn, several times in one run, and their medians compared,
/// so that a slow minute of the machine is one of both.
struct Row {
  std::string work;  ///< what is done
  std::string size;  ///< how much of it
  Measure ours;
  std::optional<Measure> against;  ///< none: the target is one for ours alone
  /// The largest ratio of ours to the other side, or, without one, the largest figure of
  /// ours, in seconds for a time.
  double target = 1.0;       ///< noTarget: told only, and judged by whoever reads
  std::string unit = {};     ///< of figures that are not times: "bytes"
  int repetitions = 0;       ///< 0: as many as the command line says
  std::string skipped = {};  ///< not empty: why this row cannot be measured on this machine
};

/// The rows that one name on the command line selects. To add a subject, put a file into
/// this folder that defines one at namespace scope:
///
///     const bench::Subject search("search", "finding one node among many", [] {
///       auto scene = std::make_shared<Scene>(100000);
///       return std::vector<bench::Row>{{
///           .work = "find the last node",
///           .size = "100,000 nodes",
///           .ours = bench::timeOf("ours", [scene] { scene->findOurs(); }),
///           .against = bench::timeOf("SoSearchAction", [scene] { scene->findCoins(); }),
///           .target = 0.5,
///       }};
///     });
///
/// The rows are made only when the subject is selected, and dropped, with what they
/// captured, before the next subject begins.
class Subject {
public:
  using MakeRows = std::function<std::vector<Row>()>;

  Subject(std::string name, std::string description, MakeRows makeRows);
  Subject(const Subject&) = delete;
  Subject& operator=(const Subject&) = delete;

  const std::string name;
  const std::string description;
  const MakeRows makeRows;

  /// All subjects, by name.
  static std::vector<const Subject*> all();
};

/// The folder, below the build folder, for files that are made once and kept between
/// runs. It exists.
std::string keptFolder();

}  // namespace bench
