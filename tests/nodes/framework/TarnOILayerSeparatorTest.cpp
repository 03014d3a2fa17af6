#include "nodes/framework/TarnOILayerSeparator.h"

#include <Inventor/SoPath.h>
#include <Inventor/nodes/SoCube.h>

#include "host/model/ObjectName.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "nodes/framework/TarnOISwitch.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;

class TarnOILayerSeparatorTest : public TarnTest {
protected:
  tarn::ObjectName layer{"Walls"};
};

TEST_F(TarnOILayerSeparatorTest, DestroyedWithoutDictionaryIsReported) {
  makeNode<TarnOILayerSeparator>().reset();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOILayerSeparator")));
}

TEST_F(TarnOILayerSeparatorTest, SearchReachesALayerThatIsSwitchedOffAndLeavesItOff) {
  auto root = makeNode<TarnOISwitch>();
  auto* separator = new TarnOILayerSeparator;
  root->addChild(separator);
  separator->SetLayer(&layer, &dictionary);
  separator->SetLayerSwitch(root.get());
  separator->SetVisibility(0);

  TarnOISearchAction search;
  search.SetTarnObject(&layer);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), separator);
  EXPECT_EQ(root->whichChild.getValue(), SO_SWITCH_NONE);
}
