#include "host/model/Surface.h"

#include "host/classes/VOrdCollect.h"
#include "host/model/Material.h"
#include "tests/support/TarnTest.h"

class SurfaceTest : public TarnTest {};

TEST_F(SurfaceTest, ANewSurfaceIsSingleSidedAndHasNeitherMaterialNorTriangles) {
  tarn::Surface surface;
  EXPECT_EQ(surface.IsDoubleSided(), 0);
  EXPECT_EQ(surface.GetMaterial(), nullptr);
  EXPECT_EQ(surface.GetTriangles(), nullptr);
}

TEST_F(SurfaceTest, AnswersWhatWasSet) {
  tarn::Surface surface;
  tarn::VOrdCollect triangles;
  tarn::Material material;
  surface.SetDoubleSided(7);
  surface.SetMaterial(&material);
  surface.SetTriangles(&triangles);
  EXPECT_EQ(surface.IsDoubleSided(), 1);
  EXPECT_EQ(surface.GetMaterial(), &material);
  EXPECT_EQ(surface.GetTriangles(), &triangles);
}

TEST_F(SurfaceTest, IsKnownToTheClassSystem) {
  EXPECT_EQ(tarn::Surface().iam(), &tarn::SurfaceCls);
  EXPECT_EQ(tarn::VClass::find("Surface"), &tarn::SurfaceCls);
}
