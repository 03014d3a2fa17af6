#include "host/model/PointMeshTempSubPoints.h"

#include "host/classes/VOrdCollect.h"
#include "tests/support/TarnTest.h"

class PointMeshTempSubPointsTest : public TarnTest {};

TEST_F(PointMeshTempSubPointsTest, HasNoIndexesUntilTheyAreSet) {
  tarn::PointMeshTempSubPoints selection;
  tarn::VOrdCollect indexes;
  EXPECT_EQ(selection.GetSelectedIndexes(), nullptr);
  selection.SetSelectedIndexes(&indexes);
  EXPECT_EQ(selection.GetSelectedIndexes(), &indexes);
  EXPECT_EQ(selection.iam(), tarn::VClass::find("PointMeshTempSubPoints"));
}
