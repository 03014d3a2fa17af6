#include "host/classes/VIterator.h"

#include "tests/support/TarnTest.h"

class VIteratorTest : public TarnTest {};

TEST_F(VIteratorTest, GivesEveryObjectInOrderThenNull) {
  tarn::VObject a;
  tarn::VObject b;
  tarn::VOrdCollect collection;
  collection.add(&a);
  collection.add(&b);
  tarn::VIterator iterator(collection);
  EXPECT_EQ(iterator.next(), &a);
  EXPECT_EQ(iterator.next(), &b);
  EXPECT_EQ(iterator.next(), nullptr);
  EXPECT_EQ(iterator.next(), nullptr);
}

TEST_F(VIteratorTest, ResetStartsAgain) {
  tarn::VObject a;
  tarn::VOrdCollect collection;
  collection.add(&a);
  tarn::VIterator iterator(collection);
  iterator.next();
  iterator.reset();
  EXPECT_EQ(iterator.next(), &a);
}

TEST_F(VIteratorTest, SeesWhatIsAddedWhileItWalks) {
  tarn::VObject a;
  tarn::VOrdCollect collection;
  tarn::VIterator iterator(collection);
  EXPECT_EQ(iterator.next(), nullptr);
  collection.add(&a);
  EXPECT_EQ(iterator.next(), &a);
}
