#include "nodes/surfaces/TarnOISurfaceSeparator.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTextureCoordinate2.h>

#include "host/classes/CollectionIndex.h"
#include "host/classes/VDictionary.h"
#include "host/model/Material.h"
#include "host/model/ObjectName.h"
#include "host/model/Photograph.h"
#include "host/model/Project.h"
#include "host/model/SurfaceGroup.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/FieldFill.h"
#include "nodes/framework/NormalFill.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/surfaces/SurfaceVertexKey.h"

#include <algorithm>
#include <array>
#include <memory>
#include <vector>

TARNOI_NODE_SOURCE(TarnOISurfaceSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOISurfaceSeparator);

namespace {

constexpr const char* sourceFile = "TarnOISurfaceSeparator";

using Vertices = std::unique_ptr<tarn::VOrdCollect>;

// The photograph for the whole group; null where its material is not textured.
tarn::Photograph* bestPhotoOf(tarn::SurfaceGroup& group, tarn::Project* project) {
  const tarn::Material* material = group.GetMaterial();
  if (!material) material = tarn::Material::gDefault;
  if (material->GetDiffuseType() != tarn::Material::ePhotoTexture) return nullptr;
  const tarn::VOrdCollect* sels = group.GetSelsCollection(0);
  if (!TARNOI_ASSERT_AT(sels, "sels", sourceFile, 127)) return nullptr;
  const tarn::PhotoCollection* photographs = project ? project->GetPhotoCollection() : nullptr;
  if (!photographs) return nullptr;
  return photographs->GetBestFacePhoto(static_cast<tarn::SurfaceElement*>(sels->at(0)));
}

/// The children that a surface is written into: the last of each kind, null where there is none.
struct MeshNodes {
  explicit MeshNodes(const SoGroup& node)
      : coords(ChildNodes::last<SoCoordinate3>(node)),
        faceSet(ChildNodes::last<SoIndexedFaceSet>(node)),
        textureCoords(ChildNodes::last<SoTextureCoordinate2>(node)),
        hints(ChildNodes::last<SoShapeHints>(node)),
        normals(ChildNodes::last<SoNormal>(node)) {}

  // Normals may be fewer than the vertices that are shown: either may be older than the other.
  void makeRoomForNormals() const {
    if (normals && coords) NormalFill::makeRoomFor(*normals, coords->point.getNum());
  }

