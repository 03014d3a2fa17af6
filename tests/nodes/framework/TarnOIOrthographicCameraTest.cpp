#include "nodes/framework/TarnOIOrthographicCamera.h"

#include <Inventor/SbViewVolume.h>
#include <Inventor/SbViewportRegion.h>
#include <Inventor/engines/SoCalculator.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

class TarnOIOrthographicCameraTest : public TarnTest {
protected:
  TarnOIOrthographicCameraTest() {
    setCorners(*camera);
    camera->nearDistance.setValue(3);
    camera->farDistance.setValue(100);
  }
  static void setCorners(TarnOIOrthographicCamera& camera) {
    camera.SetLLF(-1, -1, 2);
    camera.SetLRF(1, -1, 2);
    camera.SetULF(-1, 1, 2);
  }
  // Where a point is seen, 0 to 1 from the lower left.
  static SbVec3f seen(const SbViewVolume& volume, const SbVec3f& point) {
    SbVec3f result;
    volume.projectToScreen(point, result);
    return result;
  }
  static void expectNear(const SbVec3f& actual, const SbVec3f& expected) {
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(actual[i], expected[i], 1e-5) << "component " << i;
  }

  NodeRef<TarnOIOrthographicCamera> camera = makeNode<TarnOIOrthographicCamera>();
};

TEST_F(TarnOIOrthographicCameraTest, TheCornersGiveABoxBetweenTheFieldsDistances) {
  const SbViewVolume volume = camera->getViewVolume();
  EXPECT_EQ(volume.getProjectionType(), SbViewVolume::ORTHOGRAPHIC);
  EXPECT_FLOAT_EQ(volume.getNearDist(), 3) << "the field's, not the corner's";
  EXPECT_FLOAT_EQ(volume.getDepth(), 97);
  EXPECT_FLOAT_EQ(volume.getWidth(), 2);
  EXPECT_FLOAT_EQ(volume.getHeight(), 2);
  expectNear(volume.getProjectionDirection(), SbVec3f(0, 0, -1));
  expectNear(volume.llf, SbVec3f(-1, -1, -3));
  expectNear(volume.lrf, SbVec3f(1, -1, -3));
  expectNear(volume.ulf, SbVec3f(-1, 1, -3));
}

TEST_F(TarnOIOrthographicCameraTest, ARectangleOffTheAxisGivesABoxOffTheAxis) {
  camera->SetLLF(-1, 0.5F, 2);
  camera->SetLRF(3, 7, 8);     // of these two only right
  camera->SetULF(9, 1.5F, 8);  // and top count
  const SbViewVolume volume = camera->getViewVolume();
  expectNear(volume.llf, SbVec3f(-1, 0.5F, -3));
  expectNear(volume.lrf, SbVec3f(3, 0.5F, -3));
  expectNear(volume.ulf, SbVec3f(-1, 1.5F, -3));
  const SbVec3f place = seen(volume, SbVec3f(0, 1, -50));
  EXPECT_FLOAT_EQ(place[0], 0.25F);
  EXPECT_FLOAT_EQ(place[1], 0.5F);
}

TEST_F(TarnOIOrthographicCameraTest, PositionAndOrientationTakeNoPart) {
  camera->position.setValue(10, 20, 30);
  camera->orientation.setValue(SbVec3f(1, 2, 3), 0.75F);
  const SbViewVolume volume = camera->getViewVolume();
  expectNear(volume.getProjectionDirection(), SbVec3f(0, 0, -1));
  expectNear(volume.llf, SbVec3f(-1, -1, -3));
  expectNear(volume.lrf, SbVec3f(1, -1, -3));
  expectNear(volume.ulf, SbVec3f(-1, 1, -3));
}

TEST_F(TarnOIOrthographicCameraTest, HeightAspectRatioAndArgumentTakeNoPart) {
  camera->height.setValue(7);
  camera->aspectRatio.setValue(3);
  const SbViewVolume volume = camera->getViewVolume(2.5F);
  EXPECT_FLOAT_EQ(volume.getWidth(), 2);
  EXPECT_FLOAT_EQ(volume.getHeight(), 2);
}

TEST_F(TarnOIOrthographicCameraTest, AConnectedFieldIsBroughtUpToDate) {
  auto* engine = new SoCalculator;
  engine->expression.setValue("oa = 2 * a");
  camera->nearDistance.connectFrom(&engine->oa);
  engine->a.setValue(2);
  EXPECT_FLOAT_EQ(camera->getViewVolume().getNearDist(), 4);
  engine->a.setValue(3);
  EXPECT_FLOAT_EQ(camera->getViewVolume().getNearDist(), 6);
}

TEST_F(TarnOIOrthographicCameraTest, AnswersForAViewportByTheCornersToo) {
  camera->viewportMapping.setValue(SoCamera::LEAVE_ALONE);
  SbViewportRegion result;
  const SbViewVolume volume = camera->getViewVolume(SbViewportRegion(300, 100), result);
  EXPECT_FLOAT_EQ(volume.getNearDist(), 3);
  EXPECT_FLOAT_EQ(volume.getWidth(), 2);
}

TEST_F(TarnOIOrthographicCameraTest, SettingACornerNotifiesNobody) {
  int notified = 0;
  SoNodeSensor sensor([](void* data, SoSensor*) { ++*static_cast<int*>(data); }, &notified);
  sensor.setPriority(0);
  sensor.attach(camera.get());
  setCorners(*camera);
  EXPECT_EQ(notified, 0);
  camera->farDistance.setValue(50);
  EXPECT_EQ(notified, 1);
}

TEST_F(TarnOIOrthographicCameraTest, CopyConstructionAndAssignmentTakeTheCornersAndNoField) {
  camera->SetLLF(-1, 0.5F, 2);
  camera->SetLRF(3, 7, 8);
  camera->SetULF(9, 1.5F, 8);
  const auto expectCorners = [](const TarnOIOrthographicCamera& copy) {
    const SbViewVolume volume = copy.getViewVolume();
    expectNear(volume.llf, SbVec3f(-1, 0.5F, -1));
    expectNear(volume.lrf, SbVec3f(3, 0.5F, -1));
    expectNear(volume.ulf, SbVec3f(-1, 1.5F, -1));
    EXPECT_EQ(copy.nearDistance.getValue(), 1.0F);
    EXPECT_EQ(copy.farDistance.getValue(), 10.0F);
  };
  expectCorners(*makeNode<TarnOIOrthographicCamera>(*camera));
  auto assigned = makeNode<TarnOIOrthographicCamera>();
  *assigned = *camera;
  expectCorners(*assigned);
}

TEST_F(TarnOIOrthographicCameraTest, ANodeCopyHasTheFieldsAndTakesCornersOfItsOwn) {
  camera->position.setValue(10, 20, 30);
  const NodeRef<SoNode> copied(camera->copy());
  auto& copy = static_cast<TarnOIOrthographicCamera&>(*copied);
  ASSERT_EQ(copy.getTypeId(), TarnOIOrthographicCamera::getClassTypeId());
  EXPECT_EQ(copy.position.getValue(), SbVec3f(10, 20, 30));
  copy.SetLLF(-3, -3, 4);
  copy.SetLRF(3, -3, 4);
  copy.SetULF(-3, 3, 4);
  EXPECT_FLOAT_EQ(copy.getViewVolume().getWidth(), 6);
  EXPECT_FLOAT_EQ(camera->getViewVolume().getWidth(), 2);
}
