#include "host/classes/VOrdCollect.h"

#include "tests/support/TarnTest.h"

#include <malloc.h>

using tarn::VOrdCollect;

class VOrdCollectTest : public TarnTest {};

TEST_F(VOrdCollectTest, KeepsObjectsInTheOrderOfAdding) {
  tarn::VObject a;
  tarn::VObject b;
  VOrdCollect collection;
  collection.add(&b);
  collection.add(&a);
  collection.add(&b);
  ASSERT_EQ(collection.size(), 3);
  EXPECT_EQ(collection.at(0), &b);
  EXPECT_EQ(collection.at(1), &a);
  EXPECT_EQ(collection.at(2), &b);
}

TEST_F(VOrdCollectTest, AnswersNullOrZeroOutside) {
  tarn::VObject object;
  VOrdCollect collection;
  collection.add(&object);
  EXPECT_EQ(collection.at(-1), nullptr);
  EXPECT_EQ(collection.at(1), nullptr);
  EXPECT_EQ(collection.indexAt(-1), 0);
  EXPECT_EQ(collection.indexAt(1), 0);
}

TEST_F(VOrdCollectTest, IndexOfGivesTheFirstPlaceByIdentity) {
  tarn::VObject a;
  tarn::VObject b;
  VOrdCollect collection;
  collection.add(&a);
  collection.add(&b);
  collection.add(&b);
  EXPECT_EQ(collection.indexOf(&a), 0);
  EXPECT_EQ(collection.indexOf(&b), 1);
  const tarn::VObject absent;
  EXPECT_EQ(collection.indexOf(&absent), -1);
}

TEST_F(VOrdCollectTest, KeepsIndexesAsTheyAre) {
  VOrdCollect collection;
  for (const int index : {7, 0, -3, 2147483647}) collection.addIndex(index);
  EXPECT_EQ(collection.indexAt(0), 7);
  EXPECT_EQ(collection.indexAt(1), 0);
  EXPECT_EQ(collection.indexAt(2), -3);
  EXPECT_EQ(collection.indexAt(3), 2147483647);
}

TEST_F(VOrdCollectTest, CapacityAddsNoSlots) {
  EXPECT_EQ(VOrdCollect(4).size(), 0);
  EXPECT_EQ(VOrdCollect(-4).size(), 0);
}

TEST_F(VOrdCollectTest, ClearLeavesNothing) {
  VOrdCollect collection;
  collection.addIndex(1);
  collection.clear();
  EXPECT_EQ(collection.size(), 0);
}

TEST_F(VOrdCollectTest, AMillionIndexesCostEightBytesEach) {
  constexpr int count = 1'000'000;
  const auto inUse = [] {
    const struct mallinfo2 info = mallinfo2();
    return info.uordblks + info.hblkhd;
  };
  const std::size_t before = inUse();
  VOrdCollect selection(count);
  for (int i = 0; i < count; ++i) selection.addIndex(i);
  const std::size_t after = inUse();
  ASSERT_EQ(selection.size(), count);
  EXPECT_EQ(selection.indexAt(count - 1), count - 1);
  // A sanitizer's allocator does not count here, which makes the difference 0. A page or
  // two more is what the allocator rounds up.
  EXPECT_LE(after - before, 8U * count + 16384U);
}
