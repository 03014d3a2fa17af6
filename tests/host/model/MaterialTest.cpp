#include "host/model/Material.h"

#include "tests/support/TarnTest.h"

using tarn::Colour;
using tarn::Material;

class MaterialTest : public TarnTest {};

TEST_F(MaterialTest, GivesItsFixedColoursInOrder) {
  Material material;
  material.SetFixedColor(Colour(1, 2, 3), Colour(10, 20, 30), Colour(40, 50, 60),
                         Colour(70, 80, 90), 0.75);
  Colour ambient;
  Colour diffuse;
  Colour specular;
  Colour emissive;
  double shininess = 0.0;
  material.GetFixedColor(ambient, diffuse, specular, emissive, shininess);
  EXPECT_EQ(ambient, Colour(1, 2, 3));
  EXPECT_EQ(diffuse, Colour(10, 20, 30));
  EXPECT_EQ(specular, Colour(40, 50, 60));
  EXPECT_EQ(emissive, Colour(70, 80, 90));
  EXPECT_EQ(shininess, 0.75);
}

TEST_F(MaterialTest, ItsDiffuseColourIsFixedUntilAPhotographGivesIt) {
  Material material;
  EXPECT_EQ(material.GetDiffuseType(), Material::eFixedColour);
  material.SetDiffuseType(Material::ePhotoTexture);
  EXPECT_EQ(material.GetDiffuseType(), Material::ePhotoTexture);
}

TEST_F(MaterialTest, TheDefaultMaterialIsAVisibleUntexturedOne) {
  ASSERT_NE(Material::gDefault, nullptr);
  Colour ambient;
  Colour diffuse;
  Colour specular;
  Colour emissive;
  double shininess = 0.0;
  Material::gDefault->GetFixedColor(ambient, diffuse, specular, emissive, shininess);
  EXPECT_EQ(diffuse, Colour(204, 204, 204));
  EXPECT_EQ(emissive, Colour(0, 0, 0));
  EXPECT_EQ(Material::gDefault->GetDiffuseType(), Material::eFixedColour);
}
