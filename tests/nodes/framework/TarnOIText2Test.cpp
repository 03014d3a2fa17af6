#include "nodes/framework/TarnOIText2.h"

#include <Inventor/SoPath.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

class TarnOIText2Test : public TarnTest {};

TEST_F(TarnOIText2Test, IsToldApartFromOtherTextByItsType) {
  auto root = makeNode<SoSeparator>();
  root->addChild(new SoText2);
  auto* label = new TarnOIText2;
  root->addChild(label);
  SoSearchAction search;
  search.setType(TarnOIText2::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.apply(root.get());
  ASSERT_EQ(search.getPaths().getLength(), 1);
  EXPECT_EQ(search.getPaths()[0]->getTail(), label);
  EXPECT_TRUE(label->isOfType(SoText2::getClassTypeId()));
}

TEST_F(TarnOIText2Test, ANodeCopyKeepsTypeAndText) {
  auto label = makeNode<TarnOIText2>();
  label->string.setValue("point 7");
  label->justification.setValue(SoText2::CENTER);
  const NodeRef<SoNode> copied(label->copy());
  ASSERT_EQ(copied->getTypeId(), TarnOIText2::getClassTypeId());
  auto* copy = static_cast<TarnOIText2*>(copied.get());
  EXPECT_EQ(copy->string[0], SbString("point 7"));
  EXPECT_EQ(copy->justification.getValue(), SoText2::CENTER);
}
