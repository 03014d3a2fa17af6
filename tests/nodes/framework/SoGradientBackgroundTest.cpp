#include "nodes/framework/SoGradientBackground.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInput.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/lists/SoFieldList.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

#include <cstring>

using ::testing::ElementsAre;

namespace {

void expectValues(const SoGradientBackground& node, const SbColor& color0, const SbColor& color1,
                  SbBool swapColors, const SbVec2f& direction) {
  EXPECT_EQ(node.color0.getValue(), color0);
  EXPECT_EQ(node.color1.getValue(), color1);
  EXPECT_EQ(node.swapColors.getValue(), swapColors);
  EXPECT_EQ(node.direction.getValue(), direction);
}

void setValues(SoGradientBackground& node) {
  node.color0.setValue(0.1F, 0.2F, 0.3F);
  node.color1.setValue(0.4F, 0.5F, 0.6F);
  node.swapColors.setValue(TRUE);
  node.direction.setValue(3.0F, -4.0F);
}

void expectSetValues(const SoGradientBackground& node) {
  expectValues(node, SbColor(0.1F, 0.2F, 0.3F), SbColor(0.4F, 0.5F, 0.6F), TRUE,
               SbVec2f(3.0F, -4.0F));
}

}  // namespace

class SoGradientBackgroundTest : public TarnTest {
protected:
  NodeRef<SoGradientBackground> node = makeNode<SoGradientBackground>();
};

TEST_F(SoGradientBackgroundTest, RunsFromGreyBelowToBlueAboveByDefault) {
  expectValues(*node, SbColor(0.7F, 0.7F, 0.8F), SbColor(0.0F, 0.1F, 0.3F), FALSE,
               SbVec2f(0.0F, 1.0F));
  EXPECT_TRUE(node->color0.isDefault());
  EXPECT_TRUE(node->color1.isDefault());
  EXPECT_TRUE(node->swapColors.isDefault());
  EXPECT_TRUE(node->direction.isDefault());
}

TEST_F(SoGradientBackgroundTest, HasFourFieldsInTheirOrder) {
  SoFieldList fields;
  ASSERT_EQ(node->getFields(fields), 4);
  std::vector<std::string> names;
  for (int i = 0; i < fields.getLength(); ++i) {
    SbName name;
    ASSERT_TRUE(node->getFieldName(fields[i], name));
    names.emplace_back(name.getString());
  }
  EXPECT_THAT(names, ElementsAre("color0", "color1", "swapColors", "direction"));
}

TEST_F(SoGradientBackgroundTest, ANodeCopyHasTheFields) {
  setValues(*node);
  const NodeRef<SoNode> copy(node->copy());
  ASSERT_EQ(copy->getTypeId(), SoGradientBackground::getClassTypeId());
  expectSetValues(static_cast<SoGradientBackground&>(*copy));
}

TEST_F(SoGradientBackgroundTest, CopyConstructionAndAssignmentTakeTheFieldsValues) {
  setValues(*node);
  expectSetValues(*makeNode<SoGradientBackground>(*node));
  auto assigned = makeNode<SoGradientBackground>();
  *assigned = *node;
  expectSetValues(*assigned);
}

TEST_F(SoGradientBackgroundTest, IsReadFromAFile) {
  const char* text =
      "SoGradientBackground { color0 0.1 0.2 0.3 color1 0.4 0.5 0.6 swapColors TRUE "
      "direction 3 -4 }";
  SoInput input;
  input.setBuffer(text, std::strlen(text));
  const NodeRef<SoSeparator> root(SoDB::readAll(&input));
  ASSERT_TRUE(root);
  ASSERT_EQ(root->getNumChildren(), 1);
  ASSERT_EQ(root->getChild(0)->getTypeId(), SoGradientBackground::getClassTypeId());
  expectSetValues(static_cast<SoGradientBackground&>(*root->getChild(0)));
}

TEST_F(SoGradientBackgroundTest, IsNeitherMeasuredNorPicked) {
  auto root = makeNode<SoSeparator>();
  root->addChild(new SoOrthographicCamera);
  root->addChild(node.get());
  const SbViewportRegion region(100, 100);
  SoGetBoundingBoxAction box(region);
  box.apply(root.get());
  EXPECT_TRUE(box.getBoundingBox().isEmpty());
  SoRayPickAction pick(region);
  pick.setPoint(SbVec2s(50, 50));
  pick.apply(root.get());
  EXPECT_EQ(pick.getPickedPoint(), nullptr);
  root->addChild(new SoCube);
  pick.apply(root.get());
  EXPECT_NE(pick.getPickedPoint(), nullptr);
}
