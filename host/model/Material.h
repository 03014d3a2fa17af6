#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/general/Colour.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass MaterialCls;

/// How a surface looks: four fixed colours, a shininess, and where its diffuse
/// colour comes from.
class TARN_HOST_EXPORT Material : public VObject {
public:
  /// What gives a surface its diffuse colour.
  enum DiffuseType { eFixedColour = 0, ePhotoTexture = 1 };

  virtual void GetFixedColor(Colour& ambient, Colour& diffuse, Colour& specular, Colour& emissive,
                             double& shininess) const;
  virtual int GetDiffuseType() const { return _diffuseType; }
  /// Non-zero when a texture's colours are multiplied by those of the material; 0 when the
  /// texture is shown as it is.
  virtual int GetBlendRGBWithTexture() const { return _blendRGBWithTexture; }

  /// Sets all fixed colours; shininess is 0..1.
  void SetFixedColor(const Colour& ambient, const Colour& diffuse, const Colour& specular,
                     const Colour& emissive, double shininess);
  void SetDiffuseType(int type) { _diffuseType = type; }
  void SetBlendRGBWithTexture(int blend) { _blendRGBWithTexture = blend != 0; }

  /// The material of objects that have none: light grey, not textured.
  static Material* const gDefault;

  VClass* iam() const override { return &MaterialCls; }

private:
  Colour _ambient{51, 51, 51};
  Colour _diffuse{204, 204, 204};
  Colour _specular{0, 0, 0};
  Colour _emissive{0, 0, 0};
  double _shininess = 0.2;
  int _diffuseType = eFixedColour;
  int _blendRGBWithTexture = 0;
};

}  // namespace tarn
