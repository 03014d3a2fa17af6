#include "bench/Summary.h"

#include <gmock/gmock.h>

#include <sstream>

namespace {

bench::Row row(const std::string& work) {
  return {.work = work, .size = "many", .ours = {}, .against = {}};
}

bench::Result result(bench::Result::Verdict verdict, const std::string& reason = {}) {
  bench::Result made;
  made.verdict = verdict;
  made.reason = reason;
  return made;
}

std::string printed(const bench::Summary& summary, bool check) {
  std::ostringstream out;
  summary.print(out, check);
  return out.str();
}

using Verdict = bench::Result::Verdict;

TEST(SummaryTest, CountsEveryVerdict) {
  bench::Summary summary;
  summary.add(row("a"), result(Verdict::Ok));
  summary.add(row("b"), result(Verdict::Ok));
  summary.add(row("c"), result(Verdict::Missed));
  summary.addFailure();
  EXPECT_EQ(printed(summary, false), "2 ok, 1 missed, 0 skipped, 1 failed\n");
}

TEST(SummaryTest, CheckNamesWhatItCouldNotCheck) {
  bench::Summary summary;
  summary.add(row("reduce"), result(Verdict::Skipped, "vipsthumbnail is not installed"));
  EXPECT_EQ(printed(summary, true),
            "NOT CHECKED: reduce, many: vipsthumbnail is not installed\n"
            "0 ok, 0 missed, 1 skipped, 0 failed\n");
  EXPECT_EQ(printed(summary, false), "0 ok, 0 missed, 1 skipped, 0 failed\n");
}

TEST(SummaryTest, RowsWithoutATargetAreCountedApartAndFailNothing) {
  bench::Summary summary;
  summary.add(row("a"), result(Verdict::Ok));
  summary.add(row("b"), result(Verdict::NoTarget));
  EXPECT_EQ(printed(summary, true), "1 ok, 0 missed, 0 skipped, 0 failed, 1 without a target\n");
  EXPECT_EQ(summary.exitStatus(true), 0);
}

TEST(SummaryTest, MissedTargetFailsOnlyACheck) {
  bench::Summary summary;
  summary.add(row("a"), result(Verdict::Missed));
  EXPECT_EQ(summary.exitStatus(false), 0);
  EXPECT_EQ(summary.exitStatus(true), 1);
  summary.addFailure();
  EXPECT_EQ(summary.exitStatus(false), 1);
}

}  // namespace
