#include "nodes/framework/OneNotification.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/sensors/SoNodeSensor.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

class OneNotificationTest : public TarnTest {
protected:
  OneNotificationTest() : sensor(&OneNotificationTest::count, &notifications) {
    sensor.setPriority(0);
    sensor.attach(coordinates.get());
  }
  static void count(void* notifications, SoSensor*) { ++*static_cast<int*>(notifications); }

  NodeRef<SoCoordinate3> coordinates = makeNode<SoCoordinate3>();
  int notifications = 0;
  SoNodeSensor sensor;
};

TEST_F(OneNotificationTest, ManyChangesOfAFieldAreSignalledOnceWhenItGoes) {
  {
    const OneNotification once(coordinates->point);
    coordinates->point.setNum(2);
    coordinates->point.set1Value(1, 1.0F, 2.0F, 3.0F);
    EXPECT_EQ(notifications, 0);
  }
  EXPECT_EQ(notifications, 1);
}

TEST_F(OneNotificationTest, ANotifierThatWasSilentBeforeStaysSilent) {
  coordinates->point.enableNotify(FALSE);
  { const OneNotification once(coordinates->point); }
  EXPECT_FALSE(coordinates->point.isNotifyEnabled());
  EXPECT_EQ(notifications, 0);
}

TEST_F(OneNotificationTest, SilencesAWholeNode) {
  {
    const OneNotification once(*coordinates);
    coordinates->point.setNum(2);
    coordinates->point.setNum(3);
    EXPECT_EQ(notifications, 0);
  }
  EXPECT_EQ(notifications, 1);
}
