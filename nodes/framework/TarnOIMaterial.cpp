#include "nodes/framework/TarnOIMaterial.h"

#include "host/model/Material.h"
#include "nodes/framework/SceneColor.h"
#include "nodes/framework/TarnOISearchAction.h"

TARNOI_NODE_SOURCE(TarnOIMaterial, SoMaterial);

void TarnOIMaterial::initClass() { registration.init(&TarnOIMaterial::atexit_cleanup); }

TarnOIMaterial::TarnOIMaterial() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIMaterial::TarnOIMaterial(const TarnOIMaterial& other) : TarnOIMaterial() { *this = other; }

TarnOIMaterial& TarnOIMaterial::operator=(const TarnOIMaterial& other) {
  material = other.material;
  return *this;
}

TarnOIMaterial::~TarnOIMaterial() = default;

void TarnOIMaterial::SetMaterial(tarn::Material* newMaterial) {
  material = newMaterial;
  if (!material) return;
  tarn::Colour ambient;
  tarn::Colour diffuse;
  tarn::Colour specular;
  tarn::Colour emissive;
  double shine = 0.0;
  material->GetFixedColor(ambient, diffuse, specular, emissive, shine);
  ambientColor.setValue(0.9F, 0.9F, 0.9F);
  diffuseColor.setValue(SceneColor::from(diffuse));
  specularColor.setValue(SceneColor::from(specular));
  emissiveColor.setValue(SceneColor::from(emissive));
  shininess.setValue(static_cast<float>(shine));
}

SoNode* TarnOIMaterial::copy(SbBool copyConnections) const {
  SoNode* result = SoMaterial::copy(copyConnections);
  static_cast<TarnOIMaterial*>(result)->SetMaterial(material);
  return result;
}

void TarnOIMaterial::search(SoSearchAction* action) {
  if (!TarnOISearchAction::searchLeaf(action, material)) SoMaterial::search(action);
}
