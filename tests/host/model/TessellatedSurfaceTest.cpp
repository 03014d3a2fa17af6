#include "host/model/TessellatedSurface.h"

#include "host/model/ImportedSurface.h"
#include "host/model/Material.h"
#include "tests/support/TarnTest.h"

class TessellatedSurfaceTest : public TarnTest {
protected:
  tarn::Triangle& addTriangle(int set) {
    return surface.AddTriangle(set, &surface.AddPoint({1, 2, 3}), &surface.AddPoint({4, 5, 6}),
                               &surface.AddPoint({7, 8, 9}));
  }
  const tarn::VOrdCollect* set(int number) {
    return static_cast<tarn::VOrdCollect*>(surface.GetTriangleSets()->at(number));
  }

  tarn::TessellatedSurface surface;
};

TEST_F(TessellatedSurfaceTest, ANewOneIsEmpty) {
  EXPECT_EQ(surface.GetNumTriangleSets(), 0);
  EXPECT_EQ(surface.GetTriangleSets()->size(), 0);
  EXPECT_EQ(surface.GetTriangles()->size(), 0);
  EXPECT_EQ(surface.GetUvMatrices()->size(), 0);
  EXPECT_EQ(surface.GetTextureFile(0), nullptr);
  EXPECT_EQ(surface.GetMaterialOfSet(0), nullptr);
}

TEST_F(TessellatedSurfaceTest, ListsItsTrianglesBySetAndAll) {
  surface.AddTriangleSet();
  surface.AddTriangleSet();
  const tarn::Triangle& second = addTriangle(1);
  const tarn::Triangle& first = addTriangle(0);
  ASSERT_EQ(set(0)->size(), 1);
  ASSERT_EQ(set(1)->size(), 1);
  EXPECT_EQ(set(0)->at(0), &first);
  EXPECT_EQ(set(1)->at(0), &second);
  ASSERT_EQ(surface.GetTriangles()->size(), 2);
  EXPECT_EQ(surface.GetTriangles()->at(0), &second);
}

TEST_F(TessellatedSurfaceTest, KeepsAPictureAndAMaterialForEachSet) {
  tarn::Material material;
  surface.AddTriangleSet();
  surface.AddTriangleSet();
  surface.SetTextureFile(1, "a b/brick.jpg");
  surface.SetMaterialOfSet(1, &material);
  EXPECT_EQ(surface.GetTextureFile(0), nullptr);
  EXPECT_STREQ(surface.GetTextureFile(1)->text(), "a b/brick.jpg");
  EXPECT_EQ(surface.GetMaterialOfSet(0), nullptr);
  EXPECT_EQ(surface.GetMaterialOfSet(1), &material);
}

TEST_F(TessellatedSurfaceTest, SetsThatThereAreNotArePassedOver) {
  surface.SetTextureFile(0, "brick.jpg");
  surface.SetTextureFile(-1, "brick.jpg");
  surface.SetMaterialOfSet(3, nullptr);
  EXPECT_EQ(surface.GetTextureFile(-1), nullptr);
  EXPECT_EQ(surface.GetMaterialOfSet(3), nullptr);
}

TEST_F(TessellatedSurfaceTest, TextureCoordinatesAreAMatrixOfARowForEachCorner) {
  surface.AddTriangleSet();
  tarn::Triangle& triangle = addTriangle(0);
  surface.SetTextureCoordinates(triangle, {{{0.1, 0.2}, {0.3, 0.4}, {0.5, 0.6}}});
  surface.SetTextureCoordinates(triangle, {{{1.1, 1.2}, {1.3, 1.4}, {1.5, 1.6}}});
  ASSERT_EQ(surface.GetUvMatrices()->size(), 1);
  const auto& matrix = *static_cast<tarn::MatrixDouble*>(surface.GetUvMatrices()->atKey(&triangle));
  EXPECT_EQ(matrix.rows(), 3);
  EXPECT_EQ(matrix.columns(), 2);
  EXPECT_EQ(matrix(1, 1), 1.1);
  EXPECT_EQ(matrix(2, 2), 1.4);
  EXPECT_EQ(matrix(3, 1), 1.5);
}

TEST_F(TessellatedSurfaceTest, ClearingDropsEverything) {
  surface.AddTriangleSet();
  surface.SetTextureCoordinates(addTriangle(0), {});
  surface.Clear();
  EXPECT_EQ(surface.GetNumTriangleSets(), 0);
  EXPECT_EQ(surface.GetTriangles()->size(), 0);
  EXPECT_EQ(surface.GetUvMatrices()->size(), 0);
  EXPECT_EQ(surface.AddTriangleSet(), 0);
}

TEST_F(TessellatedSurfaceTest, AnImportedSurfaceIsOneWithAName) {
  tarn::ImportedSurface imported;
  imported.SetName("fuze");
  EXPECT_EQ(imported.GetName().str(), "fuze");
  EXPECT_TRUE(imported.isA(tarn::TessellatedSurfaceCls));
}
