#include "nodes/framework/TarnOIMaterial.h"

#include <Inventor/SoPath.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/model/Material.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "tests/support/TarnTest.h"

#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TarnOIMaterialTest : public TarnTest {
protected:
  TarnOIMaterialTest() {
    host.SetFixedColor({200, 100, 50}, {10, 20, 30}, {40, 50, 60}, {70, 80, 90}, 0.3);
  }

  static SbColor bytes(int red, int green, int blue) {
    return SbColor(static_cast<float>(red / 255.0), static_cast<float>(green / 255.0),
                   static_cast<float>(blue / 255.0));
  }
  std::vector<SoNode*> foundAll(SoNode* root, TarnOISearchAction& search) {
    search.setInterest(SoSearchAction::ALL);
    search.apply(root);
    std::vector<SoNode*> tails;
    for (int i = 0; i < search.getPaths().getLength(); ++i) {
      tails.push_back(search.getPaths()[i]->getTail());
    }
    return tails;
  }

  tarn::Material host;
};

TEST_F(TarnOIMaterialTest, ANewMaterialHasNoHostMaterialAndCoinsColours) {
  auto material = makeNode<TarnOIMaterial>();
  EXPECT_EQ(material->GetMaterial(), nullptr);
  EXPECT_EQ(material->diffuseColor[0], SbColor(0.8F, 0.8F, 0.8F));
}

TEST_F(TarnOIMaterialTest, TakesDiffuseSpecularAndEmissiveColourAndShininess) {
  auto material = makeNode<TarnOIMaterial>();
  material->SetMaterial(&host);
  EXPECT_EQ(material->GetMaterial(), &host);
  EXPECT_EQ(material->diffuseColor[0], bytes(10, 20, 30));
  EXPECT_EQ(material->specularColor[0], bytes(40, 50, 60));
  EXPECT_EQ(material->emissiveColor[0], bytes(70, 80, 90));
  EXPECT_EQ(material->shininess[0], 0.3F);
  EXPECT_EQ(material->diffuseColor.getNum(), 1);
}

TEST_F(TarnOIMaterialTest, AmbientIsAGreyOfPointNineWhateverTheHostSays) {
  auto material = makeNode<TarnOIMaterial>();
  material->SetMaterial(&host);
  EXPECT_EQ(material->ambientColor[0], SbColor(0.9F, 0.9F, 0.9F));
}

TEST_F(TarnOIMaterialTest, TransparencyStays) {
  auto material = makeNode<TarnOIMaterial>();
  material->transparency.setValue(0.625F);
  material->SetMaterial(&host);
  EXPECT_EQ(material->transparency[0], 0.625F);
}

TEST_F(TarnOIMaterialTest, NullIsStoredAndLeavesTheColours) {
  auto material = makeNode<TarnOIMaterial>();
  material->SetMaterial(&host);
  material->SetMaterial(nullptr);
  EXPECT_EQ(material->GetMaterial(), nullptr);
  EXPECT_EQ(material->diffuseColor[0], bytes(10, 20, 30));
}

TEST_F(TarnOIMaterialTest, TheSameMaterialAgainFollowsItsColours) {
  auto material = makeNode<TarnOIMaterial>();
  material->SetMaterial(&host);
  host.SetFixedColor({}, {1, 2, 3}, {}, {}, 0.0);
  material->SetMaterial(&host);
  EXPECT_EQ(material->diffuseColor[0], bytes(1, 2, 3));
}

TEST_F(TarnOIMaterialTest, ANodeCopyTakesItsColoursFromTheHostAnew) {
  auto material = makeNode<TarnOIMaterial>();
  material->SetMaterial(&host);
  material->diffuseColor.setValue(1, 1, 1);
  material->transparency.setValue(0.5F);
  host.SetFixedColor({}, {11, 12, 13}, {}, {}, 0.75);
  const NodeRef<SoNode> copied(material->copy());
  auto* copy = static_cast<TarnOIMaterial*>(copied.get());
  EXPECT_EQ(copy->GetMaterial(), &host);
  EXPECT_EQ(copy->diffuseColor[0], bytes(11, 12, 13));
  EXPECT_EQ(copy->shininess[0], 0.75F);
  EXPECT_EQ(copy->transparency[0], 0.5F);
  EXPECT_EQ(material->diffuseColor[0], SbColor(1, 1, 1));
}

