#include "nodes/surfaces/TarnOIImportedSurfaceSeparator.h"

#include "host/model/ImportedSurface.h"

TARNOI_NODE_SOURCE(TarnOIImportedSurfaceSeparator, TarnOINurbsSurfaceSeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIImportedSurfaceSeparator);

TarnOIImportedSurfaceSeparator::TarnOIImportedSurfaceSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIImportedSurfaceSeparator::TarnOIImportedSurfaceSeparator(
    const TarnOIImportedSurfaceSeparator& other)
    : TarnOIImportedSurfaceSeparator() {
  *this = other;
}

TarnOIImportedSurfaceSeparator& TarnOIImportedSurfaceSeparator::operator=(
    const TarnOIImportedSurfaceSeparator& other) = default;

TarnOIImportedSurfaceSeparator::~TarnOIImportedSurfaceSeparator() = default;

void TarnOIImportedSurfaceSeparator::SetImportedSurface(
    tarn::ImportedSurface* surface, tarn::VDictionary* dict, SoShapeHints* singleSidedHints,
    SoShapeHints* doubleSidedHints, TarnOITexture** textures, tarn::VOrdCollect** triangleSets,
    tarn::VDictionary* uvMatrices) {
  TarnOINurbsSurfaceSeparator::SetNurbsSurface(surface, dict, singleSidedHints, doubleSidedHints,
                                               textures, triangleSets, uvMatrices);
}