  SoCoordinate3* coords;
  SoIndexedFaceSet* faceSet;
  SoTextureCoordinate2* textureCoords;
  SoShapeHints* hints;
  SoNormal* normals;
};

void build(SoGroup& node, SoShapeHints* hints, bool textured) {
  if (hints) node.addChild(hints);
  if (textured) node.addChild(new SoTextureCoordinate2);
  node.addChild(new SoCoordinate3);
  node.addChild(new SoIndexedFaceSet);
}

void addOrDropTextureCoords(SoGroup& node, MeshNodes& mesh, bool textured) {
  if (!textured) {
    ChildNodes::remove(node, mesh.textureCoords);
    mesh.textureCoords = nullptr;
  } else if (!mesh.textureCoords && mesh.coords) {
    mesh.textureCoords = new SoTextureCoordinate2;
    node.insertChild(mesh.textureCoords, node.findChild(mesh.coords));
  }
}

// Vertices stand in no order of memory: those that come soon are fetched ahead, which saves two
// thirds of the time of reading 200,000 of them.
void fetchAhead([[maybe_unused]] const tarn::VOrdCollect& vertices, [[maybe_unused]] int i) {
#ifdef __GNUC__
  constexpr int ahead = 16;
  constexpr int line = 64;
  const auto* vertex = reinterpret_cast<const char*>(vertices.at(i + ahead));
  if (!vertex) return;
  __builtin_prefetch(vertex);
  __builtin_prefetch(vertex + line);
#endif
}

// The scene's position of a vertex; where it has none, that of the vertex before, which is in
// `pos`.
SbVec3f positionOf(const tarn::VObject* vertex, tarn::Point3DRandom& pos) {
  const auto* tdp = static_cast<const tarn::ThreeDPoint*>(vertex);
  TARNOI_ASSERT_AT(tdp && tdp->GetApproximation(pos), "tdp->GetApproximation( pos )", sourceFile,
                   217);
  return ViewerFrame::fromModel(pos.position());
}

// Values that are written by their index only: a longer field keeps those behind.
template <typename Field>
class IndexedWriting {
public:
  IndexedWriting(Field& field, int count) : fill(field, std::max(count, field.getNum())) {}
  auto* values() const { return fill.values(); }

private:
  FieldFill<Field> fill;
};

void placeVertices(const tarn::VOrdCollect& vertices, SoCoordinate3& coords) {
  const FieldFill points(coords.point, vertices.size());
  SbVec3f* point = points.values();
  tarn::Point3DRandom pos;
  for (int i = 0; i < vertices.size(); ++i) {
    fetchAhead(vertices, i);
    point[i] = positionOf(vertices.at(i), pos);
  }
}

// The same with texture coordinates of the photograph.
void placeVertices(const tarn::VOrdCollect& vertices, SoCoordinate3& coords,
                   tarn::Photograph& bestPhoto, SoTextureCoordinate2& textureCoords) {
  const FieldFill points(coords.point, vertices.size());
  const IndexedWriting placed(textureCoords.point, vertices.size());
  SbVec3f* point = points.values();
  SbVec2f* place = placed.values();
  const tarn::Point2DDouble scale = bestPhoto.GetPixelToTextureNormalizedSpace();
  tarn::Point3DRandom pos;
  tarn::Point2DDouble pt;
  for (int i = 0; i < vertices.size(); ++i) {
    fetchAhead(vertices, i);
    point[i] = positionOf(vertices.at(i), pos);
    const auto* tdp = static_cast<const tarn::ThreeDPoint*>(vertices.at(i));
    TARNOI_ASSERT_AT(tdp && tdp->BestProjectionOnto(&bestPhoto, pt),
                     "tdp->BestProjectionOnto( bestPhoto, pt )", sourceFile, 226);
    // The second counts from the other side: it is narrowed first, and then subtracted.
    place[i].setValue(static_cast<float>(scale.x * pt.x),
                      1.0F - static_cast<float>(scale.y * pt.y));
  }
}

void indexTriangles(tarn::SurfaceGroup& group, tarn::VOrdCollect& vertices,
                    SoIndexedFaceSet& faceSet) {
  const tarn::VOrdCollect* triangles = group.GetSelsCollection(0);
  const int count = triangles ? triangles->size() : 0;
  const FieldFill indexes(faceSet.coordIndex, 4 * count);
  std::int32_t* index = indexes.values();
  const std::vector<tarn::SurfaceGroup::Corners>* known = group.cornerPositions();
  if (known && known->size() == static_cast<std::size_t>(count)) {
    for (const tarn::SurfaceGroup::Corners& corners : *known) {
      index = std::ranges::copy(corners, index).out;
      *index++ = SO_END_FACE_INDEX;
    }
    return;
  }
  const tarn::CollectionIndex positions(vertices);
  for (int t = 0; t < count; ++t) {
    const auto* triangle = static_cast<const tarn::Feature*>(triangles->at(t));
    // All corners are asked for first: what they are looked up by comes from far in memory.
    std::array<const tarn::ThreeDPoint*, 3> corners{};
    for (int i = 0; i < 3 && triangle; ++i) {
      corners[static_cast<std::size_t>(i)] = triangle->GetThreeDPoint(i);
    }
    for (const tarn::ThreeDPoint* corner : corners) *index++ = positions.indexOf(corner);
    *index++ = SO_END_FACE_INDEX;
  }
}

}  // namespace

TarnOISurfaceSeparator::TarnOISurfaceSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOISurfaceSeparator::TarnOISurfaceSeparator(const TarnOISurfaceSeparator& other)
    : TarnOISurfaceSeparator() {
  *this = other;
}

TarnOISurfaceSeparator& TarnOISurfaceSeparator::operator=(const TarnOISurfaceSeparator& other) =
    default;

TarnOISurfaceSeparator::~TarnOISurfaceSeparator() = default;

