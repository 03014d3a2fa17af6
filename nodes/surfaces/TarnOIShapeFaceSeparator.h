#pragma once

#include "nodes/surfaces/TarnOINurbsSurfaceSeparator.h"

class SoAsciiText;

namespace tarn {
class ShapeFace;
}  // namespace tarn

/// Shows a face of a shape: its surface, and its name as a text that lies flat on the face.
///
/// Children: those of TarnOINurbsSurfaceSeparator, while the surface is shown; then, while the
/// name is shown, an SoSeparator with
///   SoPolygonOffset  lifts the text off the face
///   SoTranslation    to the name's place
///   SoRotation       turns the text upright, in the plane of the face
///   SoRotation       lays the text onto the face
///   SoTexture2       empty: the face's texture is not the text's
///   SoMaterial, SoFont, SoAsciiText
///
/// Use:
///   auto* node = new TarnOIShapeFaceSeparator;
///   tarn::VOrdCollect* sets = face.GetTriangleSets();
///   node->SetNurbsSurface(&face, &dictionary, singleSided, doubleSided, nullptr, &sets, nullptr,
///                         1, 1, 0.5F);
class TARNOI_EXPORT TarnOIShapeFaceSeparator : public TarnOINurbsSurfaceSeparator {
  TARNOI_NODE_HEADER(TarnOIShapeFaceSeparator);

public:
  TarnOIShapeFaceSeparator();
  /// As those of TarnOINurbsSurfaceSeparator: the text is shared with the other node.
  TarnOIShapeFaceSeparator(const TarnOIShapeFaceSeparator& other);
  TarnOIShapeFaceSeparator& operator=(const TarnOIShapeFaceSeparator& other);

  using TarnOINurbsSurfaceSeparator::SetNurbsSurface;
  /// Binds the node to `face` under `dict` (see SetTarnObject; neither is owned) and builds all
  /// children anew. The hints of the first surface that was built stay those of later ones.
  /// Arguments 3 to 7 are those of TarnOINurbsSurfaceSeparator::SetNurbsSurface.
  /// @param showSurface non-zero for the surface
  /// @param showName    non-zero for the name, of a face that has a place for it. A face without
  ///                    triangles gets the place and no text.
  /// @param fontSize    the height of the letters, in units of the model
  /// The text lies on the plane of the face's first triangle, whose corners are reported where
  /// they have no position. Null only unbinds.
  void SetNurbsSurface(tarn::ShapeFace* face, tarn::VDictionary* dict,
                       SoShapeHints* singleSidedHints, SoShapeHints* doubleSidedHints,
                       TarnOITexture** textures, tarn::VOrdCollect** triangleSets,
                       tarn::VDictionary* uvMatrices, int showSurface, int showName,
                       float fontSize);

  /// Turns the triangles of the set that was built last over, whenever `show` is another than
  /// in the call before, and sets the text to the name and, in a second line while `show` is
  /// non-zero, whether the shape is inside out. A node without a text only turns the triangles.
  /// SetNurbsSurface builds them unturned and forgets no `show`: hosts rely on it.
  void ShowInside(int show);

protected:
  ~TarnOIShapeFaceSeparator() override;

private:
  // Null without a name, and in a copy.
  NodeRef<SoAsciiText> labelText;
  // What ShowInside was called with last; 0 in a copy.
  int insideShown = 0;
};
