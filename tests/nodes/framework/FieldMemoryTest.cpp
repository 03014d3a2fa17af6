#include "nodes/framework/FieldMemory.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoTextureCoordinate2.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

#include <vector>

class FieldMemoryTest : public TarnTest {
protected:
  NodeRef<SoCoordinate3> coordinates = makeNode<SoCoordinate3>();
  NodeRef<SoMaterial> material = makeNode<SoMaterial>();
};

TEST_F(FieldMemoryTest, AFieldGetsAsManyValuesAsAsked) {
  for (const int count : {5, 2, 0, 1, 300}) {
    FieldMemory::resize(coordinates->point, count);
    EXPECT_EQ(coordinates->point.getNum(), count);
    FieldMemory::resize(material->diffuseColor, count);
    EXPECT_EQ(material->diffuseColor.getNum(), count);
  }
}

TEST_F(FieldMemoryTest, ANegativeSizeIsNone) {
  FieldMemory::resize(coordinates->point, -1);
  EXPECT_EQ(coordinates->point.getNum(), 0);
}

TEST_F(FieldMemoryTest, AFieldOfThatSizeKeepsItsMemory) {
  FieldMemory::resize(coordinates->point, 1000);
  const SbVec3f* before = coordinates->point.startEditing();
  FieldMemory::resize(coordinates->point, 1000);
  EXPECT_EQ(coordinates->point.startEditing(), before);
  FieldMemory::resize(material->diffuseColor, 1000);
  const SbColor* colours = material->diffuseColor.startEditing();
  FieldMemory::resize(material->diffuseColor, 1000);
  EXPECT_EQ(material->diffuseColor.startEditing(), colours);
}

TEST_F(FieldMemoryTest, EveryKindOfFieldOwnsItsValuesAndMayGrowAndShrinkAsEver) {
  const auto check = [](auto& field, const auto& first, const auto& second) {
    FieldMemory::resize(field, 3);
    field.startEditing()[2] = first;
    EXPECT_TRUE(field.isDeleteValuesEnabled());
    field.set1Value(9, second);
    EXPECT_EQ(field.getNum(), 10);
    EXPECT_EQ(field[2], first);
    field.setNum(3);
    EXPECT_EQ(field[2], first);
    field.setNum(0);
  };
  const auto faces = makeNode<SoIndexedFaceSet>();
  const auto places = makeNode<SoTextureCoordinate2>();
  check(coordinates->point, SbVec3f(1, 2, 3), SbVec3f(4, 5, 6));
  check(material->diffuseColor, SbColor(0.5F, 0.25F, 0.0F), SbColor(1.0F, 0.0F, 0.0F));
  check(places->point, SbVec2f(1, 2), SbVec2f(4, 5));
  check(faces->coordIndex, 7, 8);
}

TEST_F(FieldMemoryTest, LargeFieldsAreWrittenToTheirEnds) {
  constexpr int count = 700000;  // above the size from which large pages are asked for
  FieldMemory::resize(coordinates->point, count);
  coordinates->point.startEditing()[0] = SbVec3f(1.0F, 2.0F, 3.0F);
  coordinates->point.startEditing()[count - 1] = SbVec3f(4.0F, 5.0F, 6.0F);
  EXPECT_EQ(coordinates->point[0], SbVec3f(1.0F, 2.0F, 3.0F));
  EXPECT_EQ(coordinates->point[count - 1], SbVec3f(4.0F, 5.0F, 6.0F));
}

TEST_F(FieldMemoryTest, SwappedFieldsHaveEachOthersValuesAndMemory) {
  auto other = makeNode<SoCoordinate3>();
  coordinates->point.setNum(3);
  for (int i = 0; i < 3; ++i) coordinates->point.startEditing()[i] = SbVec3f(1.0F, 2.0F, 3.0F);
  const SbVec3f* memory = coordinates->point.startEditing();
  FieldMemory::swap(coordinates->point, other->point);
  EXPECT_EQ(other->point.getNum(), 3);
  EXPECT_EQ(other->point.startEditing(), memory);
  EXPECT_EQ(coordinates->point.getNum(), 1);
  EXPECT_EQ(coordinates->point[0], SbVec3f(0.0F, 0.0F, 0.0F));
  coordinates.reset();
  EXPECT_EQ(other->point[2], SbVec3f(1.0F, 2.0F, 3.0F)) << "the memory went with the values";
  other->point.set1Value(20, 4.0F, 5.0F, 6.0F);
  EXPECT_EQ(other->point[2], SbVec3f(1.0F, 2.0F, 3.0F));
}
