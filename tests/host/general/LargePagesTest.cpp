#include "host/general/LargePages.h"

#include "tests/support/TarnTest.h"

#include <algorithm>
#include <vector>

class LargePagesTest : public TarnTest {};

TEST_F(LargePagesTest, AdviceChangesNothing) {
  std::vector<int> numbers(3'000'000, 7);
  tarn::adviseLargePages(numbers.data(), numbers.size() * sizeof(int));
  tarn::adviseLargePages(numbers.data() + 1, 5'000'000);  // not at the start of a page
  EXPECT_EQ(std::ranges::count(numbers, 7), 3'000'000);
}

TEST_F(LargePagesTest, MakingThemChangesNothing) {
  std::vector<int> numbers(3'000'000, 7);
  tarn::makeLargePages(numbers.data(), numbers.size() * sizeof(int));
  tarn::makeLargePages(numbers.data() + 1, 5'000'000);
  tarn::makeLargePages(nullptr, 0);
  EXPECT_EQ(std::ranges::count(numbers, 7), 3'000'000);
}

TEST_F(LargePagesTest, NoMemoryAndLittleMemoryAreNothingToAdviseOn) {
  int number = 7;
  tarn::adviseLargePages(nullptr, 0);
  tarn::adviseLargePages(&number, sizeof number);
  EXPECT_EQ(number, 7);
}
