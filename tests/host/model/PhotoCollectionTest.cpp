#include "host/model/PhotoCollection.h"

#include "tests/support/TarnTest.h"

class PhotoCollectionTest : public TarnTest {
protected:
  tarn::PhotoCollection collection;
};

TEST_F(PhotoCollectionTest, ListsItsPhotographsInTheOrderOfAdding) {
  tarn::Photograph& first = collection.Add();
  tarn::Photograph& second = collection.Add();
  ASSERT_EQ(collection.GetPhotographs().size(), 2);
  EXPECT_EQ(collection.GetPhotographs().at(0), &first);
  EXPECT_EQ(collection.GetPhotographs().at(1), &second);
}

TEST_F(PhotoCollectionTest, FindsAPhotographByItsNumber) {
  collection.Add().SetNumber(12);
  tarn::Photograph& sought = collection.Add();
  sought.SetNumber(3);
  EXPECT_EQ(collection.GetPhotograph(3), &sought);
  EXPECT_EQ(collection.GetPhotograph(4), nullptr);
}

TEST_F(PhotoCollectionTest, FindsNothingInAnEmptyCollection) {
  EXPECT_EQ(collection.GetPhotograph(0), nullptr);
}
