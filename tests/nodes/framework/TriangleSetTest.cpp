#include "nodes/framework/TriangleSet.h"

#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTexture2.h>

#include "host/model/ThreeDPoint.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

#include <array>
#include <vector>

using ::testing::ElementsAre;

class TriangleSetTest : public TarnTest {
protected:
  TriangleSetTest() {
    for (std::size_t i = 0; i < points.size(); ++i) {
      const auto x = static_cast<double>(i);
      points[i].SetApproximation(tarn::Point3DRandom(tarn::Point3DDouble(x, 10 + x, 20 + x)));
    }
    first = tarn::Triangle(&points[0], &points[1], &points[2]);
    second = tarn::Triangle(&points[2], &points[1], &points[3]);
    triangles.add(&first);
    triangles.add(&second);
  }

  static SbVec3f positionOf(const tarn::ThreeDPoint* point) {
    tarn::Point3DDouble position(-1, -1, -1);
    if (point) point->GetApproximationNoLocalAffine(position);
    return ViewerFrame::directionFromModel(position);
  }
  void fill(TriangleSet& set) {
    set.fill(triangles, positionOf, [this](tarn::Triangle* triangle, SbVec2f* corners) {
      textured.push_back(triangle);
      for (int k = 0; k < 3; ++k) corners[k] = SbVec2f(static_cast<float>(k), 5.0F);
    });
  }

  std::array<tarn::ThreeDPoint, 4> points;
  tarn::Triangle first;
  tarn::Triangle second;
  tarn::VOrdCollect triangles;
  std::vector<const tarn::Triangle*> textured;
};

TEST_F(TriangleSetTest, EveryTriangleHasThreeCoordinatesOfItsOwn) {
  TriangleSet set(false);
  fill(set);
  const SoMFVec3f& field = set.coordinates->point;
  EXPECT_THAT(std::vector<SbVec3f>(field.getValues(0), field.getValues(0) + field.getNum()),
              ElementsAre(SbVec3f(0, 20, -10), SbVec3f(1, 21, -11), SbVec3f(2, 22, -12),
                          SbVec3f(2, 22, -12), SbVec3f(1, 21, -11), SbVec3f(3, 23, -13)));
}

TEST_F(TriangleSetTest, FacesAreThreeCoordinatesEach) {
  TriangleSet set(false);
  fill(set);
  const SoMFInt32& field = set.faces->coordIndex;
  EXPECT_THAT(std::vector<int>(field.getValues(0), field.getValues(0) + field.getNum()),
              ElementsAre(0, 1, 2, -1, 3, 4, 5, -1));
}

TEST_F(TriangleSetTest, NormalsStandAtTheirCornersIndexes) {
  const tarn::Point3DDouble normal(1, 2, 3);
  first.SetNormal(1, &normal);
  TriangleSet set(false);
  fill(set);
  ASSERT_EQ(set.normals->vector.getNum(), 2);
  EXPECT_EQ(set.normals->vector[0], SbVec3f(0, 0, 0));
  EXPECT_EQ(set.normals->vector[1], SbVec3f(1, 3, -2));
}

TEST_F(TriangleSetTest, OnlyATexturedSetHasTextureCoordinates) {
  TriangleSet plain(false);
  fill(plain);
  EXPECT_FALSE(plain.textureCoordinates);
  EXPECT_THAT(textured, ::testing::IsEmpty());
  TriangleSet set(true);
  fill(set);
  EXPECT_THAT(textured, ElementsAre(&first, &second));
  ASSERT_EQ(set.textureCoordinates->point.getNum(), 6);
  EXPECT_EQ(set.textureCoordinates->point[5], SbVec2f(2.0F, 5.0F));
}

TEST_F(TriangleSetTest, MissingTrianglesAndCornersAreAskedForAsNull) {
  triangles.add(nullptr);
  second.SetPoint(1, nullptr);
  TriangleSet set(false);
  fill(set);
  ASSERT_EQ(set.coordinates->point.getNum(), 9);
  for (const int i : {4, 6, 7, 8}) EXPECT_EQ(set.coordinates->point[i], SbVec3f(-1, -1, 1)) << i;
}

TEST_F(TriangleSetTest, NoTrianglesMakeEmptyNodes) {
  triangles.clear();
  TriangleSet set(true);
  fill(set);
  EXPECT_EQ(set.coordinates->point.getNum(), 0);
  EXPECT_EQ(set.normals->vector.getNum(), 0);
  EXPECT_EQ(set.textureCoordinates->point.getNum(), 0);
  EXPECT_EQ(set.faces->coordIndex.getNum(), 0);
}

TEST_F(TriangleSetTest, IsAppendedWithItsTextureFirst) {
  const auto node = makeNode<SoSeparator>();
  node->addChild(new SoSeparator);
  TriangleSet(true).append(*node, new SoTexture2);
  EXPECT_THAT(childTypes(*node), ElementsAre("Separator", "Texture2", "TextureCoordinate2",
                                             "Normal", "Coordinate3", "IndexedFaceSet"));
}

TEST_F(TriangleSetTest, IsInsertedWhereAsked) {
  const auto node = makeNode<SoSeparator>();
  node->addChild(new SoSeparator);
  node->addChild(new SoTexture2);
  TriangleSet(false).insert(*node, 1);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Separator", "Normal", "Coordinate3", "IndexedFaceSet", "Texture2"));
}
