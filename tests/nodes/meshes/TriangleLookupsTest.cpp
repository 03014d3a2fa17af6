#include "nodes/meshes/TriangleLookups.h"

#include <Inventor/nodes/SoSeparator.h>

#include "host/model/Triangle.h"
#include "tests/support/TarnTest.h"

#include <deque>
#include <memory>
#include <vector>

class TriangleLookupsTest : public TarnTest {
protected:
  TriangleLookupsTest() {
    for (int i = 0; i < 2; ++i) {
      OI_To_Tarn_TriangleLookup& record = lookups.records.emplace_back();
      record.faceSet = makeNode<SoIndexedFaceSet>();
      record.triangles = {&triangle};
      node->addChild(record.faceSet.get());
    }
  }
  tarn::Triangle triangle;
  TriangleLookups lookups;
  NodeRef<SoSeparator> node = makeNode<SoSeparator>();
};

TEST_F(TriangleLookupsTest, ARecordIsAnObjectOfTheHosts) {
  EXPECT_TRUE(lookups.records[0].isA(OI_To_Tarn_TriangleLookupCls));
  EXPECT_TRUE(lookups.records[0].isA(tarn::VObjectCls));
  const tarn::VClass* record = tarn::VClass::find("OI_To_Tarn_TriangleLookup");
  EXPECT_EQ(record, &OI_To_Tarn_TriangleLookupCls);
  const std::unique_ptr<tarn::VObject> made(record->create());
  EXPECT_TRUE(made->isA(OI_To_Tarn_TriangleLookupCls));
}

TEST_F(TriangleLookupsTest, ARecordIsFoundByItsFaceSet) {
  EXPECT_EQ(lookups.find(node->getChild(0)), &lookups.records[0]);
  EXPECT_EQ(lookups.find(node->getChild(1)), &lookups.records[1]);
  EXPECT_EQ(lookups.find(node.get()), nullptr);
  EXPECT_EQ(lookups.find(nullptr), nullptr);
}

TEST_F(TriangleLookupsTest, TheFirstFaceOfATriangleIsThatOfTheFirstRecord) {
  tarn::Triangle second;
  tarn::Triangle nowhere;
  lookups.records[0].triangles = {&second, nullptr};
  lookups.records[1].triangles = {&triangle, &second, &triangle};
  const auto faces = lookups.firstFacesOf({&triangle, &nowhere, &second, &triangle});
  ASSERT_EQ(faces.size(), 4U);
  EXPECT_EQ(faces[0].faceSet, node->getChild(1));
  EXPECT_EQ(faces[0].index, 0);
  EXPECT_EQ(faces[1].faceSet, nullptr);
  EXPECT_EQ(faces[2].faceSet, node->getChild(0));
  EXPECT_EQ(faces[2].index, 0);
  EXPECT_EQ(faces[3].faceSet, node->getChild(1));
  EXPECT_THAT(lookups.firstFacesOf({}), ::testing::IsEmpty());
}

TEST_F(TriangleLookupsTest, EveryOfManyTrianglesIsFound) {
  std::deque<tarn::Triangle> many(5000);
  std::vector<const tarn::VObject*> sought;
  lookups.records[0].triangles.clear();
  for (std::size_t i = 0; i < many.size(); ++i) {
    lookups.records[0].triangles.push_back(&many[i]);
    if (i % 3 == 0) sought.push_back(&many[i]);
  }
  const auto faces = lookups.firstFacesOf(sought);
  for (std::size_t i = 0; i < faces.size(); ++i) {
    ASSERT_EQ(faces[i].faceSet, node->getChild(0));
    ASSERT_EQ(faces[i].index, static_cast<int>(3 * i));
  }
}

TEST_F(TriangleLookupsTest, TheCounterpartOfACopyHasTheCopysFaceSets) {
  const NodeRef<SoSeparator> copy(static_cast<SoSeparator*>(node->copy()));
  const TriangleLookups own = lookups.counterpart(*copy, *node);
  ASSERT_EQ(own.records.size(), 2U);
  EXPECT_EQ(own.records[1].faceSet.get(), copy->getChild(1));
  EXPECT_EQ(own.records[1].triangles, lookups.records[1].triangles);
  EXPECT_EQ(lookups.records[1].faceSet.get(), node->getChild(1));
}
