#include "nodes/framework/FrontRectangle.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/engines/SoCalculator.h>

#include "nodes/framework/TarnOIOrthographicCamera.h"
#include "nodes/framework/TarnOIPerspectiveCamera.h"
#include "tests/nodes/framework/FrontRectangleFixture.h"
#include "tests/support/SignalCount.h"

/// What both cameras do alike; each has a test of what is its own.
template <typename Camera>
class FrontRectangleTest : public FrontRectangleFixture<Camera> {
protected:
  // A rectangle off the axis: of its second and third corner only right and top count.
  void moveOffTheAxis() {
    this->camera->SetLLF(-1, 0.5F, 2);
    this->camera->SetLRF(3, 7, 8);
    this->camera->SetULF(9, 1.5F, 8);
  }
  void expectOffTheAxis(const Camera& camera) {
    this->expectCorners(camera.getViewVolume(), SbVec3f(-1, 0.5F, -2), SbVec3f(3, 0.5F, -2),
                        SbVec3f(-1, 1.5F, -2));
  }
};
using Cameras = ::testing::Types<TarnOIPerspectiveCamera, TarnOIOrthographicCamera>;
TYPED_TEST_SUITE(FrontRectangleTest, Cameras);

TYPED_TEST(FrontRectangleTest, TheCornersGiveTheFrontOfTheViewVolume) {
  const SbViewVolume volume = this->camera->getViewVolume();
  EXPECT_FLOAT_EQ(volume.getWidth(), 2);
  EXPECT_FLOAT_EQ(volume.getHeight(), 2);
  EXPECT_FLOAT_EQ(volume.getDepth(), 98);
  this->expectNear(volume.getProjectionDirection(), SbVec3f(0, 0, -1));
  this->expectCorners(volume, SbVec3f(-1, -1, -2), SbVec3f(1, -1, -2), SbVec3f(-1, 1, -2));
}

TYPED_TEST(FrontRectangleTest, LeftAndBottomRightTopComeFromTheirCorner) {
  this->moveOffTheAxis();
  this->expectOffTheAxis(*this->camera);
}

TYPED_TEST(FrontRectangleTest, AspectRatioAndArgumentTakeNoPart) {
  this->camera->aspectRatio.setValue(3);
  const SbViewVolume volume = this->camera->getViewVolume(2.5F);
  EXPECT_FLOAT_EQ(volume.getWidth(), 2);
  EXPECT_FLOAT_EQ(volume.getHeight(), 2);
}

TYPED_TEST(FrontRectangleTest, AConnectedFieldIsBroughtUpToDate) {
  auto* engine = new SoCalculator;
  engine->expression.setValue("oa = 2 * a");
  this->camera->farDistance.connectFrom(&engine->oa);
  engine->a.setValue(20);
  EXPECT_FLOAT_EQ(this->camera->getViewVolume().getDepth(), 38);
  engine->a.setValue(30);
  EXPECT_FLOAT_EQ(this->camera->getViewVolume().getDepth(), 58);
}

TYPED_TEST(FrontRectangleTest, AnswersForAViewportByTheCornersToo) {
  this->camera->viewportMapping.setValue(SoCamera::LEAVE_ALONE);
  SbViewportRegion result;
  const SbViewVolume volume = this->camera->getViewVolume(SbViewportRegion(300, 100), result);
  EXPECT_FLOAT_EQ(volume.getNearDist(), 2);
  EXPECT_FLOAT_EQ(volume.getWidth(), 2);
}

TYPED_TEST(FrontRectangleTest, SettingACornerNotifiesNobody) {
  SignalCount signals(this->camera.get());
  this->moveOffTheAxis();
  EXPECT_EQ(signals.count(), 0);
  this->camera->farDistance.setValue(50);
  EXPECT_EQ(signals.count(), 1);
}

TYPED_TEST(FrontRectangleTest, CopyConstructionAndAssignmentTakeTheCornersAndNoField) {
  this->moveOffTheAxis();
  const auto expectCornersOnly = [this](TypeParam& copy) {
    EXPECT_EQ(copy.position.getValue(), SbVec3f(0, 0, 1)) << "that of a new camera";
    EXPECT_EQ(copy.nearDistance.getValue(), 1.0F);
    EXPECT_EQ(copy.farDistance.getValue(), 10.0F);
    copy.position.setValue(0, 0, 0);
    copy.nearDistance.setValue(2);
    this->expectOffTheAxis(copy);
  };
  expectCornersOnly(*makeNode<TypeParam>(*this->camera));
  auto assigned = makeNode<TypeParam>();
  *assigned = *this->camera;
  expectCornersOnly(*assigned);
}

TYPED_TEST(FrontRectangleTest, ANodeCopyHasTheFieldsAndTakesCornersOfItsOwn) {
  this->camera->position.setValue(10, 20, 30);
  const NodeRef<SoNode> copied(this->camera->copy());
  auto& copy = static_cast<TypeParam&>(*copied);
  ASSERT_EQ(copy.getTypeId(), TypeParam::getClassTypeId());
  EXPECT_EQ(copy.position.getValue(), SbVec3f(10, 20, 30));
  copy.SetLLF(-3, -3, 4);
  copy.SetLRF(3, -3, 4);
  copy.SetULF(-3, 3, 4);
  EXPECT_FLOAT_EQ(copy.getViewVolume().getWidth(), 6);
  EXPECT_FLOAT_EQ(this->camera->getViewVolume().getWidth(), 2);
}
