#include "host/model/Material.h"

namespace tarn {

VClass MaterialCls("Material", &VObjectCls, []() -> VObject* { return new Material; });

namespace {
Material defaultMaterial;
}

Material* const Material::gDefault = &defaultMaterial;

void Material::GetFixedColor(Colour& ambient, Colour& diffuse, Colour& specular, Colour& emissive,
                             double& shininess) const {
  ambient = _ambient;
  diffuse = _diffuse;
  specular = _specular;
  emissive = _emissive;
  shininess = _shininess;
}

void Material::SetFixedColor(const Colour& ambient, const Colour& diffuse, const Colour& specular,
                             const Colour& emissive, double shininess) {
  _ambient = ambient;
  _diffuse = diffuse;
  _specular = specular;
  _emissive = emissive;
  _shininess = shininess;
}

}  // namespace tarn
