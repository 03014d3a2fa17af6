#include "bench/Measurement.h"

#include <algorithm>
#include <exception>
#include <stdexcept>
#include <vector>

namespace bench {

namespace {

// Keeps the one run that was asked for and prints nothing.
class Recorder : public benchmark::BenchmarkReporter {
public:
  bool ReportContext(const Context&) override { return true; }
  void ReportRuns(const std::vector<Run>& reports) override {
    for (const Run& run : reports) {
      if (run.run_type != Run::RT_Iteration) continue;
      failed = run.error_occurred;
      reason = run.error_message;
      iterations = run.iterations;
      seconds = run.iterations > 0 ? run.real_accumulated_time / double(run.iterations) : 0;
    }
  }

  bool failed = true;
  std::string reason = "nothing was measured";
  benchmark::IterationCount iterations = 0;
  double seconds = 0;
};

// One side while it is measured.
class Side {
public:
  explicit Side(const Measure& measured) : measure(measured) {}

  // The first turn, which does not count.
  void warmUp() {
    turn();
    values.clear();
  }

  void turn() { values.push_back(measure.figure ? measure.figure() : time()); }

  double median() {
    std::ranges::sort(values);
    const std::size_t middle = values.size() / 2;
    return values.size() % 2 ? values[middle] : (values[middle - 1] + values[middle]) / 2;
  }

private:
  double time() {
    benchmark::ClearRegisteredBenchmarks();
    benchmark::internal::Benchmark* benchmark =
        benchmark::RegisterBenchmark("side", [this](benchmark::State& state) {
          try {
            measure.time(state);
          } catch (const std::exception& problem) {
            state.SkipWithError(problem.what());
          }
        });
    benchmark->UseRealTime();
    // All turns make as many passes as the first found necessary.
    if (iterations > 0) {
      benchmark->Iterations(iterations);
    } else {
      benchmark->MinTime(0.05);
    }
    Recorder recorder;
    benchmark::RunSpecifiedBenchmarks(&recorder, "all");
    if (recorder.failed) throw std::runtime_error(recorder.reason);
    iterations = recorder.iterations;
    return recorder.seconds;
  }

  const Measure& measure;
  benchmark::IterationCount iterations = 0;
  std::vector<double> values;
};

}  // namespace

std::string Result::verdictText() const {
  switch (verdict) {
    case Verdict::Ok:
      return "ok";
    case Verdict::Missed:
      return "MISSED";
    case Verdict::NoTarget:
      return "no target";
    case Verdict::Skipped:
      return "skipped: " + reason;
    case Verdict::Failed:
      return "FAILED: " + reason;
  }
  return {};
}

Result measure(const Row& row, int repetitions) {
  Result result;
  if (!row.skipped.empty()) {
    result.verdict = Result::Verdict::Skipped;
    result.reason = row.skipped;
    return result;
  }
  try {
    std::vector<Side> sides;
    sides.reserve(2);
    sides.emplace_back(row.ours);
    if (row.against) sides.emplace_back(*row.against);
    for (Side& side : sides) side.warmUp();
    const int turns = row.repetitions > 0 ? row.repetitions : repetitions;
    for (int i = 0; i < turns; ++i) {
      for (Side& side : sides) side.turn();
    }
    result.ours = sides[0].median();
    if (row.against) {
      result.against = sides[1].median();
      result.ratio = result.ours / result.against;
    }
    // Written so that a ratio that is no number misses its target.
    const double judged = row.against ? result.ratio : result.ours;
    result.verdict = row.target == noTarget ? Result::Verdict::NoTarget
                     : judged <= row.target ? Result::Verdict::Ok
                                            : Result::Verdict::Missed;
  } catch (const std::exception& problem) {
    result.verdict = Result::Verdict::Failed;
    result.reason = problem.what();
  }
  return result;
}

}  // namespace bench
