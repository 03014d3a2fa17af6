#include "host/model/ObjectPoint.h"

#include "host/model/ImportedPoint.h"
#include "host/model/MarkedPoint.h"
#include "host/model/Photograph.h"
#include "tests/support/TarnTest.h"

#include <memory>

using tarn::Colour;
using tarn::MarkedPoint;
using tarn::Point3DDouble;
using tarn::Point3DRandom;
using ::testing::ElementsAre;

class ObjectPointTest : public TarnTest {
protected:
  tarn::ObjectPoint point;
};

TEST_F(ObjectPointTest, ANewPointHasNothing) {
  int code = 7;
  int ring = 8;
  EXPECT_EQ(point.GetNumber(), 0);
  EXPECT_EQ(point.GetUserName(), nullptr);
  EXPECT_EQ(point.GetRGBTextureColor(), nullptr);
  EXPECT_EQ(point.GetLinkedImportedPoint(), nullptr);
  EXPECT_FALSE(point.GetTargetCode(code, ring));
  EXPECT_EQ(code, 7);
  EXPECT_EQ(ring, 8);
  EXPECT_FALSE(point.GetFrozen());
  EXPECT_FALSE(point.IsControlPoint(0));
  EXPECT_FALSE(point.HasTState());
  EXPECT_FALSE(point.HasSecondState());
  EXPECT_FALSE(point.HasUsablePosition(0));
  EXPECT_TRUE(point.GetMarkedPoints().empty());
}

TEST_F(ObjectPointTest, AnswersWhatWasSet) {
  tarn::ImportedPoint imported;
  int code = 0;
  int ring = 0;
  point.SetNumber(123456789012L);
  point.SetUserName("corner 7");
  point.SetTargetCode(31, 2);
  point.SetRGBTextureColor(Colour(1, 2, 3));
  point.SetFrozen(2);
  point.SetLinkedImportedPoint(&imported);
  point.SetTState(4);
  point.SetSecondState(8);
  EXPECT_EQ(point.GetNumber(), 123456789012L);
  ASSERT_NE(point.GetUserName(), nullptr);
  EXPECT_STREQ(point.GetUserName()->text(), "corner 7");
  ASSERT_TRUE(point.GetTargetCode(code, ring));
  EXPECT_EQ(code, 31);
  EXPECT_EQ(ring, 2);
  ASSERT_NE(point.GetRGBTextureColor(), nullptr);
  EXPECT_EQ(*point.GetRGBTextureColor(), Colour(1, 2, 3));
  EXPECT_TRUE(point.GetFrozen());
  EXPECT_EQ(point.GetLinkedImportedPoint(), &imported);
  EXPECT_TRUE(point.HasTState());
  EXPECT_TRUE(point.HasSecondState());
}

TEST_F(ObjectPointTest, AUserNameMayBeEmptyAndMayChange) {
  point.SetUserName("");
  ASSERT_NE(point.GetUserName(), nullptr);
  EXPECT_TRUE(point.GetUserName()->isEmpty());
  point.SetUserName("A");
  EXPECT_STREQ(point.GetUserName()->text(), "A");
}

TEST_F(ObjectPointTest, AnInactiveControlPointIsOneOnlyWhenAllAreShown) {
  point.SetControlPoint(1, 1);
  EXPECT_TRUE(point.IsControlPoint(1));
  EXPECT_TRUE(point.IsControlPoint(0));
  point.SetControlPoint(1, 0);
  EXPECT_FALSE(point.IsControlPoint(1));
  EXPECT_TRUE(point.IsControlPoint(0));
  point.SetControlPoint(0, 1);
  EXPECT_FALSE(point.IsControlPoint(0));
}

