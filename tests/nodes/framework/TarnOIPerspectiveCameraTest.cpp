#include "nodes/framework/TarnOIPerspectiveCamera.h"

#include <Inventor/SbViewVolume.h>
#include <Inventor/SbViewportRegion.h>
#include <Inventor/engines/SoComposeVec3f.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

#include <cmath>

class TarnOIPerspectiveCameraTest : public TarnTest {
protected:
  TarnOIPerspectiveCameraTest() {
    setCorners(*camera);
    camera->position.setValue(0, 0, 0);
    camera->farDistance.setValue(100);
  }
  static void setCorners(TarnOIPerspectiveCamera& camera) {
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

  NodeRef<TarnOIPerspectiveCamera> camera = makeNode<TarnOIPerspectiveCamera>();
};

TEST_F(TarnOIPerspectiveCameraTest, TheCornersGiveAFrustumAtTheirDistance) {
  const SbViewVolume volume = camera->getViewVolume();
  EXPECT_EQ(volume.getProjectionType(), SbViewVolume::PERSPECTIVE);
  EXPECT_FLOAT_EQ(volume.getNearDist(), 2);
  EXPECT_FLOAT_EQ(volume.getDepth(), 98);
  EXPECT_FLOAT_EQ(volume.getWidth(), 2);
  EXPECT_FLOAT_EQ(volume.getHeight(), 2);
  expectNear(volume.getProjectionPoint(), SbVec3f(0, 0, 0));
  expectNear(volume.getProjectionDirection(), SbVec3f(0, 0, -1));
  expectNear(volume.llf, SbVec3f(-1, -1, -2));
  expectNear(volume.lrf, SbVec3f(1, -1, -2));
  expectNear(volume.ulf, SbVec3f(-1, 1, -2));
}

TEST_F(TarnOIPerspectiveCameraTest, ARectangleOffTheAxisGivesALopsidedFrustum) {
  camera->SetLLF(-1, 0.5F, 2);
  camera->SetLRF(3, 7, 8);     // of these two only right
  camera->SetULF(9, 1.5F, 8);  // and top count
  const SbViewVolume volume = camera->getViewVolume();
  expectNear(volume.llf, SbVec3f(-1, 0.5F, -2));
  expectNear(volume.lrf, SbVec3f(3, 0.5F, -2));
  expectNear(volume.ulf, SbVec3f(-1, 1.5F, -2));
  const SbVec3f place = seen(volume, SbVec3f(0, 2, -4));  // at (0, 1) on the rectangle
  EXPECT_FLOAT_EQ(place[0], 0.25F);
  EXPECT_FLOAT_EQ(place[1], 0.5F);
}

TEST_F(TarnOIPerspectiveCameraTest, NearDistanceAngleAspectRatioAndArgumentTakeNoPart) {
  camera->nearDistance.setValue(7);
  camera->heightAngle.setValue(0.1F);
  camera->aspectRatio.setValue(3);
  const SbViewVolume volume = camera->getViewVolume(2.5F);
  EXPECT_FLOAT_EQ(volume.getNearDist(), 2);
  EXPECT_FLOAT_EQ(volume.getWidth(), 2);
  EXPECT_FLOAT_EQ(volume.getHeight(), 2);
}

TEST_F(TarnOIPerspectiveCameraTest, MovesAndTurnsWithItsFields) {
  camera->position.setValue(10, 20, 30);
  // A quarter turn to the left: along -x.
  camera->orientation.setValue(SbVec3f(0, 1, 0), static_cast<float>(M_PI_2));
  const SbViewVolume volume = camera->getViewVolume();
  expectNear(volume.getProjectionPoint(), SbVec3f(10, 20, 30));
  expectNear(volume.getProjectionDirection(), SbVec3f(-1, 0, 0));
  const SbVec3f place = seen(volume, SbVec3f(6, 21, 29));  // 4 ahead, 1 up, 1 to the right
  EXPECT_NEAR(place[0], 0.75, 1e-5);
  EXPECT_NEAR(place[1], 0.75, 1e-5);
}

TEST_F(TarnOIPerspectiveCameraTest, AConnectedFieldIsBroughtUpToDate) {
  auto* engine = new SoComposeVec3f;
  camera->position.connectFrom(&engine->vector);
  engine->x.setValue(1);
  engine->y.setValue(2);
  engine->z.setValue(3);
  expectNear(camera->getViewVolume().getProjectionPoint(), SbVec3f(1, 2, 3));
  engine->y.setValue(5);
  expectNear(camera->getViewVolume().getProjectionPoint(), SbVec3f(1, 5, 3));
}

TEST_F(TarnOIPerspectiveCameraTest, AnswersForAViewportByTheCornersToo) {
  camera->viewportMapping.setValue(SoCamera::LEAVE_ALONE);
  SbViewportRegion result;
  const SbViewVolume volume = camera->getViewVolume(SbViewportRegion(300, 100), result);
  EXPECT_FLOAT_EQ(volume.getNearDist(), 2);
  EXPECT_FLOAT_EQ(volume.getWidth(), 2);
}

TEST_F(TarnOIPerspectiveCameraTest, SettingACornerNotifiesNobody) {
  int notified = 0;
  SoNodeSensor sensor([](void* data, SoSensor*) { ++*static_cast<int*>(data); }, &notified);
  sensor.setPriority(0);
  sensor.attach(camera.get());
  setCorners(*camera);
  EXPECT_EQ(notified, 0);
  camera->farDistance.setValue(50);
  EXPECT_EQ(notified, 1);
}

TEST_F(TarnOIPerspectiveCameraTest, CopyConstructionAndAssignmentTakeTheCornersAndNoField) {
  camera->SetLLF(-1, 0.5F, 2);
  camera->SetLRF(3, 7, 8);
  camera->SetULF(9, 1.5F, 8);
  const auto expectCorners = [](const TarnOIPerspectiveCamera& copy) {
    EXPECT_EQ(copy.position.getValue(), SbVec3f(0, 0, 1)) << "that of a new camera";
    EXPECT_EQ(copy.farDistance.getValue(), 10.0F);
    const SbViewVolume volume = copy.getViewVolume();
    expectNear(volume.llf, SbVec3f(-1, 0.5F, -1));
    expectNear(volume.lrf, SbVec3f(3, 0.5F, -1));
    expectNear(volume.ulf, SbVec3f(-1, 1.5F, -1));
  };
  expectCorners(*makeNode<TarnOIPerspectiveCamera>(*camera));
  auto assigned = makeNode<TarnOIPerspectiveCamera>();
  *assigned = *camera;
  expectCorners(*assigned);
}

TEST_F(TarnOIPerspectiveCameraTest, ANodeCopyHasTheFieldsAndTakesCornersOfItsOwn) {
  camera->position.setValue(10, 20, 30);
  const NodeRef<SoNode> copied(camera->copy());
  auto& copy = static_cast<TarnOIPerspectiveCamera&>(*copied);
  ASSERT_EQ(copy.getTypeId(), TarnOIPerspectiveCamera::getClassTypeId());
  EXPECT_EQ(copy.position.getValue(), SbVec3f(10, 20, 30));
  copy.SetLLF(-3, -3, 4);
  copy.SetLRF(3, -3, 4);
  copy.SetULF(-3, 3, 4);
  EXPECT_FLOAT_EQ(copy.getViewVolume().getNearDist(), 4);
  EXPECT_FLOAT_EQ(camera->getViewVolume().getNearDist(), 2);
}
