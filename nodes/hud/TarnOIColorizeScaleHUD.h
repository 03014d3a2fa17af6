#pragma once

#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIOverlaySeparator.h"

#include <array>

class SoCoordinate3;
class SoSwitch;
class SoText2;

namespace tarn {
class Project;
}  // namespace tarn

/// The legend of the false-colour ramp: a bar of the ramp's colours at the right of the view,
/// with the number of its lower end, its middle and its upper end beside it.
///
/// It has no camera of its own. It is drawn in the range 0 to 1 of both axes, so an overlay's
/// camera that shows this range goes ahead of it:
///
///     auto* overlay = new TarnOIOverlaySeparator(0.5F, 0.5F, 1.0F);
///     static_cast<SoOrthographicCamera*>(overlay->getChild(0))->height.setValue(1.0F);
///     auto* scale = new TarnOIColorizeScaleHUD;
///     overlay->addChild(scale);
///     root->addChild(overlay);
///     scale->UpdateRangeLables(&project, TarnOIColorizeScaleHUD::eHeightRange);
///     scale->ShowColorizeScale(1);
///
/// Children: a switch, hidden at first, over a separator with
///   SoCoordinate3  101 vertices from (0.9, 0.1) to (0.9, 0.9)
///   SoMaterial     100 colours of the ramp, colour i at i percent of its hues
///   SoMaterialBinding, SoDrawStyle
///   SoLineSet      through the first 100 vertices: the last is never drawn
///   SoTranslation, SoMaterial, SoText2  for each number, from below
///
/// Preferences read at construction: "StartHue" (0.0) and "EndHue" (0.8) of section
/// "FalseColor", "S" and "L" (0.5 each) of "DenseStereo", "LineWidth" (3) of "ColorizeScale";
/// at every call: "AllowColorizeScale" (1) of "ColorizeScale", "UseMeshExtentsForHueRange" and
/// "UseProjectExtentsForHueRange" (1 each) of "DenseStereo", "MinNumPhotoRange" (0) of
/// "PhotoOverlap".
class TARNOI_EXPORT TarnOIColorizeScaleHUD : public TarnOIOverlaySeparator {
  TARNOI_NODE_HEADER(TarnOIColorizeScaleHUD);

public:
  /// What the numbers are.
  enum eRangeType : int {
    eHeightRange = 0,       ///< heights of the point meshes or of the project
    ePhotoOverlapRange = 1  ///< how many photographs show a place
  };

  /// A hidden legend whose lower number reads "  0.0" and whose others are empty.
  TarnOIColorizeScaleHUD();
  /// Shares the other's nodes; none becomes a child. Coin's `copy` makes a node with children
  /// of its own.
  TarnOIColorizeScaleHUD(const TarnOIColorizeScaleHUD& other);
  TarnOIColorizeScaleHUD& operator=(const TarnOIColorizeScaleHUD& other);

  /// Shows (non-zero, unless "AllowColorizeScale" is off) or hides the legend.
  void ShowColorizeScale(int show);

  /// Writes the numbers: of heights the range that the ramp colours, in the project's units;
  /// of photographs the range from "MinNumPhotoRange" to how many are oriented. Without a
  /// project, or without the extents that were asked for, they are empty.
  void UpdateRangeLables(tarn::Project* project, eRangeType type);

  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIColorizeScaleHUD() override;

private:
  static constexpr int bottom = 0;
  static constexpr int middle = 1;
  static constexpr int top = 2;

  void CreateLineSet();
  void clearLabels();

  NodeRef<SoSwitch> scaleSwitch;
  NodeRef<SoSeparator> scaleSeparator;
  NodeRef<SoCoordinate3> barCoordinates;
  std::array<NodeRef<SoText2>, 3> labels;
};
