#include "nodes/meshes/SubHighlight.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMaterialBinding.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/classes/VOrdCollect.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

#include <array>

using ::testing::ElementsAre;

class SubHighlightTest : public TarnTest {
protected:
  SubHighlightTest() { node->addChild(new SoCoordinate3); }

  int binding() const { return highlight.binding->value.getValue(); }

  NodeRef<SoSeparator> node = makeNode<SoSeparator>();
  SubHighlight highlight;
};

TEST_F(SubHighlightTest, StandsAtTheIndexThatIsGiven) {
  highlight.place(*node, 0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "MaterialBinding", "Coordinate3"));
  EXPECT_EQ(node->getChild(0), highlight.material.get());
  EXPECT_EQ(node->getChild(1), highlight.binding.get());
  EXPECT_EQ(binding(), SoMaterialBinding::PER_PART);
  highlight.remove(*node);
  highlight.place(*node, 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "Material", "MaterialBinding"));
}

TEST_F(SubHighlightTest, PlacedAgainItStaysWhereItIs) {
  highlight.place(*node, 0);
  const auto before = children(*node);
  highlight.place(*node, 2);
  EXPECT_EQ(children(*node), before);
}

TEST_F(SubHighlightTest, OneThatTheHostTookOutComesBack) {
  highlight.place(*node, 0);
  const auto before = children(*node);
  node->removeChild(0);
  highlight.place(*node, 0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "MaterialBinding", "Coordinate3"));
  EXPECT_EQ(node->getChild(0), before[0]);
}

TEST_F(SubHighlightTest, RemovingForgetsBothAndLeavesOthers) {
  highlight.remove(*node);
  highlight.place(*node, 0);
  highlight.remove(*node);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3"));
  EXPECT_FALSE(highlight.material);
  EXPECT_FALSE(highlight.binding);
}

TEST_F(SubHighlightTest, RemovingWhatTheHostTookOutIsHarmless) {
  highlight.place(*node, 0);
  node->removeAllChildren();
  highlight.remove(*node);
  EXPECT_FALSE(highlight.material);
}

TEST_F(SubHighlightTest, AMaterialBehindItBindsItOverall) {
  highlight.place(*node, 0);
  auto whole = makeNode<TarnOIMaterialWithPriority>();
  node->insertChild(whole.get(), 1);
  highlight.chooseBinding(*node);
  EXPECT_EQ(binding(), SoMaterialBinding::OVERALL);
  node->removeChild(whole.get());
  highlight.chooseBinding(*node);
  EXPECT_EQ(binding(), SoMaterialBinding::PER_PART);
}

TEST_F(SubHighlightTest, PlacedInFrontOfAMaterialItIsBoundOverall) {
  node->insertChild(new SoMaterial, 0);
  highlight.place(*node, 0);
  EXPECT_EQ(binding(), SoMaterialBinding::OVERALL);
}

TEST_F(SubHighlightTest, WithoutABindingThereIsNothingToChoose) {
  highlight.chooseBinding(*node);
  EXPECT_FALSE(highlight.binding);
}

TEST_F(SubHighlightTest, TheSelectionColourIsAnIndexedPreference) {
  EXPECT_EQ(SubHighlight::selectionColour().packed(), 0xC0C0C0U);
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(PreferenceRead{PreferenceRead::eInt, "SelectionColor", "7", "Colors"}));
  preferences.Set("SelectionColor", "255128016", "Colors");
  EXPECT_EQ(SubHighlight::selectionColour().packed(), 0x1080FFU);
}

TEST_F(SubHighlightTest, PaintsListedIndexesAndPassesOthersOver) {
  const SbColor plain(0, 0, 0);
  const SbColor painted(1, 0.4F, 0);
  std::array<SbColor, 4> colours{plain, plain, plain, plain};
  tarn::VOrdCollect indexes;
  for (const int index : {2, 0, -1, 4, 1000000, 2}) indexes.addIndex(index);
  SubHighlight::paint(colours.data(), 3, &indexes, tarn::VColor(255, 102, 0));
  EXPECT_THAT(colours, ElementsAre(painted, plain, painted, plain));
  SubHighlight::paint(colours.data(), 3, nullptr, tarn::VColor());
  EXPECT_THAT(colours, ElementsAre(painted, plain, painted, plain));
}

TEST_F(SubHighlightTest, TheCounterpartOfACopyIsTheCopysOwn) {
  highlight.place(*node, 0);
  const NodeRef<SoSeparator> copy(static_cast<SoSeparator*>(node->copy()));
  const SubHighlight own = highlight.counterpart(*copy, *node);
  EXPECT_EQ(own.material.get(), copy->getChild(0));
  EXPECT_EQ(own.binding.get(), copy->getChild(1));
  EXPECT_FALSE(SubHighlight().counterpart(*copy, *node).material);
}

TEST_F(SubHighlightTest, ACopySharesTheNodes) {
  highlight.place(*node, 0);
  const SubHighlight copy(highlight);
  EXPECT_EQ(copy.material.get(), highlight.material.get());
  EXPECT_EQ(copy.binding.get(), highlight.binding.get());
}
