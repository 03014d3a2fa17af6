#include "bench/Measurement.h"

#include "bench/Table.h"
#include "tests/support/TarnTest.h"

#include <memory>
#include <sstream>
#include <stdexcept>

using ::testing::HasSubstr;

namespace {

using Verdict = bench::Result::Verdict;

// A row of figures that are known beforehand.
bench::Row figures(double ours, double against, double target) {
  return {.work = "work",
          .size = "size",
          .ours = bench::figureOf("ours", [ours] { return ours; }),
          .against = bench::figureOf("floor", [against] { return against; }),
          .target = target,
          .unit = "bytes"};
}

std::string printed(const bench::Row& row) {
  bench::Table table;
  table.add(row, bench::measure(row, 1));
  std::ostringstream text;
  table.print(text);
  return text.str();
}

class MeasurementTest : public TarnTest {};

}  // namespace

TEST_F(MeasurementTest, is_ok_up_to_its_target_and_missed_beyond) {
  EXPECT_EQ(bench::measure(figures(12, 10, 1.2), 1).verdict, Verdict::Ok);
  EXPECT_EQ(bench::measure(figures(13, 10, 1.2), 1).verdict, Verdict::Missed);
  EXPECT_DOUBLE_EQ(bench::measure(figures(13, 10, 1.2), 1).ratio, 1.3);
}

TEST_F(MeasurementTest, misses_its_target_when_the_ratio_is_no_number) {
  EXPECT_EQ(bench::measure(figures(0, 0, 1.2), 1).verdict, Verdict::Missed);
}

TEST_F(MeasurementTest, judges_our_figure_alone_when_there_is_no_other_side) {
  bench::Row row = figures(2400, 0, 2400);
  row.against.reset();
  EXPECT_EQ(bench::measure(row, 1).verdict, Verdict::Ok);
  row.target = 2399;
  EXPECT_EQ(bench::measure(row, 1).verdict, Verdict::Missed);
}

TEST_F(MeasurementTest, is_told_without_a_verdict_when_there_is_no_target) {
  const bench::Row row = figures(13, 10, bench::noTarget);
  EXPECT_EQ(bench::measure(row, 1).verdict, Verdict::NoTarget);
  EXPECT_EQ(printed(row),
            "work  size  ours        floor or peer     ratio  target  verdict\n"
            "work  size  13.0 bytes  floor 10.0 bytes  1.300  -       no target\n");
}

TEST_F(MeasurementTest, takes_turns_and_compares_medians_without_the_first_turn) {
  auto order = std::make_shared<std::string>();
  auto values = std::make_shared<std::vector<double>>(std::vector<double>{900, 5, 100, 7});
  bench::Row row = figures(0, 0, 1);
  row.ours.figure = [=] {
    *order += 'o';
    const double value = values->front();
    values->erase(values->begin());
    return value;
  };
  row.against->figure = [=] {
    *order += 'f';
    return 10.0;
  };
  const bench::Result result = bench::measure(row, 3);
  EXPECT_EQ(*order, "ofofofof");
  EXPECT_EQ(result.ours, 7);
  EXPECT_EQ(result.ratio, 0.7);
}

TEST_F(MeasurementTest, measures_the_time_of_one_pass) {
  volatile int sink = 0;
  const auto count = [&sink](int n) {
    return [&sink, n] {
      for (int i = 0; i < n; ++i) sink = i;
    };
  };
  const bench::Row row{.work = "counting",
                       .size = "",
                       .ours = bench::timeOf("ours", count(20000)),
                       .against = bench::timeOf("floor", count(200000)),
                       .target = 0.5};
  const bench::Result result = bench::measure(row, 3);
  EXPECT_EQ(result.verdict, Verdict::Ok) << result.ratio;
  EXPECT_GT(result.ours, 0);
  EXPECT_LT(result.ours, 0.01) << "seconds";
}

TEST_F(MeasurementTest, fails_with_what_was_thrown) {
  const auto failing = [] { throw std::runtime_error("no photograph"); };
  bench::Row row = figures(1, 1, 1);
  row.ours = bench::timeOf("ours", failing);
  EXPECT_EQ(bench::measure(row, 1).verdictText(), "FAILED: no photograph");
  row = figures(1, 1, 1);
  row.against = bench::figureOf("floor", [failing]() -> double {
    failing();
    return 0;
  });
  EXPECT_EQ(bench::measure(row, 1).verdictText(), "FAILED: no photograph");
}

TEST_F(MeasurementTest, is_skipped_with_the_reason_and_not_run) {
  bench::Row row = figures(1, 1, 1);
  row.ours.figure = []() -> double { throw std::runtime_error("was run"); };
  row.skipped = "vipsthumbnail is not installed";
  EXPECT_EQ(bench::measure(row, 1).verdictText(), "skipped: vipsthumbnail is not installed");
}

TEST_F(MeasurementTest, is_printed_with_its_figures_and_the_name_of_the_other_side) {
  EXPECT_EQ(printed(figures(13, 10, 1.2)),
            "work  size  ours        floor or peer     ratio  target  verdict\n"
            "work  size  13.0 bytes  floor 10.0 bytes  1.300  <= 1.2  MISSED\n");
  bench::Row row = figures(1, 1, 1);
  row.skipped = "absent";
  EXPECT_THAT(printed(row), HasSubstr("work  size  -     floor          -      <= 1    skipped"));
}
