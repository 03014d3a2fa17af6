#pragma once

#include "nodes/surfaces/TarnOINurbsSurfaceSeparator.h"

namespace tarn {
class ImportedSurface;
}  // namespace tarn

/// Shows a surface that was brought into the project from outside. Children and use are those
/// of TarnOINurbsSurfaceSeparator.
class TARNOI_EXPORT TarnOIImportedSurfaceSeparator : public TarnOINurbsSurfaceSeparator {
  TARNOI_NODE_HEADER(TarnOIImportedSurfaceSeparator);

public:
  TarnOIImportedSurfaceSeparator();
  /// As those of TarnOINurbsSurfaceSeparator.
  TarnOIImportedSurfaceSeparator(const TarnOIImportedSurfaceSeparator& other);
  TarnOIImportedSurfaceSeparator& operator=(const TarnOIImportedSurfaceSeparator& other);

  /// See TarnOINurbsSurfaceSeparator::SetNurbsSurface.
  void SetImportedSurface(tarn::ImportedSurface* surface, tarn::VDictionary* dict,
                          SoShapeHints* singleSidedHints, SoShapeHints* doubleSidedHints,
                          TarnOITexture** textures, tarn::VOrdCollect** triangleSets,
                          tarn::VDictionary* uvMatrices);

protected:
  ~TarnOIImportedSurfaceSeparator() override;
};
