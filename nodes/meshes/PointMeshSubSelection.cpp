#include "nodes/meshes/TarnOIPointMeshSeparator.h"

// Above: the class. Here: single points and triangles of it.

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMaterialBinding.h>
#include <Inventor/nodes/SoPointSet.h>

#include "host/classes/VOrdCollect.h"
#include "host/model/BasicAffine.h"
#include "host/model/Material.h"
#include "host/model/PointMesh.h"
#include "host/model/PointMeshTempSubPoints.h"
#include "host/model/PointMeshTempSubTriangles.h"
#include "nodes/framework/FieldFill.h"
#include "nodes/framework/MaterialColours.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/SceneColor.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/meshes/MeshRows.h"
#include "nodes/meshes/PointColours.h"
#include "nodes/meshes/TriangleLookups.h"

#include <algorithm>
#include <memory>
#include <unordered_map>
#include <vector>

namespace {

constexpr const char* sourceFile = "TarnOIPointMeshSeparator";

bool isFaceSet(const SoNode* node) { return node->isOfType(SoIndexedFaceSet::getClassTypeId()); }

// How a mesh with a local affine stands in the model; null without, and where it cannot be set
// up: the mesh is then drawn as it is stored.
std::unique_ptr<tarn::BasicAffine> localAffineOf(const tarn::PointMesh& mesh) {
  std::unique_ptr<tarn::BasicAffine> affine(mesh.HasLocalAffine() ? mesh.GetLocalAffine()
                                                                  : nullptr);
  if (affine && !affine->SetupAffine()) affine.reset();
  return affine;
}

// The index in slot i of a selection from `count` parts; -1 where that is outside.
int indexIn(const tarn::VOrdCollect& selection, int i, int count) {
  const auto index = selection.indexAt(i);
  return index >= 0 && index < count ? static_cast<int>(index) : -1;
}

void addPointSet(SoSeparator& target, const std::vector<SbVec3f>& points) {
  auto coordinates = makeNode<SoCoordinate3>();
  {
    const FieldFill fill(coordinates->point, static_cast<int>(points.size()));
    std::ranges::copy(points, fill.values());
  }
  target.addChild(coordinates.get());
  target.addChild(new SoPointSet);
}

}  // namespace

void TarnOIPointMeshSeparator::SetSubHighlightColor(int red, int green, int blue) {
  subHighlightColor =
      tarn::VColor(static_cast<std::uint8_t>(red & 0xFF), static_cast<std::uint8_t>(green & 0xFF),
                   static_cast<std::uint8_t>(blue & 0xFF));
}

void TarnOIPointMeshSeparator::HighlightSubPoints(tarn::VOrdCollect* pointIndexes) {
  if (!mesh()) return;
  const OneNotification once(*this);
  placeSubHighlight();
  const SbColor plain = materialColours().diffuse;
  const int points = std::max(mesh()->GetNumPoints(), 0);
  const int coloured = mesh()->GetRGBsForPoints() ? points : 0;
  const int count = std::max(points, pointPos ? pointPos->point.getNum() : 0);

  const FieldFill fill(subHighlight.material->diffuseColor, count);
  SbColor* const colours = fill.values();
  if (coloured > 0) {
    MeshRows::withColours(*mesh(),
                          [&](auto rowOf) { PointColours().copy(rowOf, colours, coloured); });
  }
  std::fill(colours + coloured, colours + count, plain);
  SubHighlight::paint(colours, count, pointIndexes, subHighlightColor);
}

void TarnOIPointMeshSeparator::HighlightSubTriangles(tarn::VOrdCollect* triangleIndexes) {
  const OneNotification once(*this);
  // The textures are lost: hosts rely on it.
  if (triangleLookups) buildTriangles(surface());
  placeSubHighlight();
  const MaterialColours plain = materialColours();
  plain.applyExceptDiffuse(*subHighlight.material);
  const int count = GetNumTriangles();
  const FieldFill fill(subHighlight.material->diffuseColor, count);
  std::fill(fill.values(), fill.values() + count, plain.diffuse);
  // Also where another colour was set: hosts rely on it.
  subHighlightColor = SubHighlight::selectionColour();
  SubHighlight::paint(fill.values(), count, triangleIndexes, subHighlightColor);
}

void TarnOIPointMeshSeparator::HighlightSubTrianglesMultiPhotoTexture(
    tarn::VOrdCollect* triangleIndexes) {
  const OneNotification once(*this);
  const SbColor plain = materialColours().diffuse;
  for (int i = getNumChildren() - 1; i >= 0; --i) {
    if (!isFaceSet(getChild(i))) continue;
    auto binding = makeNode<SoMaterialBinding>();
    binding->value.setValue(SoMaterialBinding::PER_FACE);
    auto material = makeNode<SoMaterial>();
    const int faces = static_cast<SoIndexedFaceSet*>(getChild(i))->coordIndex.getNum() / 4;
    {
      const FieldFill fill(material->diffuseColor, faces);
      std::fill(fill.values(), fill.values() + faces, plain);
    }
    insertChild(binding.get(), i);
    insertChild(material.get(), i + 1);
  }
  const SbColor selected = SceneColor::from(SubHighlight::selectionColour());
  const tarn::VOrdCollect* triangles = surface() ? surface()->GetTriangles() : nullptr;
  if (!triangleIndexes || !triangles || !triangleLookups) return;

  std::vector<const tarn::VObject*> listed;
  for (int i = 0; i < triangleIndexes->size(); ++i) {
    const int index = indexIn(*triangleIndexes, i, triangles->size());
    if (index != -1) listed.push_back(triangles->at(index));
  }
  std::unordered_map<const SoNode*, SoMaterial*> materials;
  for (const TriangleLookups::Face& face : triangleLookups->firstFacesOf(listed)) {
    if (!face.faceSet) continue;
    SoMaterial*& material = materials[face.faceSet];
    if (!material) material = materialInFrontOf(face.faceSet);
    if (!material || face.index >= material->diffuseColor.getNum()) continue;
    material->diffuseColor.startEditing()[face.index] = selected;
  }
  for (const auto& [faceSet, material] : materials) {
    if (material) material->diffuseColor.finishEditing();
  }
}

