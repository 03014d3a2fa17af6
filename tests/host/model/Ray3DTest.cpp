#include "host/model/Ray3D.h"

#include "host/model/ObjectPoint.h"
#include "tests/support/TarnTest.h"

class Ray3DTest : public TarnTest {};

TEST_F(Ray3DTest, HoldsItsObjectPoint) {
  tarn::ObjectPoint point;
  EXPECT_EQ(tarn::Ray3D(&point).GetObjectPoint(), &point);
  EXPECT_EQ(tarn::Ray3D().GetObjectPoint(), nullptr);
}

TEST_F(Ray3DTest, HasItsOwnClass) {
  const tarn::Ray3D ray;
  EXPECT_EQ(ray.iam(), &tarn::Ray3DCls);
  EXPECT_FALSE(ray.isA(tarn::ObjectPointCls));
}