TEST_F(TarnOIMaterialTest, ANodeCopyWithoutHostMaterialCopiesTheColours) {
  auto material = makeNode<TarnOIMaterial>();
  material->diffuseColor.setValue(0.25F, 0.5F, 0.75F);
  const NodeRef<SoNode> copied(material->copy());
  auto* copy = static_cast<TarnOIMaterial*>(copied.get());
  EXPECT_EQ(copy->GetMaterial(), nullptr);
  EXPECT_EQ(copy->diffuseColor[0], SbColor(0.25F, 0.5F, 0.75F));
}

TEST_F(TarnOIMaterialTest, CopyConstructionAndAssignmentTakeTheHostMaterial) {
  auto material = makeNode<TarnOIMaterial>();
  material->SetMaterial(&host);
  auto copy = makeNode<TarnOIMaterial>(*material);
  EXPECT_EQ(copy->GetMaterial(), &host);
  auto assigned = makeNode<TarnOIMaterial>();
  *assigned = *material;
  EXPECT_EQ(assigned->GetMaterial(), &host);
}

TEST_F(TarnOIMaterialTest, AllCollectsEveryNodeThatUsesTheHostMaterial) {
  tarn::Material other;
  auto root = makeNode<SoSeparator>();
  std::vector<TarnOIMaterial*> materials;
  for (tarn::Material* m : {&host, &other, &host}) {
    materials.push_back(new TarnOIMaterial);
    materials.back()->SetMaterial(m);
    root->addChild(materials.back());
  }
  TarnOISearchAction search;
  search.SetTarnObject(&host);
  EXPECT_THAT(foundAll(root.get(), search), ElementsAre(materials[0], materials[2]));
}

TEST_F(TarnOIMaterialTest, FirstFindsTheFirstOnly) {
  auto root = makeNode<SoSeparator>();
  auto* first = new TarnOIMaterial;
  auto* second = new TarnOIMaterial;
  for (TarnOIMaterial* material : {first, second}) {
    material->SetMaterial(&host);
    root->addChild(material);
  }
  TarnOISearchAction search;
  search.SetTarnObject(&host);
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), first);
}

TEST_F(TarnOIMaterialTest, ASearchForNullFindsMaterialsWithoutHostMaterial) {
  auto root = makeNode<SoSeparator>();
  auto* unbound = new TarnOIMaterial;
  auto* bound = new TarnOIMaterial;
  bound->SetMaterial(&host);
  root->addChild(bound);
  root->addChild(unbound);
  TarnOISearchAction search;
  EXPECT_THAT(foundAll(root.get(), search), ElementsAre(unbound));
}

TEST_F(TarnOIMaterialTest, ASearchForAnObjectDoesNotMatchByNameOrType) {
  auto root = makeNode<SoSeparator>();
  auto* material = new TarnOIMaterial;
  material->SetMaterial(&host);
  material->setName("brick");
  root->addChild(material);
  tarn::VObject nobody;
  TarnOISearchAction byName;
  byName.SetTarnObject(&nobody);
  byName.setName("brick");
  EXPECT_THAT(foundAll(root.get(), byName), IsEmpty());
  TarnOISearchAction byType;
  byType.SetTarnObject(&nobody);
  byType.setType(TarnOIMaterial::getClassTypeId());
  EXPECT_THAT(foundAll(root.get(), byType), IsEmpty());
}

TEST_F(TarnOIMaterialTest, AnOrdinarySearchMatchesByNameAndType) {
  auto root = makeNode<SoSeparator>();
  auto* material = new TarnOIMaterial;
  material->setName("brick");
  root->addChild(material);
  SoSearchAction search;
  search.setName("brick");
  search.setType(TarnOIMaterial::getClassTypeId());
  search.apply(root.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), material);
}

TEST_F(TarnOIMaterialTest, ASearchThatIsAtItsEndAddsNothing) {
  auto material = makeNode<TarnOIMaterial>();
  material->SetMaterial(&host);
  TarnOISearchAction search;
  search.SetTarnObject(&host);
  search.apply(material.get());
  ASSERT_TRUE(search.isFound());
  SoPath* const path = search.getPath();
  material->search(&search);
  EXPECT_EQ(search.getPath(), path);
}
