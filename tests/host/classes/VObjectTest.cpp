#include "host/classes/VObject.h"

#include "host/classes/VString.h"
#include "host/model/ImportedPoint.h"
#include "host/model/SurfacePoint.h"
#include "tests/support/TarnTest.h"

#include <bitset>
#include <memory>
#include <vector>

class VObjectTest : public TarnTest {};

TEST_F(VObjectTest, IsAHoldsForItsClassAndEveryParentOnly) {
  const tarn::SurfacePoint point;
  EXPECT_EQ(point.iam(), &tarn::SurfacePointCls);
  EXPECT_TRUE(point.isA(tarn::SurfacePointCls));
  EXPECT_TRUE(point.isA(tarn::ObjectPointCls));
  EXPECT_TRUE(point.isA(tarn::ThreeDPointCls));
  EXPECT_TRUE(point.isA(tarn::VObjectCls));
  EXPECT_FALSE(point.isA(tarn::ImportedPointCls));
  EXPECT_FALSE(tarn::ObjectPoint().isA(tarn::SurfacePointCls));
}

TEST_F(VObjectTest, IsEqualToItselfOnly) {
  const tarn::VObject a;
  const tarn::VObject b;
  EXPECT_TRUE(a.isEqual(&a));
  EXPECT_FALSE(a.isEqual(&b));
  EXPECT_FALSE(a.isEqual(nullptr));
}

TEST_F(VObjectTest, HashStaysAndBelongsToTheObjectNotItsContent) {
  const tarn::VObject a;
  const tarn::VObject copy(a);
  EXPECT_EQ(a.hash(), a.hash());
  EXPECT_NE(a.hash(), copy.hash());
}

TEST_F(VObjectTest, HashesOfNeighboursSpreadOverATableOfAPowerOfTwo) {
  // 1024 random picks fill about 63 of 100 places; identity alone would fill 1 of 8.
  std::vector<std::unique_ptr<tarn::VObject>> objects;
  std::bitset<1024> low;
  std::bitset<1024> high;
  for (int i = 0; i < 1024; ++i) {
    objects.push_back(std::make_unique<tarn::VObject>());
    low.set(objects.back()->hash() & 1023U);
    high.set(objects.back()->hash() >> 54U);
  }
  EXPECT_GT(low.count(), 512U);
  EXPECT_GT(high.count(), 512U);
}
