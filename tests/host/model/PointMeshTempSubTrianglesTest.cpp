#include "host/model/PointMeshTempSubTriangles.h"

#include "host/classes/VOrdCollect.h"
#include "tests/support/TarnTest.h"

class PointMeshTempSubTrianglesTest : public TarnTest {};

TEST_F(PointMeshTempSubTrianglesTest, HasNoIndexesUntilTheyAreSet) {
  tarn::PointMeshTempSubTriangles selection;
  tarn::VOrdCollect indexes;
  EXPECT_EQ(selection.GetSelectedIndexes(), nullptr);
  selection.SetSelectedIndexes(&indexes);
  EXPECT_EQ(selection.GetSelectedIndexes(), &indexes);
  EXPECT_EQ(selection.iam(), tarn::VClass::find("PointMeshTempSubTriangles"));
}
