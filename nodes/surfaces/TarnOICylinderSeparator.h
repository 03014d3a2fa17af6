#pragma once

#include "nodes/surfaces/TarnOINurbsSurfaceSeparator.h"

class SoCoordinate3;
class SoLineSet;

namespace tarn {
class Cylinder;
}  // namespace tarn

/// Shows a measured cylinder: its surface, or its centre line, and a dashed line over its axis
/// where that is prolonged.
///
/// Children of a surface: those of TarnOINurbsSurfaceSeparator; of a centre line: SoCoordinate3,
/// SoLineSet. After them, once the axis was prolonged, an SoSeparator with
/// cylinderExtensionPos, SoDrawStyle (dashed), cylinderExtensionSet.
///
/// Use:
///   surface.Tessellate(0.001);
///   tarn::VOrdCollect* sets = surface.GetTriangleSets();
///   node->SetNurbsSurface(&surface, &dictionary, singleSided, doubleSided, nullptr, &sets,
///                         surface.GetUvMatrices(), /*asCentreLine=*/0);
class TARNOI_EXPORT TarnOICylinderSeparator : public TarnOINurbsSurfaceSeparator {
  TARNOI_NODE_HEADER(TarnOICylinderSeparator);

public:
  TarnOICylinderSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node.
  TarnOICylinderSeparator(const TarnOICylinderSeparator& other);
  TarnOICylinderSeparator& operator=(const TarnOICylinderSeparator& other);

  /// Builds the surface alone, whatever the node showed before.
  using TarnOINurbsSurfaceSeparator::SetNurbsSurface;
  /// Binds the node to `surface`, a NURBSSurfaceCylinder, and builds its surface (see
  /// TarnOINurbsSurfaceSeparator) or, with `asCentreLine` non-zero, its centre line, which is
  /// changed in place when it is there already. Changing between the two drops all children. A
  /// prolonged axis is drawn dashed in either; building the surface again drops the dashed
  /// line, and only a change of mode or of the factor across 1 brings it back: hosts rely on it.
  /// Null only unbinds.
  void SetNurbsSurface(tarn::Surface* surface, tarn::VDictionary* dict,
                       SoShapeHints* singleSidedHints, SoShapeHints* doubleSidedHints,
                       TarnOITexture** textures, tarn::VOrdCollect** triangleSets,
                       tarn::VDictionary* uvMatrices, int asCentreLine);

  /// A copy is in the same mode as this node and knows nothing of its extension, which is among
  /// its children: the next update of a prolonged axis appends another.
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOICylinderSeparator() override;

  /// Builds the centre line, or moves the one that is there.
  void AsCenterLine();
  /// Shows the prolonged axis, or forgets it. What was shown stays until the children are
  /// dropped, for its nodes are no children of this node: hosts rely on it. `extended` tells
  /// whether; the ends and how far are those of the bound cylinder.
  void AddExtension(tarn::Cylinder* extended);

  /// The mode of the last build: non-zero for the centre line.
  int centreLineMode = 0;
  /// What shows the prolonged axis; null while none was shown, and once it was forgotten.
  NodeRef<SoCoordinate3> cylinderExtensionPos;
  NodeRef<SoLineSet> cylinderExtensionSet;

private:
  tarn::Cylinder* cylinder() const;
};