TEST_F(ObjectPointTest, MarksAreSubPixelWhenThereAreMarksAndAllAre) {
  auto* info = reinterpret_cast<tarn::SubPixelInfo*>(&point);
  EXPECT_FALSE(point.AllMarksAreSubPixel(&info)) << "there are no marks";
  EXPECT_EQ(info, nullptr);
  MarkedPoint exact(nullptr, {1.0, 2.0}, 1);
  MarkedPoint rough(nullptr, {3.0, 4.0}, 0);
  point.AddMarkedPoint(&exact);
  EXPECT_TRUE(point.AllMarksAreSubPixel(nullptr));
  point.AddMarkedPoint(&rough);
  EXPECT_FALSE(point.AllMarksAreSubPixel(nullptr));
}

TEST_F(ObjectPointTest, KeepsItsMarksInOrderAndTiesThemToItself) {
  MarkedPoint a(nullptr, {1.0, 2.0});
  MarkedPoint b(nullptr, {3.0, 4.0});
  point.AddMarkedPoint(&b);
  point.AddMarkedPoint(nullptr);
  point.AddMarkedPoint(&a);
  EXPECT_THAT(point.GetMarkedPoints(), ElementsAre(&b, &a));
  EXPECT_EQ(a.GetObjectPoint(), &point);
  EXPECT_EQ(b.GetObjectPoint(), &point);
}

TEST_F(ObjectPointTest, APositionIsUsableForProcessedOnlyWhenTheAdjustmentComputedIt) {
  point.SetApproximation(Point3DRandom(Point3DDouble{1.0, 2.0, 3.0}));
  EXPECT_TRUE(point.HasUsablePosition(0));
  EXPECT_FALSE(point.HasUsablePosition(1));
  point.SetProcessed(1);
  EXPECT_TRUE(point.HasUsablePosition(1));
}

TEST_F(ObjectPointTest, WithoutPositionNothingIsUsable) {
  point.SetProcessed(1);
  EXPECT_FALSE(point.HasUsablePosition(0));
  EXPECT_FALSE(point.HasUsablePosition(1));
}

TEST_F(ObjectPointTest, ItsRaysAreOneObjectOfItsOwn) {
  tarn::ObjectPoint other;
  tarn::Ray3D* ray = point.GetRay3D();
  ASSERT_NE(ray, nullptr);
  EXPECT_EQ(ray->GetObjectPoint(), &point);
  EXPECT_EQ(point.GetRay3D(), ray);
  EXPECT_NE(other.GetRay3D(), ray);
}

TEST_F(ObjectPointTest, ListsTheMarkedPhotographsOnceEachInTheOrderOfItsTrack) {
  tarn::Photograph first;
  tarn::Photograph second;
  tarn::Photograph without;
  MarkedPoint loose(nullptr, {});
  point.AddMarkedPoint(&second.AddMarkedPoint({1.0, 2.0}));
  point.AddMarkedPoint(&loose);
  point.AddMarkedPoint(&first.AddMarkedPoint({3.0, 4.0}));
  point.AddMarkedPoint(&second.AddMarkedPoint({5.0, 6.0}));
  without.AddMarkedPoint({7.0, 8.0});
  const std::unique_ptr<tarn::VOrdCollect> photographs(point.GetPhotographs(4));
  ASSERT_EQ(photographs->size(), 2);
  EXPECT_EQ(photographs->at(0), &second);
  EXPECT_EQ(photographs->at(1), &first);
}

TEST_F(ObjectPointTest, APointWithoutMarksHasNoPhotographsAndEachCallGivesANewCollection) {
  const std::unique_ptr<tarn::VOrdCollect> one(point.GetPhotographs(4));
  const std::unique_ptr<tarn::VOrdCollect> two(point.GetPhotographs(4));
  EXPECT_EQ(one->size(), 0);
  EXPECT_NE(one, two);
}

TEST_F(ObjectPointTest, PointsAndMarksAreSmall) {
  // They come by the hundred thousand.
  EXPECT_LE(sizeof(tarn::ObjectPoint), 160U);
  EXPECT_LE(sizeof(MarkedPoint), 64U);
}
