#pragma once

#include "host/general/Point3DDouble.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"

class SoCoordinate3;
class SoScale;
class SoTranslation;

/// Shows the model's axes as a cross of three coloured lines (X red, Y green, Z blue), each
/// with its letter at the end, under one scale. It is bound to no object.
///
/// Children:
///   originPos    translation, once SetOrigin was called
///   axisScale    the scale of what follows, labels' places included
///   SoSeparator  Y, then X, then Z, each: SoMaterial, SoCoordinate3 with the line's two ends,
///                SoLineSet, SoTranslation of the label, SoText2
///
/// Use, of the unit cross at a place of the model:
///   auto* axes = new TarnOIAxisSeparator;
///   axes->SetScale(10.0);
///   axes->SetOrigin(origin);
///   root->addChild(axes);
/// or of axes of any length and direction, with UpdateCoordinates instead.
class TARNOI_EXPORT TarnOIAxisSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIAxisSeparator);

public:
  TarnOIAxisSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child
  /// of this node. Coin's `copy` makes a node with children of its own.
  TarnOIAxisSeparator(const TarnOIAxisSeparator& other);
  TarnOIAxisSeparator& operator=(const TarnOIAxisSeparator& other);

  /// Scales the cross, alike in all directions. This and the next two build the children of a
  /// node that has none: axes of length 1 that meet in the scene's origin.
  void SetScale(double scale);

  /// Moves the cross to a point of the model. The first call puts the translation ahead of the
  /// scale, which does not scale it.
  void SetOrigin(tarn::Point3DDouble origin);

  /// Draws the axes from `origin` to their ends, all four points of the model, ahead of scale
  /// and origin. The caller's points are brought into the viewer frame in place, which hosts
  /// rely on: they must not be passed again, nor one of them for two.
  void UpdateCoordinates(tarn::Point3DDouble& origin, tarn::Point3DDouble& xEnd,
                         tarn::Point3DDouble& yEnd, tarn::Point3DDouble& zEnd);

  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIAxisSeparator() override;

  /// Appends the scale and the three axes.
  void CreateChildren();

  /// Writes both ends, which are in the viewer frame already, as the first two coordinates.
  void SetLinePosition(SoCoordinate3* coords, tarn::Point3DDouble& from, tarn::Point3DDouble& to);

  NodeRef<SoScale> axisScale;
  NodeRef<SoCoordinate3> yAxisCoords;
  NodeRef<SoCoordinate3> xAxisCoords;
  NodeRef<SoCoordinate3> zAxisCoords;
  NodeRef<SoTranslation> yLabelPos;
  NodeRef<SoTranslation> xLabelPos;
  NodeRef<SoTranslation> zLabelPos;
  NodeRef<SoTranslation> originPos;

private:
  void createMissingChildren();
};
