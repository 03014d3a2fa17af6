#include "nodes/framework/NormalFill.h"

#include <Inventor/nodes/SoNormal.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

#include <vector>

using ::testing::ElementsAre;

class NormalFillTest : public TarnTest {
protected:
  std::vector<SbVec3f> vectors() const {
    const SoMFVec3f& field = node->vector;
    return {field.getValues(0), field.getValues(0) + field.getNum()};
  }
  NodeRef<SoNormal> node = makeNode<SoNormal>();
};

TEST_F(NormalFillTest, NormalsStandInTheViewersAxes) {
  NormalFill fill(*node, 2);
  fill.set(0, {1, 2, 3});
  fill.set(1, {4, 5, 6});
  fill.finish();
  EXPECT_THAT(vectors(), ElementsAre(SbVec3f(1, 3, -2), SbVec3f(4, 6, -5)));
}

TEST_F(NormalFillTest, TheListEndsWithTheLastNormal) {
  NormalFill fill(*node, 5);
  fill.set(0, {1, 2, 3});
  fill.set(1, {4, 5, 6});
  fill.finish();
  EXPECT_EQ(node->vector.getNum(), 2);
  // What Coin reads beyond is there and no direction.
  EXPECT_EQ(node->vector.getValues(0)[4], SbVec3f(0, 0, 0));
}

TEST_F(NormalFillTest, MissingOnesBetweenAreNoDirection) {
  NormalFill fill(*node, 5);
  fill.set(1, {1, 2, 3});
  fill.set(3, {4, 5, 6});
  fill.finish();
  EXPECT_THAT(vectors(), ElementsAre(SbVec3f(0, 0, 0), SbVec3f(1, 3, -2), SbVec3f(0, 0, 0),
                                     SbVec3f(4, 6, -5)));
}

TEST_F(NormalFillTest, WithoutNormalsTheNodeStaysAsItIs) {
  NormalFill fill(*node, 5);
  fill.finish();
  EXPECT_EQ(node->vector.getNum(), 0);
  EXPECT_TRUE(node->vector.isDefault());
}

TEST_F(NormalFillTest, TheVectorsBelongToTheNode) {
  NormalFill fill(*node, 4);
  fill.set(0, {1, 2, 3});
  fill.finish();
  EXPECT_TRUE(node->vector.isDeleteValuesEnabled());
  EXPECT_FALSE(node->vector.isDefault());
  node->vector.set1Value(9, 7.0F, 8.0F, 9.0F);
  EXPECT_EQ(node->vector[0], SbVec3f(1, 3, -2));
  EXPECT_EQ(node->vector[9], SbVec3f(7, 8, 9));
}

TEST_F(NormalFillTest, ACopyGetsTheRoomAgainThatCoinReads) {
  constexpr int coordinates = 1000000;
  NormalFill fill(*node, coordinates);
  fill.set(1, {1, 2, 3});
  fill.finish();
  node = NodeRef(static_cast<SoNormal*>(node->copy()));
  NormalFill::makeRoomFor(*node, coordinates);
  EXPECT_THAT(vectors(), ElementsAre(SbVec3f(0, 0, 0), SbVec3f(1, 3, -2)));
  EXPECT_EQ(node->vector.getValues(0)[coordinates - 1], SbVec3f(0, 0, 0));
  EXPECT_TRUE(node->vector.isNotifyEnabled());
}

TEST_F(NormalFillTest, ACopyThatLacksNoneKeepsItsMemory) {
  NormalFill fill(*node, 2);
  fill.set(0, {1, 2, 3});
  fill.set(1, {4, 5, 6});
  fill.finish();
  const SbVec3f* memory = node->vector.getValues(0);
  NormalFill::makeRoomFor(*node, 2);
  EXPECT_EQ(node->vector.getValues(0), memory);
  const auto empty = makeNode<SoNormal>();
  NormalFill::makeRoomFor(*empty, 2);
  EXPECT_EQ(empty->vector.getNum(), 0);
  EXPECT_TRUE(empty->vector.isDefault());
}
