#include "bench/Contest.h"

#include <gmock/gmock.h>

#include "bench/Measurement.h"

#include <memory>
#include <stdexcept>

namespace {

// A contest of two, whose figures grow by one from round to round, and the order in which
// they ran.
class ContestTest : public ::testing::Test {
protected:
  ContestTest() {
    contest->add("ours", [this] {
      order += 'o';
      ++round;
      return bench::Contest::Figures{{"build_s", round}, {"colour_s", 10 * round}};
    });
    contest->add("peer", [this] {
      order += 'p';
      if (!problem.empty()) throw std::runtime_error(problem);
      return bench::Contest::Figures{{"build_s", 100 + round}};
    });
  }

  bench::Row row(const std::string& figure) {
    return {.work = figure,
            .size = "",
            .ours = contest->measure("ours", figure),
            .against = contest->measure("peer", figure),
            .target = 1.0,
            .repetitions = 3};
  }

  const std::shared_ptr<bench::Contest> contest = std::make_shared<bench::Contest>();
  std::string order;
  std::string problem;
  double round = 0;
};

}  // namespace

TEST_F(ContestTest, RunsEveryProgramOnceARoundAndNothingForTheTurnThatDoesNotCount) {
  const bench::Result result = bench::measure(row("build_s"), 1);
  EXPECT_EQ(order, "opopop");
  EXPECT_EQ(result.ours, 2) << "the median of rounds 1, 2 and 3";
  EXPECT_EQ(result.against, 102);
}

TEST_F(ContestTest, RowsReadTheSameRounds) {
  bench::measure(row("build_s"), 1);
  const auto colour = contest->measure("ours", "colour_s").figure;
  EXPECT_EQ(colour(), 10) << "the turn that does not count";
  EXPECT_EQ(colour(), 10);
  EXPECT_EQ(colour(), 20);
  EXPECT_EQ(colour(), 30);
  EXPECT_EQ(order, "opopop") << "nothing ran again";
  EXPECT_EQ(colour(), 40);
  EXPECT_EQ(order, "opopopop");
}

TEST_F(ContestTest, RunsNothingBeforeARowNeedsIt) {
  row("build_s");
  EXPECT_EQ(order, "");
}

TEST_F(ContestTest, ProgramThatFailsFailsItsOwnRowsOnly) {
  problem = "no screen";
  EXPECT_EQ(bench::measure(row("build_s"), 1).verdictText(), "FAILED: no screen");
  EXPECT_EQ(contest->measure("ours", "build_s").figure(), 1);
}

TEST_F(ContestTest, FigureThatIsNotToldFailsByName) {
  EXPECT_EQ(bench::measure(row("colour_s"), 1).verdictText(), "FAILED: peer tells no colour_s");
}

TEST_F(ContestTest, MeasureBearsTheProgramsNameOrTheOneThatItIsGiven) {
  EXPECT_EQ(contest->measure("ours", "build_s").name, "ours");
  EXPECT_EQ(contest->measure("ours", "build_s", "before").name, "before");
}
