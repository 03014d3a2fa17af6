#include "nodes/framework/FieldFill.h"

#include <Inventor/nodes/SoCoordinate3.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

class FieldFillTest : public TarnTest {
protected:
  NodeRef<SoCoordinate3> coordinates = makeNode<SoCoordinate3>();
  SignalCount signals{coordinates.get()};
};

TEST_F(FieldFillTest, ValuesAreWrittenInPlaceAndSignalledOnceAtTheEnd) {
  {
    const FieldFill fill(coordinates->point, 3);
    for (int i = 0; i < 3; ++i) fill.values()[i] = SbVec3f(1.0F, 2.0F, static_cast<float>(i));
    EXPECT_EQ(signals.count(), 0);
  }
  EXPECT_EQ(signals.count(), 1);
  ASSERT_EQ(coordinates->point.getNum(), 3);
  EXPECT_EQ(coordinates->point[2], SbVec3f(1.0F, 2.0F, 2.0F));
  EXPECT_TRUE(coordinates->point.isNotifyEnabled());
}

TEST_F(FieldFillTest, AFieldThatIsFilledIsNoDefault) {
  // Coin writes no field that has its default value, and one value is this field's default.
  ASSERT_TRUE(coordinates->point.isDefault());
  { const FieldFill fill(coordinates->point, 1); }
  EXPECT_FALSE(coordinates->point.isDefault());
}

TEST_F(FieldFillTest, NoValuesAreFilledToo) {
  {
    const FieldFill fill(coordinates->point, 0);
    EXPECT_EQ(fill.values(), nullptr);
  }
  EXPECT_EQ(coordinates->point.getNum(), 0);
  EXPECT_EQ(signals.count(), 1);
}
