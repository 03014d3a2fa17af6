#include "nodes/framework/TarnOIMaterial.h"

#include "host/model/Material.h"
#include "nodes/framework/MaterialColours.h"
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
  const MaterialColours colours = MaterialColours::of(*material);
  colours.applyExceptDiffuse(*this);
  diffuseColor.setValue(colours.diffuse);
}

SoNode* TarnOIMaterial::copy(SbBool copyConnections) const {
  SoNode* result = SoMaterial::copy(copyConnections);
  static_cast<TarnOIMaterial*>(result)->SetMaterial(material);
  return result;
}

void TarnOIMaterial::search(SoSearchAction* action) {
  if (!TarnOISearchAction::searchLeaf(action, material)) SoMaterial::search(action);
}
