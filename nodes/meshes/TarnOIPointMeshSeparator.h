#pragma once

#include "host/general/VColor.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISeparator.h"
#include "nodes/meshes/MeshFrame.h"
#include "nodes/meshes/SubHighlight.h"

#include <memory>

class SoCoordinate3;
class SoIndexedFaceSet;
class SoMaterial;
class SoMaterialBinding;
class SoSeparator;
class SoShapeHints;
class SoTransform;
class TarnOITexture;
class TriangleLookups;
struct MaterialColours;

namespace tarn {
class PointMesh;
class PointMeshContour;
class PointMeshTempSubPoints;
class PointMeshTempSubTriangles;
class Project;
class Surface;
class VOrdCollect;
}  // namespace tarn

/// Shows a dense point cloud, a triangle mesh or a triangulated surface with photo textures:
/// in the colours of its points, in false colours by height, or with single points or triangles
/// in the highlight colour.
///
///     auto* node = new TarnOIPointMeshSeparator;
///     layer->addChild(node);
///     node->SetPointCloudPointMesh(&mesh, &dictionary);
///     node->ColorPointsWithTexture(1, 2, &project);  // by height
///
/// Children, in brackets what may be missing; a mesh that has a local affine is drawn through
/// the transform:
///   a cloud    [colorMaterial, colorBinding], [sub-highlight material, binding],
///              [localTransform], pointPos, SoPointSet
///   a mesh     [sub-highlight material, binding], [localTransform], SoNormal, SoCoordinate3,
///              faceSet
///   a surface  [localTransform], the normals, coordinates and faces of each set of triangles
///              without texture, the last set first; the shape hints; for each set with
///              texture: texture, SoTextureCoordinate2, SoNormal, SoCoordinate3, faces
/// and the separator of the contours behind them.
///
/// Preferences, read when they are needed: "SelectionColor" (7, section "Colors"),
/// "ShowCountWarnings" (1, no section), "UseMeshExtentsForHueRange" and
/// "UseProjectExtentsForHueRange" (1, "DenseStereo"), and those of FalseColour.
class TARNOI_EXPORT TarnOIPointMeshSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOIPointMeshSeparator);

public:
  TarnOIPointMeshSeparator();
  /// Copies the members, which then share the other node's children; none becomes a child of
  /// this node. Coin's `copy` makes a node with children of its own.
  TarnOIPointMeshSeparator(const TarnOIPointMeshSeparator& other);
  TarnOIPointMeshSeparator& operator=(const TarnOIPointMeshSeparator& other);

  /// Binds the node to a point cloud and builds it anew (see SetMeshData). Null only unbinds.
  /// Returns 1 always, also where the mesh has no points to build from.
  int SetPointCloudPointMesh(tarn::PointMesh* mesh, tarn::VDictionary* dict);

  /// Binds the node to a triangulated surface and builds it anew: a face set for each set of
  /// triangles. Null only unbinds. What is passed in stays the caller's, the nodes are shared.
  /// @param singleSidedHints,doubleSidedHints the first child is one of them, by the surface;
  ///        null is left out
  /// @param textures the texture of each set in their order, null where it has none; the array
  ///        may be null
  /// @param triangleGroups address of the collection of sets, each a collection of
  ///        tarn::Triangle; may be null
  /// @param uvByTriangle the tarn::MatrixDouble of each textured triangle: row k + 1 has u and v
  ///        of corner k. A triangle without is reported ("uvMatrix") and textured by the
  ///        texture's corner
  void SetTriangulatedPointMeshAndTextures(tarn::Surface* surface, tarn::VDictionary* dict,
                                           SoShapeHints* singleSidedHints,
                                           SoShapeHints* doubleSidedHints, TarnOITexture** textures,
                                           tarn::VOrdCollect** triangleGroups,
                                           tarn::VDictionary* uvByTriangle);

  /// Adds the contour's line behind the children (see MeshContours). All contours stand under one
  /// separator, made for the first of them; a cloud that is built anew keeps that separator, but
  /// no longer among its children. Null is passed over.
  void AddContour(tarn::PointMeshContour* contour);

  /// Non-zero: the mesh's local affine is ignored from the next build on. A transform that is
  /// there already stays.
  void SetDoNotUseLocalTransform(int flag);

  /// Takes the mesh's local affine over into localTransform, which is made where it is missing
  /// and, with `insertIfMissing` non-zero, put in front of the children unless it is one. An
  /// affine that cannot be set up leaves the node without transform.
  void UpdateLocalTransform(int insertIfMissing);

  /// Colours the points of a cloud: by height with mode 2, whatever `on` says (see ColorRange);
  /// else in the colours that the mesh stores for them. With `on` zero, or for a mesh without
  /// colours, takes the colours away. Meshes with triangles are left as they are.
  ///
  /// Where "ShowCountWarnings" is on, a node that has not as many coordinates as the mesh has
  /// points is left as it is, with a warning.
  void ColorPointsWithTexture(int on, int mode, tarn::Project* project);

  /// Sets the colour of points highlighted later; each value is cut to 8 bits.
  void SetSubHighlightColor(int red, int green, int blue);

  /// Shows the listed points (indexes, counted from 0) of a cloud in the sub-highlight colour and
  /// all others in their own, or in that of the mesh's material where they have none. Indexes
  /// outside and a null list are passed over.
  void HighlightSubPoints(tarn::VOrdCollect* pointIndexes);

  /// Shows the listed triangles in the preferred selection colour, which becomes the
  /// sub-highlight colour, and all others in that of the mesh's material. A surface of several
  /// textures becomes one plain mesh first.
  void HighlightSubTriangles(tarn::VOrdCollect* triangleIndexes);

  /// Undo HighlightSubPoints, and HighlightSubTriangles with or without textures.
  void ClearSubPointHighlights();
  void ClearSubTriangleHighlights();

  /// Adds the selected points, or the corners of the selected triangles, to `target` as a point
  /// set of its own, in the viewer frame. Nothing is added where nothing is selected; indexes
  /// outside and null arguments are passed over.
  void AddTempSubPointsSeparator(SoSeparator* target, tarn::PointMeshTempSubPoints* selection);
  void AddTempSubTrianglesSeparator(SoSeparator* target,
                                    tarn::PointMeshTempSubTriangles* selection);

  /// Records `on`, highlights as every node does, and lets the highlight paint the whole cloud:
  /// while another material than that of the points' colours is the last, the colours count
  /// for the cloud as a whole.
  void Highlight(SoMaterial* material, int on) override;

  /// How many triangles the mesh has. An unbound node and one that shows something else than a
  /// point mesh are reported ("tarnObject", "tarnObject->isA( PointMeshCls )"), and have none.
  int GetNumTriangles() const;

  /// The number of a picked face in the model's list of triangles, counted from 0; -1 where the
  /// model does not list its triangle any more. It is the face's own number unless the surface
  /// has several sets of triangles, `faceSet` one of them, and the face is one of its.
  int GetTarnIndexOfSubTriangle(int faceIndex, SoNode* faceSet);

  /// The ordinary copy, bound to the same mesh: the dictionary's entry moves to it.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void copyContents(const SoFieldContainer* from, SbBool copyConnections) override;

