#include "bench/dense/CloudWork.h"

#include <gmock/gmock.h>

#include "bench/DenseShapes.h"

#include <stdexcept>
#include <string>
#include <vector>

using ::testing::ElementsAreArray;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

// Writes down what it is asked to do.
class RecordedWork : public bench::CloudWork {
public:
  explicit RecordedWork(bool canDraw) : draws(canDraw) {}

  std::string steps;
  std::string problem;

protected:
  void build() override {
    steps += 'b';
    if (!problem.empty()) throw std::runtime_error(problem);
    EXPECT_EQ(count(), 7);
    EXPECT_THAT(std::vector(positions(), positions() + 21),
                ElementsAreArray(bench::cloudPositions(7)));
  }
  void colour() override { steps += 'c'; }
  void drop() override { steps += 'd'; }
  bool open() override {
    steps += 'o';
    return draws;
  }
  void draw(const bench::View&) override { steps += 'f'; }

private:
  bool draws;
};

// The status, and what was printed.
int run(bench::CloudWork& work, std::string argument, std::string& out, std::string& err) {
  std::string name = "work";
  char* arguments[] = {name.data(), argument.data(), nullptr};
  ::testing::internal::CaptureStdout();
  ::testing::internal::CaptureStderr();
  const int status = work.run(2, arguments);
  out = ::testing::internal::GetCapturedStdout();
  err = ::testing::internal::GetCapturedStderr();
  return status;
}

}  // namespace

TEST(CloudWorkTest, BuildsAndColoursAnewFiveTimesThenDraws) {
  RecordedWork work(true);
  std::string out;
  std::string err;
  EXPECT_EQ(run(work, "7", out, err), 0);
  EXPECT_EQ(work.steps, "bcdbcdbcdbcdbcdofffbcfffff");
  for (const char* figure :
       {"build_ms ", "colour_ms ", "first_ms ", "steady_ms ", "bytes_per_point "}) {
    EXPECT_THAT(out, HasSubstr(figure));
  }
}

TEST(CloudWorkTest, TellsNoFramesWhereItCannotDraw) {
  RecordedWork work(false);
  std::string out;
  std::string err;
  EXPECT_EQ(run(work, "7", out, err), 0);
  EXPECT_EQ(work.steps, "bcdbcdbcdbcdbcdo");
  EXPECT_THAT(out, HasSubstr("colour_ms "));
  EXPECT_THAT(out, Not(HasSubstr("first_ms")));
}

TEST(CloudWorkTest, FailsWithWhatWasThrown) {
  RecordedWork work(true);
  work.problem = "no memory";
  std::string out;
  std::string err;
  EXPECT_EQ(run(work, "7", out, err), 1);
  EXPECT_EQ(err, "no memory\n");
}

TEST(CloudWorkTest, RefusesACountThatIsNone) {
  RecordedWork work(true);
  std::string out;
  std::string err;
  EXPECT_EQ(run(work, "none", out, err), 2);
  EXPECT_EQ(err, "usage: work POINTS\n");
  EXPECT_EQ(work.steps, "");
}
