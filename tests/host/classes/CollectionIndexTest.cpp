#include "host/classes/CollectionIndex.h"

#include "tests/support/TarnTest.h"

#include <algorithm>
#include <deque>
#include <memory>
#include <vector>

using tarn::CollectionIndex;

class CollectionIndexTest : public TarnTest {
protected:
  tarn::VOrdCollect collection;
  tarn::VObject objects[3];
};

TEST_F(CollectionIndexTest, OfAnEmptyCollectionFindsNothing) {
  const CollectionIndex index(collection);
  EXPECT_EQ(index.indexOf(&objects[0]), -1);
  EXPECT_EQ(index.indexOf(nullptr), -1);
}

TEST_F(CollectionIndexTest, FindsWhatTheCollectionHeld) {
  collection.add(&objects[2]);
  collection.add(&objects[0]);
  const CollectionIndex index(collection);
  EXPECT_EQ(index.indexOf(&objects[2]), 0);
  EXPECT_EQ(index.indexOf(&objects[0]), 1);
  EXPECT_EQ(index.indexOf(&objects[1]), -1);
}

TEST_F(CollectionIndexTest, FindsTheFirstOfSeveralAndNoNull) {
  collection.add(nullptr);
  collection.add(&objects[0]);
  collection.add(&objects[0]);
  collection.add(&objects[1]);
  const CollectionIndex index(collection);
  EXPECT_EQ(index.indexOf(&objects[0]), 1);
  EXPECT_EQ(index.indexOf(&objects[1]), 3);
  EXPECT_EQ(index.indexOf(nullptr), -1);
}

TEST_F(CollectionIndexTest, AddsAnObjectOnce) {
  CollectionIndex index(collection);
  EXPECT_EQ(index.add(&objects[0]), 0);
  EXPECT_EQ(index.add(&objects[1]), 1);
  EXPECT_EQ(index.add(&objects[0]), 0);
  EXPECT_EQ(index.add(nullptr), -1);
  ASSERT_EQ(collection.size(), 2);
  EXPECT_EQ(collection.at(0), &objects[0]);
  EXPECT_EQ(collection.at(1), &objects[1]);
  EXPECT_EQ(index.indexOf(&objects[1]), 1);
}

TEST_F(CollectionIndexTest, AddsToWhatWasThere) {
  collection.add(&objects[1]);
  CollectionIndex index(collection);
  EXPECT_EQ(index.add(&objects[1]), 0);
  EXPECT_EQ(index.add(&objects[0]), 1);
  EXPECT_EQ(index.indexOf(&objects[0]), 1);
}

TEST_F(CollectionIndexTest, FindsEachOfManyWhileItGrows) {
  std::deque<tarn::VObject> many(100000);
  CollectionIndex index(collection);
  int count = 0;
  for (tarn::VObject& object : many) ASSERT_EQ(index.add(&object), count++);
  tarn::VObject other;
  EXPECT_EQ(index.indexOf(&other), -1);
  const CollectionIndex read(collection);
  for (std::size_t i = 0; i < many.size(); ++i) {
    ASSERT_EQ(index.indexOf(&many[i]), static_cast<int>(i));
    ASSERT_EQ(read.indexOf(&many[i]), static_cast<int>(i));
  }
}

// Objects at the same place in each page, which the page's part of the table alone would mix up.
TEST_F(CollectionIndexTest, FindsObjectsThatLieAPageApart) {
  constexpr std::size_t page = 4096;
  constexpr std::size_t count = 2000;
  const auto memory = std::make_unique<std::byte[]>((count + 1) * page);
  std::vector<tarn::VObject*> apart;
  for (std::size_t i = 0; i < count; ++i) {
    apart.push_back(new (memory.get() + i * page) tarn::VObject);
    collection.add(apart.back());
  }
  const CollectionIndex index(collection);
  for (std::size_t i = 0; i < count; ++i) ASSERT_EQ(index.indexOf(apart[i]), static_cast<int>(i));
  for (tarn::VObject* object : apart) std::destroy_at(object);
}
