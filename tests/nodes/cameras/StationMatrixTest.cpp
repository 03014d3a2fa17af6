#include "nodes/cameras/StationMatrix.h"

#include "tests/nodes/cameras/StationFixture.h"

class StationMatrixTest : public StationFixture {};

TEST_F(StationMatrixTest, SymbolLooksAlongTheLineOfSightWithYDown) {
  tarn::MatrixDouble upright(3, 3);  // looks along +Y of the model
  upright(1, 1) = 1.0;
  upright(2, 3) = 1.0;
  upright(3, 2) = -1.0;
  const SbMatrix m = StationMatrix::ofSymbol(upright);
  SbVec3f shown;
  m.multDirMatrix(SbVec3f(1, 0, 0), shown);
  EXPECT_EQ(shown, SbVec3f(1, 0, 0));
  m.multDirMatrix(SbVec3f(0, 1, 0), shown);
  EXPECT_EQ(shown, SbVec3f(0, -1, 0));
  m.multDirMatrix(SbVec3f(0, 0, 1), shown);
  EXPECT_EQ(shown, SbVec3f(0, 0, -1));
}

TEST_F(StationMatrixTest, SymbolAndCameraDifferByTheSignOfTheirSecondAndThirdRows) {
  const SbMatrix symbol = StationMatrix::ofSymbol(rotation);
  const SbMatrix camera = StationMatrix::ofCamera(rotation);
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      EXPECT_EQ(symbol[i][j], (i == 1 || i == 2 ? -1.0F : 1.0F) * camera[i][j]);
    }
  }
  EXPECT_NEAR(symbol.det4(), 1.0F, 1e-6F);
  EXPECT_NEAR(camera.det4(), 1.0F, 1e-6F);
}
