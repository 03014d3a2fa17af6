#include "host/model/PhotoCollection.h"

#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/ObjectPoint.h"
#include "host/model/SurfaceElement.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <deque>
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

// A triangle about the origin in the plane z = 0, its front up, and stations that look at the
// origin.
class BestFacePhotoTest : public PhotoCollectionTest {
protected:
  BestFacePhotoTest() {
    place(0, {2.0, 0.0, 0.0});
    place(1, {-1.0, 1.5, 0.0});
    place(2, {-1.0, -1.5, 0.0});
    camera.SetFocalLength(36.0);
    camera.SetFormatSize(36.0, 24.0);
    camera.SetImageSize(900, 600);
    camera.SetPrincipalPoint({450.0, 300.0});
  }
  void place(int corner, const tarn::Point3DDouble& position) {
    corners[corner].SetApproximation(tarn::Point3DRandom(position));
  }

  /// A photograph from that distance, so many degrees away from straight above.
  tarn::Photograph& addPhotograph(double distance, double degrees) {
    const double angle = degrees * M_PI / 180.0;
    tarn::CameraStation& station = stations.emplace_back();
    tarn::MatrixDouble rotation(3, 3);  // turned about y: right, up, back
    rotation(1, 1) = std::cos(angle);
    rotation(1, 3) = -std::sin(angle);
    rotation(2, 2) = 1.0;
    rotation(3, 1) = std::sin(angle);
    rotation(3, 3) = std::cos(angle);
    station.SetOrientation({distance * std::sin(angle), 0.0, distance * std::cos(angle)}, rotation);
    station.SetCamera(&camera);
    tarn::Photograph& photograph = collection.Add();
    photograph.SetCameraStation(&station);
    return photograph;
  }
  const tarn::Photograph* best() { return collection.GetBestFacePhoto(&element); }

  tarn::Camera camera;
  std::deque<tarn::CameraStation> stations;
  tarn::ObjectPoint corners[3];
  tarn::SurfaceElement element{&corners[0], &corners[1], &corners[2]};
};

TEST_F(BestFacePhotoTest, IsTheOneThatShowsTheTriangleLargest) {
  addPhotograph(20.0, 0.0);
  const tarn::Photograph& near = addPhotograph(10.0, 0.0);
  addPhotograph(15.0, 0.0);
  EXPECT_EQ(best(), &near);
}

TEST_F(BestFacePhotoTest, IsTheOneThatLooksAtItMostSquarely) {
  addPhotograph(10.0, 50.0);
  const tarn::Photograph& square = addPhotograph(10.0, 5.0);
  addPhotograph(10.0, -30.0);
  EXPECT_EQ(best(), &square);
}

// At 60 degrees the area is half, and the cosine again: as much as from twice the distance.
TEST_F(BestFacePhotoTest, SizeAndSquarenessAreWeighedAsTheirProduct) {
  place(0, {0.02, 0.0, 0.0});  // small, so that its perspective does not matter
  place(1, {-0.01, 0.015, 0.0});
  place(2, {-0.01, -0.015, 0.0});
  addPhotograph(10.0, 60.0);
  const tarn::Photograph& straight = addPhotograph(19.9, 0.0);
  EXPECT_EQ(best(), &straight);
  const tarn::Photograph& oblique = addPhotograph(9.8, 60.0);
  EXPECT_EQ(best(), &oblique);
}

TEST_F(BestFacePhotoTest, PartOfThePictureCountsAndNotItsPixels) {
  const tarn::Photograph& wide = addPhotograph(10.0, 0.0);
  tarn::Camera fine;  // ten times the pixels, on a shorter lens
  fine.SetFocalLength(30.0);
  fine.SetFormatSize(36.0, 24.0);
  fine.SetImageSize(9000, 6000);
  fine.SetPrincipalPoint({4500.0, 3000.0});
  addPhotograph(10.0, 0.0);
  stations.back().SetCamera(&fine);
  EXPECT_EQ(best(), &wide);
}

TEST_F(BestFacePhotoTest, AFrontComesBeforeABackHoweverLarge) {
  addPhotograph(10.0, 180.0);
  const tarn::Photograph& front = addPhotograph(60.0, 70.0);
  EXPECT_EQ(best(), &front);
}

TEST_F(BestFacePhotoTest, WhereNoneShowsTheFrontItIsTheBestBack) {
  addPhotograph(20.0, 180.0);
  const tarn::Photograph& back = addPhotograph(10.0, 170.0);
  EXPECT_EQ(best(), &back);
}

TEST_F(BestFacePhotoTest, OfEqualOnesItIsTheFirst) {
  const tarn::Photograph& first = addPhotograph(10.0, 0.0);
  addPhotograph(10.0, 0.0);
  EXPECT_EQ(best(), &first);
}

TEST_F(BestFacePhotoTest, APhotographThatShowsNotAllOfItIsNone) {
  addPhotograph(3.0, 0.0);  // a corner is 2 / 3 of the focal length off the middle
  EXPECT_EQ(best(), nullptr);
  const tarn::Photograph& far = addPhotograph(30.0, 40.0);
  EXPECT_EQ(best(), &far);
}

TEST_F(BestFacePhotoTest, ATriangleThatReachesBehindAStationIsNotShownByIt) {
  addPhotograph(10.0, 0.0);
  place(2, {-1.0, -1.5, 11.0});
  EXPECT_EQ(best(), nullptr);
}

TEST_F(BestFacePhotoTest, ATriangleWithoutAreaHasNone) {
  addPhotograph(10.0, 0.0);
  place(2, {2.0, 0.0, 0.0});
  EXPECT_EQ(best(), nullptr);
}

TEST_F(BestFacePhotoTest, StationsMustBeThereOrientedAndHaveACameraOfSomeSize) {
  collection.Add();
  addPhotograph(10.0, 0.0);
  stations.back().SetOriented(0);
  addPhotograph(10.0, 0.0);
  stations.back().SetCamera(nullptr);
  tarn::Camera sizeless = camera;
  sizeless.SetImageSize(0, 0);
  addPhotograph(10.0, 0.0);
  stations.back().SetCamera(&sizeless);
  EXPECT_EQ(best(), nullptr);
}

TEST_F(BestFacePhotoTest, ATriangleMustBeThereWithAllItsPositions) {
  addPhotograph(10.0, 0.0);
  EXPECT_EQ(collection.GetBestFacePhoto(nullptr), nullptr);
  tarn::SurfaceElement incomplete(&corners[0], &corners[1], nullptr);
  EXPECT_EQ(collection.GetBestFacePhoto(&incomplete), nullptr);
  tarn::ObjectPoint nowhere;
  tarn::SurfaceElement withoutPosition(&corners[0], &corners[1], &nowhere);
  EXPECT_EQ(collection.GetBestFacePhoto(&withoutPosition), nullptr);
  EXPECT_NE(best(), nullptr);
}

TEST_F(BestFacePhotoTest, AnEmptyCollectionHasNone) { EXPECT_EQ(best(), nullptr); }
