#include "tests/support/Baseline.h"

#include <gtest/gtest-spi.h>

#include "tests/support/TarnTest.h"

#include <cstdlib>
#include <filesystem>

namespace {

// A picture of one grey with one pixel of another.
Picture picture(int grey, int odd) {
  Picture result(4, 3);
  result.bytes.assign(result.bytes.size(), static_cast<std::uint8_t>(grey));
  for (std::size_t i = 0; i < 3; ++i) result.bytes[i] = static_cast<std::uint8_t>(odd);
  return result;
}

// A folder with one baseline, of one grey.
class BaselineTest : public TarnTest {
protected:
  BaselineTest() {
    unsetenv("TARN_ACCEPT_BASELINES");
    picture(100, 100).writePng(folder.file(own + ".png"));
  }
  void compare(const Picture& drawn, const Baseline::Tolerance& tolerance) const {
    Baseline::expectMatch(drawn, own, tolerance, folder.path());
  }
  TemporaryFolder folder;
  // Tests run side by side, and each may save its picture.
  const std::string own =
      std::string("baseline_") + ::testing::UnitTest::GetInstance()->current_test_info()->name();
};

}  // namespace

TEST_F(BaselineTest, SamePicturePasses) { compare(picture(100, 100), {0, 0.0}); }

TEST_F(BaselineTest, DifferenceWithinBothTolerancesPasses) {
  compare(picture(100, 112), {12, 1.0});
}

TEST_F(BaselineTest, OnePixelBeyondTheMaximumFails) {
  EXPECT_NONFATAL_FAILURE(compare(picture(100, 112), {11, 255.0}), "maximum 12 (allowed 11)");
}

TEST_F(BaselineTest, AllPixelsBeyondTheMeanFail) {
  EXPECT_NONFATAL_FAILURE(compare(picture(102, 102), {255, 1.5}), "mean 2 (allowed 1.5)");
}

TEST_F(BaselineTest, PictureOfAnotherSizeFails) {
  EXPECT_NONFATAL_FAILURE(compare(Picture(3, 4), {255, 255.0}), "3 x 4");
}

TEST_F(BaselineTest, MissingBaselineFailsAndThePictureIsKept) {
  std::filesystem::remove(folder.file(own + ".png"));
  EXPECT_NONFATAL_FAILURE(compare(picture(1, 2), {255, 255.0}),
                          "failed-pictures/baseline_MissingBaselineFailsAndThePictureIsKept.png");
}

TEST_F(BaselineTest, AcceptedPictureBecomesTheBaseline) {
  setenv("TARN_ACCEPT_BASELINES", "1", 1);
  compare(picture(7, 9), {0, 0.0});
  unsetenv("TARN_ACCEPT_BASELINES");
  compare(picture(7, 9), {0, 0.0});
}
