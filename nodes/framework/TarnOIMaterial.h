#pragma once

#include <Inventor/nodes/SoMaterial.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

namespace tarn {
class Material;
}

/// A material that takes its colours from a host material, and is found by it: a
/// TarnOISearchAction that seeks the host material collects the nodes that use it.
///
///     auto* node = new TarnOIMaterial;
///     node->SetMaterial(&brick);
class TARNOI_EXPORT TarnOIMaterial : public SoMaterial {
  TARNOI_NODE_HEADER(TarnOIMaterial);

public:
  TarnOIMaterial();
  /// Copies the host material, not the colours taken from it.
  TarnOIMaterial(const TarnOIMaterial& other);
  TarnOIMaterial& operator=(const TarnOIMaterial& other);

  /// Sets diffuse, specular and emissive colour and the shininess from the material's
  /// fixed colours. The ambient colour becomes a grey of 0.9 whatever the material says,
  /// and the transparency stays. The material is not owned; null is stored only.
  void SetMaterial(tarn::Material* newMaterial);
  /// The host material; null while there is none.
  tarn::Material* GetMaterial() const { return material; }

  /// The ordinary copy, its colours taken from the host material anew.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  /// Matches a search for the host material; other searches as any node.
  void search(SoSearchAction* action) override;

protected:
  ~TarnOIMaterial() override;

private:
  tarn::Material* material = nullptr;
};