void TarnOISurfaceSeparator::SetSurface(tarn::SurfaceGroup* group, tarn::VDictionary* searchDict,
                                        tarn::Project* project, SoShapeHints* singleSidedHints,
                                        SoShapeHints* doubleSidedHints) {
  // A mark that this way of building should not be reached any more. Hosts reach it, and rely on
  // the mark and on the surface.
  TARNOI_ASSERT_AT(false, "0", sourceFile, 102);
  SetTarnObject(group, searchDict);
  if (!group) return;
  const OneNotification once(*this);
  tarn::Photograph* bestPhoto = bestPhotoOf(*group, project);
  SoShapeHints* hints = group->IsDoubleSided() ? doubleSidedHints : singleSidedHints;
  const bool isBuilt = getNumChildren() > 0;
  if (!isBuilt) build(*this, hints, bestPhoto);

  MeshNodes mesh(*this);
  TARNOI_ASSERT_AT(mesh.coords && mesh.faceSet, "coords && faceSet", sourceFile, 152);
  if (isBuilt) addOrDropTextureCoords(*this, mesh, bestPhoto);

  Vertices vertices(group->GetVertices(project));
  if (!vertices) vertices = std::make_unique<tarn::VOrdCollect>();
  if (mesh.coords && bestPhoto && mesh.textureCoords) {
    placeVertices(*vertices, *mesh.coords, *bestPhoto, *mesh.textureCoords);
  } else if (mesh.coords) {
    placeVertices(*vertices, *mesh.coords);
  }
  mesh.makeRoomForNormals();
  if (mesh.faceSet) indexTriangles(*group, *vertices, *mesh.faceSet);

  if (hints && mesh.hints && hints != mesh.hints) replaceChild(mesh.hints, hints);
}

void TarnOISurfaceSeparator::SetTexture(TarnOITexture* texture, tarn::Project* project) {
  if (texture == this->texture.get()) return;
  const NodeRef<TarnOITexture> next(texture);
  ChildNodes::remove(*this, this->texture.get());
  if (texture) insertChild(texture, 0);
  if (project) SetSurface(group(), searchDict, project, nullptr, nullptr);
  this->texture = next;
}

void TarnOISurfaceSeparator::AddOrUpdateNormals(tarn::VDictionary& normalsByKey,
                                                tarn::Project* project) {
  if (!normalNode) {
    normalNode = makeNode<SoNormal>();
    insertChild(normalNode.get(), 0);
  }
  const Vertices vertices(group() ? group()->GetVertices(project) : nullptr);
  if (!vertices) return;
  tarn::ObjectName* name = group()->GetNameObject();
  SurfaceVertexKey key(name ? name : tarn::ObjectName::gDefault, nullptr);
  std::vector<const tarn::Point3DDouble*> normals;
  normals.reserve(static_cast<std::size_t>(vertices->size()));
  for (int i = 0; i < vertices->size(); ++i) {
    key.vertex = vertices->at(i);
    normals.push_back(static_cast<const tarn::Point3DDouble*>(normalsByKey.atKey(&key)));
    if (!normals.back()) {
      RemoveNormals();
      return;
    }
  }
  {
    const IndexedWriting writing(normalNode->vector, vertices->size());
    // With the view offset subtracted, as from a position: hosts rely on it.
    std::ranges::transform(normals, writing.values(), [](const tarn::Point3DDouble* normal) {
      return ViewerFrame::fromModel(*normal);
    });
  }
  MeshNodes(*this).makeRoomForNormals();
}

void TarnOISurfaceSeparator::RemoveNormals() { ChildNodes::removeAndForget(*this, normalNode); }

SoNode* TarnOISurfaceSeparator::copy(SbBool copyConnections) const {
  auto* copied = static_cast<TarnOISurfaceSeparator*>(TarnOISeparator::copy(copyConnections));
  copied->texture = texture;
  copied->normalNode = normalNode;
  return boundCopy(copied);
}

void TarnOISurfaceSeparator::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  MeshNodes(*this).makeRoomForNormals();
}

tarn::SurfaceGroup* TarnOISurfaceSeparator::group() const {
  return tarnObjectAs<tarn::SurfaceGroup>(tarn::SurfaceGroupCls);
}
