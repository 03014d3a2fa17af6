#include "nodes/framework/OneNotification.h"

#include <Inventor/nodes/SoCoordinate3.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

class OneNotificationTest : public TarnTest {
protected:
  NodeRef<SoCoordinate3> coordinates = makeNode<SoCoordinate3>();
  SignalCount signals{coordinates.get()};
};

TEST_F(OneNotificationTest, ManyChangesOfAFieldAreSignalledOnceWhenItGoes) {
  {
    const OneNotification once(coordinates->point);
    coordinates->point.setNum(2);
    coordinates->point.set1Value(1, 1.0F, 2.0F, 3.0F);
    EXPECT_EQ(signals.count(), 0);
  }
  EXPECT_EQ(signals.count(), 1);
}

TEST_F(OneNotificationTest, ANotifierThatWasSilentBeforeStaysSilent) {
  coordinates->point.enableNotify(FALSE);
  { const OneNotification once(coordinates->point); }
  EXPECT_FALSE(coordinates->point.isNotifyEnabled());
  EXPECT_EQ(signals.count(), 0);
}

TEST_F(OneNotificationTest, SilencesAWholeNode) {
  {
    const OneNotification once(*coordinates);
    coordinates->point.setNum(2);
    coordinates->point.setNum(3);
    EXPECT_EQ(signals.count(), 0);
  }
  EXPECT_EQ(signals.count(), 1);
}
