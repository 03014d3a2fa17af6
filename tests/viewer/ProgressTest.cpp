#include "viewer/Progress.h"

#include "tests/support/TarnTest.h"

#include <sstream>

using ::testing::EndsWith;
using ::testing::HasSubstr;

class ProgressTest : public TarnTest {
protected:
  std::ostringstream stream;
};

TEST_F(ProgressTest, SilentWhenNotActive) {
  {
    Progress progress(stream, false);
    progress.report("reading", 0.5);
  }
  EXPECT_EQ(stream.str(), "");
}

TEST_F(ProgressTest, SaysStepAndShare) {
  Progress progress(stream, true);
  progress.report("reading", 0.5);
  EXPECT_THAT(stream.str(), EndsWith("\rreading 50 %"));
}

TEST_F(ProgressTest, ReportsOfOneStepInQuickSuccessionAreWrittenOnce) {
  Progress progress(stream, true);
  for (int i = 0; i < 1000; ++i) progress.report("reading", 0.001 * i);
  EXPECT_LT(stream.str().size(), 500U);
}

TEST_F(ProgressTest, NewStepIsWrittenAtOnceOverTheLongerOldOne) {
  Progress progress(stream, true);
  progress.report("camera stations", 1.0);
  progress.report("drawing", 0.0);
  EXPECT_THAT(stream.str(), EndsWith("\rdrawing 0 %          "));
}

TEST_F(ProgressTest, LineIsTakenAwayAtTheEnd) {
  {
    Progress progress(stream, true);
    progress.report("reading", 0.5);
  }
  EXPECT_THAT(stream.str(), EndsWith("\r            \r"));
}
