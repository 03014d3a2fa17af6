#include "host/model/PhotoCollection.h"

#include "host/model/CameraStation.h"
#include "tests/support/TarnTest.h"

#include <memory>

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

class PhotoTypeTest : public PhotoCollectionTest {
protected:
  PhotoTypeTest() {
    oriented.SetOriented(1);
    collection.Add();
    collection.Add().SetCameraStation(&notOriented);
    collection.Add().SetCameraStation(&oriented);
  }
  int countOf(int type) const {
    const std::unique_ptr<tarn::VOrdCollect> found(collection.GetPhotographsByType(type, nullptr));
    return found->size();
  }

  tarn::CameraStation oriented;
  tarn::CameraStation notOriented;
};

TEST_F(PhotoTypeTest, TypeSevenAreThePhotographsOfOrientedStations) {
  const std::unique_ptr<tarn::VOrdCollect> found(collection.GetPhotographsByType(7, nullptr));
  ASSERT_EQ(found->size(), 1);
  EXPECT_EQ(found->at(0), collection.GetPhotographs().at(2));
}

TEST_F(PhotoTypeTest, TypeZeroAreAll) { EXPECT_EQ(countOf(0), 3); }

TEST_F(PhotoTypeTest, ThereAreNoneOfATypeThatIsNotKnown) {
  EXPECT_EQ(countOf(-1), 0);
  EXPECT_EQ(countOf(3), 0);
}
