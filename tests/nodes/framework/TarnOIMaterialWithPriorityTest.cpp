#include "nodes/framework/TarnOIMaterialWithPriority.h"

#include <Inventor/SoPath.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "tests/support/TarnTest.h"

#include <climits>

class TarnOIMaterialWithPriorityTest : public TarnTest {};

TEST_F(TarnOIMaterialWithPriorityTest, StartsWithPriorityZero) {
  EXPECT_EQ(makeNode<TarnOIMaterialWithPriority>()->GetPriority(), 0);
}

TEST_F(TarnOIMaterialWithPriorityTest, KeepsAnyPriority) {
  auto material = makeNode<TarnOIMaterialWithPriority>();
  for (const int priority : {7, -3, INT_MAX, INT_MIN}) {
    material->SetPriority(priority);
    EXPECT_EQ(material->GetPriority(), priority);
  }
}

TEST_F(TarnOIMaterialWithPriorityTest, ANodeCopyHasThePriorityAndTheColours) {
  auto material = makeNode<TarnOIMaterialWithPriority>();
  material->SetPriority(5);
  material->diffuseColor.setValue(0.25F, 0.5F, 0.75F);
  const NodeRef<SoNode> copied(material->copy());
  auto* copy = static_cast<TarnOIMaterialWithPriority*>(copied.get());
  EXPECT_EQ(copy->GetPriority(), 5);
  EXPECT_EQ(copy->diffuseColor[0], SbColor(0.25F, 0.5F, 0.75F));
}

TEST_F(TarnOIMaterialWithPriorityTest, CopyConstructionAndAssignmentTakeThePriority) {
  auto material = makeNode<TarnOIMaterialWithPriority>();
  material->SetPriority(5);
  EXPECT_EQ(makeNode<TarnOIMaterialWithPriority>(*material)->GetPriority(), 5);
  auto assigned = makeNode<TarnOIMaterialWithPriority>();
  *assigned = *material;
  EXPECT_EQ(assigned->GetPriority(), 5);
}

TEST_F(TarnOIMaterialWithPriorityTest, IsFoundByNodeNameAndTypeInEitherSearch) {
  auto root = makeNode<SoSeparator>();
  auto* material = new TarnOIMaterialWithPriority;
  material->setName("selected");
  root->addChild(material);
  SoSearchAction plain;
  TarnOISearchAction ours;
  for (SoSearchAction* search : {&plain, static_cast<SoSearchAction*>(&ours)}) {
    search->setName("selected");
    search->setType(TarnOIMaterialWithPriority::getClassTypeId());
    search->setNode(material);
    search->apply(root.get());
    ASSERT_NE(search->getPath(), nullptr);
    EXPECT_EQ(search->getPath()->getTail(), material);
  }
}

TEST_F(TarnOIMaterialWithPriorityTest, ASearchThatIsAtItsEndAddsNothing) {
  auto material = makeNode<TarnOIMaterialWithPriority>();
  SoSearchAction search;
  search.setNode(material.get());
  search.apply(material.get());
  ASSERT_TRUE(search.isFound());
  SoPath* const path = search.getPath();
  material->search(&search);
  EXPECT_EQ(search.getPath(), path);
}
