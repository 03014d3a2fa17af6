#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VString.h"
#include "host/model/Material.h"
#include "host/model/TessellatedSurface.h"

#include <deque>

namespace tarn {

extern TARN_HOST_EXPORT VClass ImportedSurfaceCls;

/// A surface brought into the project from outside, with the textures it came with.
class TARN_HOST_EXPORT ImportedSurface : public TessellatedSurface {
public:
  virtual const VString& GetName() const { return _name; }
  void SetName(const VString& name) { _name = name; }
  /// A material of the surface's own, for it or for sets of it; the reference stays valid.
  Material& AddMaterial() { return _materials.emplace_back(); }

  VClass* iam() const override { return &ImportedSurfaceCls; }

private:
  VString _name;
  std::deque<Material> _materials;
};

}  // namespace tarn
