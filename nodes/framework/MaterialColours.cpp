#include "nodes/framework/MaterialColours.h"

#include <Inventor/nodes/SoMaterial.h>

#include "host/model/Material.h"
#include "nodes/framework/SceneColor.h"

MaterialColours MaterialColours::of(const tarn::Material& material) {
  tarn::Colour ambient;
  tarn::Colour diffuse;
  tarn::Colour specular;
  tarn::Colour emissive;
  double shininess = 0.0;
  material.GetFixedColor(ambient, diffuse, specular, emissive, shininess);
  return {SceneColor::from(diffuse), SceneColor::from(specular), SceneColor::from(emissive),
          static_cast<float>(shininess)};
}

void MaterialColours::applyExceptDiffuse(SoMaterial& node) const {
  node.ambientColor.setValue(0.9F, 0.9F, 0.9F);
  node.specularColor.setValue(specular);
  node.emissiveColor.setValue(emissive);
  node.shininess.setValue(shininess);
}
