#include "nodes/framework/SoSeparatorWithLayerDict.h"

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

using ::testing::Pair;
using ::testing::UnorderedElementsAre;

class SoSeparatorWithLayerDictTest : public TarnTest {};

TEST_F(SoSeparatorWithLayerDictTest, TheMapStartsEmptyWithEightBucketsAndALoadFactorOfOne) {
  auto node = makeNode<SoSeparatorWithLayerDict>();
  EXPECT_TRUE(node->layerDict.empty());
  // The standard library rounds the eight up.
  EXPECT_GE(node->layerDict.bucket_count(), 8U);
  EXPECT_EQ(node->layerDict.max_load_factor(), 1.0F);
}

TEST_F(SoSeparatorWithLayerDictTest, KeysAndValuesAreAsWideAsPointers) {
  EXPECT_EQ(sizeof(SoSeparatorWithLayerDict::LayerDict::value_type), 2 * sizeof(void*));
}

TEST_F(SoSeparatorWithLayerDictTest, CopyConstructionCopiesTheMapEntryByEntry) {
  auto node = makeNode<SoSeparatorWithLayerDict>();
  node->layerDict = {{1, 10}, {2, 20}};
  auto copy = makeNode<SoSeparatorWithLayerDict>(*node);
  EXPECT_THAT(copy->layerDict, UnorderedElementsAre(Pair(1, 10), Pair(2, 20)));
  copy->layerDict[3] = 30;
  EXPECT_EQ(node->layerDict.size(), 2U);
}

TEST_F(SoSeparatorWithLayerDictTest, AssignmentReplacesTheMap) {
  auto node = makeNode<SoSeparatorWithLayerDict>();
  auto other = makeNode<SoSeparatorWithLayerDict>();
  node->layerDict = {{1, 10}};
  other->layerDict = {{5, 50}, {6, 60}};
  *other = *node;
  EXPECT_THAT(other->layerDict, UnorderedElementsAre(Pair(1, 10)));
}
