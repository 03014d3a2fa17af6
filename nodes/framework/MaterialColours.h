#pragma once

#include <Inventor/SbColor.h>

#include "nodes/TarnOIExport.h"

class SoMaterial;

namespace tarn {
class Material;
}

/// The fixed colours of a host material as scene colours.
struct TARNOI_EXPORT MaterialColours {
  SbColor diffuse;
  SbColor specular;
  SbColor emissive;
  float shininess = 0.0F;

  static MaterialColours of(const tarn::Material& material);

  /// Sets specular and emissive colour and the shininess, and the ambient colour to a grey of
  /// 0.9 whatever the host material says. Diffuse colour and transparency stay.
  void applyExceptDiffuse(SoMaterial& node) const;
};