void TarnOIPointMeshSeparator::ClearSubPointHighlights() {
  const OneNotification once(*this);
  subHighlight.remove(*this);
}

void TarnOIPointMeshSeparator::ClearSubTriangleHighlights() {
  const OneNotification once(*this);
  subHighlight.remove(*this);
  if (!triangleLookups) return;
  const auto isInFront = [this](int i, SoType type) {
    return i > 0 && getChild(i - 1)->isOfType(type);
  };
  for (int i = getNumChildren() - 1; i > 0; --i) {
    if (!isFaceSet(getChild(i))) continue;
    while (isInFront(i, SoMaterial::getClassTypeId())) {
      removeChild(--i);
      if (isInFront(i, SoMaterialBinding::getClassTypeId())) removeChild(--i);
    }
  }
}

void TarnOIPointMeshSeparator::AddTempSubPointsSeparator(SoSeparator* target,
                                                         tarn::PointMeshTempSubPoints* selection) {
  const tarn::VOrdCollect* indexes = selection ? selection->GetSelectedIndexes() : nullptr;
  if (!target || !mesh() || !indexes || indexes->size() < 1) return;
  const std::unique_ptr<tarn::BasicAffine> affine = localAffineOf(*mesh());
  const MeshFrame viewer = MeshFrame::lessViewOffset();
  const int count = affine ? mesh()->GetNumPoints() : pointPos ? pointPos->point.getNum() : 0;
  std::vector<SbVec3f> points;
  points.reserve(static_cast<std::size_t>(indexes->size()));
  for (int i = 0; i < indexes->size(); ++i) {
    const int index = indexIn(*indexes, i, count);
    if (index == -1) continue;
    if (affine) {
      tarn::Point3DDouble point = mesh()->GetPoint(index);
      affine->ConvertPoint(point);
      points.push_back(viewer.at(point));
    } else {
      points.push_back(pointPos->point[index]);
    }
  }
  addPointSet(*target, points);
}

void TarnOIPointMeshSeparator::AddTempSubTrianglesSeparator(
    SoSeparator* target, tarn::PointMeshTempSubTriangles* selection) {
  const tarn::VOrdCollect* indexes = selection ? selection->GetSelectedIndexes() : nullptr;
  if (!target || !mesh() || !indexes || indexes->size() < 1) return;
  const std::unique_ptr<tarn::BasicAffine> affine = localAffineOf(*mesh());
  const MeshFrame viewer = MeshFrame::lessViewOffset();
  std::vector<SbVec3f> points;
  points.reserve(3 * static_cast<std::size_t>(indexes->size()));
  for (int i = 0; i < indexes->size(); ++i) {
    const int index = indexIn(*indexes, i, mesh()->GetNumTriangles());
    tarn::Point3DDouble corners[3];
    if (index == -1 || !mesh()->GetTrianglePoints(index, corners)) continue;
    for (tarn::Point3DDouble& corner : corners) {
      if (affine) affine->ConvertPoint(corner);
      points.push_back(viewer.at(corner));
    }
  }
  addPointSet(*target, points);
}

int TarnOIPointMeshSeparator::GetTarnIndexOfSubTriangle(int faceIndex, SoNode* faceSet) {
  const OI_To_Tarn_TriangleLookup* record =
      triangleLookups ? triangleLookups->find(faceSet) : nullptr;
  if (!record || faceIndex < 0 || faceIndex >= static_cast<int>(record->triangles.size())) {
    return faceIndex;
  }
  const tarn::VOrdCollect* triangles = surface() ? surface()->GetTriangles() : nullptr;
  if (!triangles) return -1;
  return triangleLookups->positions.of(record->triangles[static_cast<std::size_t>(faceIndex)],
                                       *triangles);
}

MaterialColours TarnOIPointMeshSeparator::materialColours() const {
  const tarn::Material* material = surface() ? surface()->GetMaterial() : nullptr;
  return MaterialColours::of(material ? *material : *tarn::Material::gDefault);
}

void TarnOIPointMeshSeparator::placeSubHighlight() {
  subHighlight.place(*this, colorBinding ? findChild(colorBinding.get()) + 1 : 0);
}

SoMaterial* TarnOIPointMeshSeparator::materialInFrontOf(const SoNode* faceSet) const {
  const int place = findChild(faceSet);
  SoNode* node = place > 0 ? getChild(place - 1) : nullptr;
  if (!TARNOI_ASSERT_AT(node, "node", sourceFile, 967)) return nullptr;
  const bool isMaterial =
      TARNOI_ASSERT_AT(node->isOfType(SoMaterial::getClassTypeId()),
                       "node->isOfType( SoMaterial::getClassTypeId() )", sourceFile, 968);
  return isMaterial ? static_cast<SoMaterial*>(node) : nullptr;
}
