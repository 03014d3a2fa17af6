// What the node of a corner and its marker do alike with a material.
#include "nodes/surfaces/FrontMaterial.h"

#include <Inventor/nodes/SoMaterial.h>

#include "host/model/ShapeVertex.h"
#include "nodes/framework/TarnOIMaterial.h"
#include "nodes/surfaces/TarnOIShapeVertexSeparator.h"
#include "nodes/surfaces/TarnOIShapeVertexToMarkSeparator.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

template <typename Node>
class FrontMaterialTest : public TarnTest {
protected:
  void build() {
    if constexpr (std::is_same_v<Node, TarnOIShapeVertexSeparator>) {
      node->SetShapeVertex(&vertex, &dictionary);
    } else {
      const tarn::Point3DRandom position({1, 2, 3});
      node->SetVertexPosition(&position);
    }
    built = children(*node);
  }

  tarn::ShapeVertex vertex;
  NodeRef<Node> node = makeNode<Node>();
  std::vector<SoNode*> built;
  NodeRef<SoMaterial> red = makeNode<SoMaterial>();
  NodeRef<SoMaterial> blue = makeNode<SoMaterial>();
};

using BothNodes = ::testing::Types<TarnOIShapeVertexSeparator, TarnOIShapeVertexToMarkSeparator>;
TYPED_TEST_SUITE(FrontMaterialTest, BothNodes);

TYPED_TEST(FrontMaterialTest, AMaterialGoesInFront) {
  this->build();
  this->node->SetMaterial(this->red.get());
  EXPECT_THAT(children(*this->node), ElementsAre(this->red.get(), this->built[0], this->built[1]));
}

TYPED_TEST(FrontMaterialTest, ThereIsAtMostOne) {
  this->build();
  this->node->SetMaterial(this->red.get());
  this->node->SetMaterial(this->blue.get());
  EXPECT_THAT(children(*this->node), ElementsAre(this->blue.get(), this->built[0], this->built[1]));
}

TYPED_TEST(FrontMaterialTest, NullOnlyTakesTheMaterialOut) {
  this->build();
  this->node->SetMaterial(this->red.get());
  this->node->SetMaterial(nullptr);
  EXPECT_EQ(children(*this->node), this->built);
  this->node->SetMaterial(nullptr);
  EXPECT_EQ(children(*this->node), this->built);
}

TYPED_TEST(FrontMaterialTest, AMaterialOfAnotherClassIsReplacedToo) {
  this->build();
  this->node->SetMaterial(new TarnOIMaterial);
  this->node->SetMaterial(this->red.get());
  EXPECT_THAT(children(*this->node), ElementsAre(this->red.get(), this->built[0], this->built[1]));
}

TYPED_TEST(FrontMaterialTest, TheMaterialThatIsThereMayBeSetAgain) {
  this->build();
  auto* material = new SoMaterial;  // the node's alone
  this->node->SetMaterial(material);
  this->node->SetMaterial(material);
  EXPECT_THAT(children(*this->node), ElementsAre(material, this->built[0], this->built[1]));
}

TYPED_TEST(FrontMaterialTest, AMaterialFartherBackStays) {
  this->build();
  this->node->addChild(this->blue.get());
  this->node->SetMaterial(nullptr);
  EXPECT_EQ(this->node->getNumChildren(), 3);
}

TYPED_TEST(FrontMaterialTest, ANodeWithoutChildrenHoldsTheMaterialAlone) {
  this->node->SetMaterial(nullptr);
  EXPECT_THAT(children(*this->node), IsEmpty());
  this->node->SetMaterial(this->red.get());
  EXPECT_THAT(children(*this->node), ElementsAre(this->red.get()));
}
