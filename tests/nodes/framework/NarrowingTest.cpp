#include "nodes/framework/Narrowing.h"

#include "tests/support/TarnTest.h"

class NarrowingTest : public TarnTest {};

TEST_F(NarrowingTest, GivesTheValueThatAFloatHolds) {
  EXPECT_EQ(Narrowing::narrowed(0.1), 0.100000001490116119384765625);
  EXPECT_EQ(Narrowing::narrowed(-4512345.123), -4512345.0);
  EXPECT_EQ(Narrowing::narrowed(0.25), 0.25);
}
