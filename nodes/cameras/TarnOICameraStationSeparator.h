#pragma once

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"

class SoCamera;
class SoCoordinate3;
class SoLineSet;
class SoScale;
class SoSwitch;
class SoTranslation;
class TarnOIText2;

namespace tarn {
class BasicAffine;
class CameraStation;
class Extents;
}  // namespace tarn

/// The detailed camera symbol, shared by all station nodes. Null until it is first needed,
/// and again after TarnOICameraStationSeparator::CleanUpInitClass. A separator with children
/// that an application puts here is used as it stands; one without is replaced.
extern TARNOI_EXPORT SoSeparator* g_cs_node;

/// Shows a camera station: where the camera stood, how it was turned, the frustum of what it
/// saw, and on request its photograph on a plane in front of the lens.
///
///     auto* node = new TarnOICameraStationSeparator;
///     layer->addChild(node);
///     node->SetCameraStation(station, dictionary, scale, 0, 1, &extents);
///     node->ShowFrustum(1, 0, 1.0, &extents);
///     node->UpdateTextLable(1);
///
/// Children of a node just built: separator (frustum switch with coordinates and lines),
/// complexity, translation, rotation, the shared scale, [separator of the image plane,
/// [separator of the camera line]], the nodes of the symbol, [label translation, label text].
/// The frustum is in viewer coordinates; all that follows the scale is in the axes of the
/// symbol: x to the right, y down, z along the line of sight.
class TARNOI_EXPORT TarnOICameraStationSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOICameraStationSeparator);

public:
  TarnOICameraStationSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child of
  /// this node, and it is not entered into the dictionary. Coin's `copy` makes a node with
  /// children of its own.
  TarnOICameraStationSeparator(const TarnOICameraStationSeparator& other);
  TarnOICameraStationSeparator& operator=(const TarnOICameraStationSeparator& other);

  /// Binds the node and builds it. On a node that has children already only position,
  /// rotation and frustum follow the station.
  /// @param scale scales all that follows it; shared by the stations; may be null
  /// @param withImagePlane non-zero shows the photograph
  /// @param withSymbolToo non-zero shows the symbol besides the photograph
  /// @param projectExtents the project's box in model coordinates, to whose middle the
  ///        frustum reaches; null leaves the frustum as it is
  void SetCameraStation(tarn::CameraStation* station, tarn::VDictionary* dict, SoScale* scale,
                        int withImagePlane, int withSymbolToo, tarn::Extents* projectExtents);

  /// The same on a node that is emptied first; the label is forgotten with the other
  /// children.
  void ReplaceCameraStations(tarn::CameraStation* station, tarn::VDictionary* dict, SoScale* scale,
                             int withImagePlane, int withSymbolToo, tarn::Extents* projectExtents);

  /// Sets a perspective camera so that the viewer looks through the station: position,
  /// orientation, view angle and aspect ratio of its ideal camera. The near distance becomes
  /// the focal length, as it stands, and the far distance 1000.
  /// @param affine brings the station through this affine first; may be null
  /// @return 0 for a station that is not oriented and for a null camera (the camera is left
  ///         alone), else 1; a station without a camera of its own sets the pose only
  static int SetCameraToMatchPhoto(SoCamera* camera, tarn::CameraStation* station,
                                   tarn::BasicAffine* affine);

  /// Builds the detailed symbol into g_cs_node, in the colours of the preferences, unless it
  /// is there already.
  static void CreateCSNode();

  /// Shows the frustum, hides it, or shows it while the station is selected.
  /// @param scale factor on the frustum's depth; the frustum is reshaped when it changes
  void ShowFrustum(int show, int onlyWhenSelected, double scale, tarn::Extents* projectExtents);

  /// Tells the node whether its station is selected.
  void IsSelected(int selected);

  /// With `show` non-zero appends the label "CS" with the photograph's number, or updates it;
  /// with zero takes it away.
  void UpdateTextLable(int show);

  /// With `on` non-zero puts the material in front of the frustum's lines and in front of the
  /// symbol's body, or of the image plane where there is no symbol; with zero takes it out.
  void Highlight(SoMaterial* material, int on) override;

  /// The members of a copy are its own children. The copy shows no model object until a
  /// setter binds it.
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOICameraStationSeparator() override;

  /// Shapes the frustum: the four rays from the projection centre to as far as the middle of
  /// the extents is, and the rectangle there. Nothing happens for null.
  void UpdateFrustum(tarn::Extents* projectExtents);

  // Held by references, so that a copy that shares them never points to a node that is gone.
  NodeRef<SoScale> scaleNode;
  int showImagePlane = 0;
  int showSymbolWithImage = 0;
  NodeRef<TarnOIText2> labelText;
  NodeRef<SoTranslation> labelTranslation;
  NodeRef<SoSwitch> frustumSwitch;
  NodeRef<SoCoordinate3> frustumCoords;
  NodeRef<SoLineSet> frustumLines;
  double frustumScale = 1.0;
  int frustumOnlyWhenSelected = 0;
  int isSelectedFlag = 0;
  int frustumWhichChild = -1;

private:
  void buildChildren(const tarn::CameraStation& station);
  void buildFrustum();
  void appendSymbol(const tarn::CameraStation& station);
  void place(const tarn::CameraStation& station);
  tarn::CameraStation* boundStation() const;
  SoNode* childOrNull(int index) const;
};
