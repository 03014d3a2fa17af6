#include "bench/Companion.h"

#include "tests/support/TarnTest.h"

#include <cstdlib>
#include <stdexcept>

using ::testing::ElementsAre;
using ::testing::Pair;

namespace {

using Figures = std::map<std::string, double>;

class CompanionTest : public TarnTest {
protected:
  static Figures figuresOf(const std::string& script,
                           const std::vector<std::string>& environment = {}) {
    return bench::Companion("/bin/sh").figures({"-c", script}, environment);
  }
  static std::string failureOf(const std::string& script) {
    try {
      figuresOf(script);
    } catch (const std::runtime_error& problem) {
      return problem.what();
    }
    return "no failure";
  }
};

}  // namespace

TEST_F(CompanionTest, GivesTheFiguresThatItPrints) {
  EXPECT_THAT(figuresOf("echo read_s 1.25; echo points 10000000"),
              ElementsAre(Pair("points", 1e7), Pair("read_s", 1.25)));
}

TEST_F(CompanionTest, PassesOverLinesThatAreNoFigures) {
  EXPECT_THAT(figuresOf("echo Reading 3 files; echo; echo read_s 1; echo frame 5ms; echo done"),
              ElementsAre(Pair("read_s", 1)));
}

TEST_F(CompanionTest, HandsArgumentsOnAsTheyAre) {
  EXPECT_THAT(bench::Companion("/bin/sh").figures({"-c", "echo \"$1\" 1", "sh", "a*$b'"}),
              ElementsAre(Pair("a*$b'", 1)));
}

TEST_F(CompanionTest, AddsToTheEnvironmentAndTakesPrecedenceThere) {
  ASSERT_EQ(setenv("TARN_COMPANION_KEPT", "2", 1), 0);
  ASSERT_EQ(setenv("TARN_COMPANION_CHANGED", "3", 1), 0);
  EXPECT_THAT(figuresOf("echo kept $TARN_COMPANION_KEPT; echo changed $TARN_COMPANION_CHANGED",
                        {"TARN_COMPANION_CHANGED=4"}),
              ElementsAre(Pair("changed", 4), Pair("kept", 2)));
  unsetenv("TARN_COMPANION_KEPT");
  unsetenv("TARN_COMPANION_CHANGED");
}

TEST_F(CompanionTest, TakesMoreThanAPipeHolds) {
  EXPECT_EQ(figuresOf("i=0; while [ $i -lt 9000 ]; do echo figure_$i $i; echo error >&2; "
                      "i=$((i+1)); done")
                .size(),
            9000U);
}

TEST_F(CompanionTest, FailsWithTheLastLineOfItsErrors) {
  EXPECT_EQ(failureOf("echo read_s 1; echo first >&2; echo no OpenGL >&2; exit 3"),
            "sh failed: no OpenGL");
}

TEST_F(CompanionTest, FailsWhenItIsKilled) {
  EXPECT_EQ(failureOf("echo read_s 1; kill -9 $$"), "sh failed");
}

TEST_F(CompanionTest, FailsWithoutAFigure) {
  EXPECT_EQ(failureOf("echo nothing"), "sh printed no figure");
}

TEST_F(CompanionTest, FailsWhenThereIsNone) {
  const bench::Companion absent("tarn_no_such_program");
  EXPECT_THROW(absent.figures({}), std::runtime_error);
}

TEST_F(CompanionTest, SaysWhatIsMissing) {
  EXPECT_EQ(bench::Companion("/bin/sh").missing(), "");
  EXPECT_EQ(bench::Companion("tarn_no_such_program").missing(),
            "tarn_no_such_program was not built");
  EXPECT_EQ(bench::Companion("tarn_no_such_program", "Open3D (package libopen3d-dev)").missing(),
            "tarn_no_such_program was not built: it needs Open3D (package libopen3d-dev)");
}
