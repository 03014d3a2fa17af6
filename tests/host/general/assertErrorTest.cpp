#include "host/general/assertError.h"

#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;

class AssertErrorTest : public TarnTest {};

TEST_F(AssertErrorTest, ReachesTheHandlerAndReturns) {
  tarn::assertError("pointPos", "TarnOIObjectPointSeparator", 12);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("pointPos", "TarnOIObjectPointSeparator", 12)));
}

TEST_F(AssertErrorTest, WithoutHandlerPrintsOneLineAndReturns) {
  const tarn::AssertHandler recording = tarn::setAssertHandler(nullptr);
  ::testing::internal::CaptureStderr();
  tarn::assertError("100%s > %n", "Name", 7);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Name:7: assertion failed: 100%s > %n\n");
  EXPECT_EQ(tarn::setAssertHandler(recording), nullptr);
}

TEST_F(AssertErrorTest, InstallingReturnsThePreviousHandler) {
  const tarn::AssertHandler own = [](const char*, const char*, int) {};
  const tarn::AssertHandler recording = tarn::setAssertHandler(own);
  EXPECT_EQ(tarn::setAssertHandler(recording), own);
}
