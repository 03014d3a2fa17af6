#include "nodes/framework/MaterialColours.h"

#include <Inventor/nodes/SoMaterial.h>

#include "host/model/Material.h"
#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

class MaterialColoursTest : public TarnTest {
protected:
  static SbColor shown(int red, int green, int blue) {
    return SbColor(static_cast<float>(red / 255.0), static_cast<float>(green / 255.0),
                   static_cast<float>(blue / 255.0));
  }
  MaterialColoursTest() {
    host.SetFixedColor(tarn::Colour(1, 2, 3), tarn::Colour(10, 20, 30), tarn::Colour(40, 50, 60),
                       tarn::Colour(70, 80, 90), 0.375);
  }
  tarn::Material host;
};

TEST_F(MaterialColoursTest, AreTheHostsFixedColours) {
  const MaterialColours colours = MaterialColours::of(host);
  EXPECT_EQ(colours.diffuse, shown(10, 20, 30));
  EXPECT_EQ(colours.specular, shown(40, 50, 60));
  EXPECT_EQ(colours.emissive, shown(70, 80, 90));
  EXPECT_EQ(colours.shininess, 0.375F);
}

TEST_F(MaterialColoursTest, AreAppliedWithAGreyAmbientColourAndLeaveTheDiffuseOne) {
  auto node = makeNode<SoMaterial>();
  node->diffuseColor.setValue(0.5F, 0.25F, 0.125F);
  node->transparency.setValue(0.5F);
  MaterialColours::of(host).applyExceptDiffuse(*node);
  EXPECT_EQ(node->ambientColor[0], SbColor(0.9F, 0.9F, 0.9F));
  EXPECT_EQ(node->specularColor[0], shown(40, 50, 60));
  EXPECT_EQ(node->emissiveColor[0], shown(70, 80, 90));
  EXPECT_EQ(node->shininess[0], 0.375F);
  EXPECT_EQ(node->diffuseColor[0], SbColor(0.5F, 0.25F, 0.125F));
  EXPECT_EQ(node->transparency[0], 0.5F);
}
