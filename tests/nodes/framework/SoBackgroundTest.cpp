#include "nodes/framework/SoBackground.h"

#include <Inventor/SoPath.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/fields/SoFieldData.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/SoGradientBackground.h"
#include "tests/support/TarnTest.h"

// A background of a host's own.
class PlainBackground : public SoBackground {
  TARNOI_NODE_HEADER(PlainBackground);

public:
  PlainBackground() { TARNOI_NODE_CONSTRUCTOR(); }
  PlainBackground(const PlainBackground& other) = default;
  PlainBackground& operator=(const PlainBackground& other) = default;
  const SoFieldData* fields() const { return getFieldData(); }
};
TARNOI_NODE_SOURCE(PlainBackground, SoBackground);
void PlainBackground::initClass() { registration.init(&PlainBackground::atexit_cleanup); }

class SoBackgroundTest : public TarnTest {
protected:
  static void SetUpTestSuite() { PlainBackground::initClass(); }
  static void TearDownTestSuite() { PlainBackground::CleanUpInitClass(); }
};

TEST_F(SoBackgroundTest, AnyBackgroundIsFoundByItsType) {
  auto root = makeNode<SoSeparator>();
  root->addChild(new SoCube);
  root->addChild(new PlainBackground);
  root->addChild(new SoGradientBackground);
  SoSearchAction search;
  search.setType(SoBackground::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.apply(root.get());
  ASSERT_EQ(search.getPaths().getLength(), 2);
  EXPECT_EQ(search.getPaths()[0]->getTail(), root->getChild(1));
  EXPECT_EQ(search.getPaths()[1]->getTail(), root->getChild(2));
}

TEST_F(SoBackgroundTest, HasNoFields) {
  EXPECT_EQ(makeNode<PlainBackground>()->fields()->getNumFields(), 0);
}

TEST_F(SoBackgroundTest, CopiesAreBackgroundsToo) {
  auto background = makeNode<PlainBackground>();
  EXPECT_EQ(makeNode<PlainBackground>(*background)->getTypeId(), PlainBackground::getClassTypeId());
  const NodeRef<SoNode> copy(background->copy());
  EXPECT_EQ(copy->getTypeId(), PlainBackground::getClassTypeId());
}
