#include "host/general/warning.h"

#include "tests/support/TarnTest.h"

#include <string>

using ::testing::ElementsAre;

class WarningTest : public TarnTest {};

TEST_F(WarningTest, ReachesTheHandlerFilledIn) {
  tarn::warning("%s:%d: %.2f of %s", "a.ini", 3, 0.5, "100%");
  EXPECT_THAT(takeWarnings(), ElementsAre("a.ini:3: 0.50 of 100%"));
}

TEST_F(WarningTest, HoldsAnyLength) {
  const std::string longText(50000, 'x');
  tarn::warning("<%s>", longText.c_str());
  EXPECT_THAT(takeWarnings(), ElementsAre("<" + longText + ">"));
}

TEST_F(WarningTest, WithoutHandlerPrintsOneLine) {
  const tarn::WarningHandler recording = tarn::setWarningHandler(nullptr);
  ::testing::internal::CaptureStderr();
  tarn::warning("%d photographs", 12);
  EXPECT_EQ(::testing::internal::GetCapturedStderr(), "warning: 12 photographs\n");
  EXPECT_EQ(tarn::setWarningHandler(recording), nullptr);
}