protected:
  ~TarnOIPointMeshSeparator() override;

  /// Builds a point cloud: coordinates and point set, in front of them the transform where there
  /// is one. The children there were are dropped; faceSet, the contours' separator and the
  /// highlight's flag are kept. A node without children keeps all its members, and a pointPos
  /// among them is reported ("!pointPos"). Returns 0, and adds nothing, for a mesh without a
  /// point array.
  int SetMeshData(tarn::PointMesh* mesh);

  /// Builds a triangle mesh: normals, coordinates and faces, in front of them the transform where
  /// there is one. The children there were are dropped, and all members forgotten. Returns 1.
  int SetTriMeshData(tarn::PointMesh* mesh);

  /// Adds all contours of the mesh, in their order.
  void AddContours();

  /// With `on` non-zero colours the points by the height that they have in the project's
  /// transformed frame, from the lowest to the highest of all point meshes, of the project or of
  /// the mesh, as the preferences say; with zero takes the colours away. A range that needs the
  /// project is reported without one ("project").
  void ColorRange(int on, tarn::Project* project);

  /// Shows the listed triangles of a surface of several textures in the preferred selection
  /// colour and leaves the textures: in front of every face set comes a material with a colour
  /// for each face, and the binding for it. A face set that has no material in front of it is
  /// reported ("node", "node->isOfType( SoMaterial::getClassTypeId() )").
  void HighlightSubTrianglesMultiPhotoTexture(tarn::VOrdCollect* triangleIndexes);

  // References: a host may take children out and copy the node, and no member dangles.
  NodeRef<SoCoordinate3> pointPos;
  NodeRef<SoIndexedFaceSet> faceSet;
  NodeRef<SoMaterial> colorMaterial;
  NodeRef<SoMaterialBinding> colorBinding;
  NodeRef<SoTransform> localTransform;
  int doNotUseLocalTransform = 0;
  /// Present only for surfaces of more than one set of triangles. Node and copies share it.
  std::shared_ptr<TriangleLookups> triangleLookups;
  int highlightOn = 0;
  tarn::VColor subHighlightColor;
  SubHighlight subHighlight;
  NodeRef<SoSeparator> contourSeparator;

private:
  tarn::PointMesh* mesh() const;
  tarn::Surface* surface() const;
  void dropCloud();
  void dropAll();
  void buildTriangles(tarn::Surface* surface);
  void addTriangles(const tarn::VOrdCollect* triangles, TarnOITexture* texture,
                    tarn::VDictionary* uvByTriangle);
  void insertLocalTransform();
  bool isTriangulated() const;
  void removeColours();
  template <typename Paint>
  void colourPoints(Paint paint);
  MaterialColours materialColours() const;
  void placeSubHighlight();
  SoMaterial* materialInFrontOf(const SoNode* faceSet) const;
  MeshFrame frame() const;
};
