#include "nodes/meshes/TarnOIPointMeshSeparator.h"

#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTransform.h>

#include "host/classes/VDictionary.h"
#include "host/classes/VOrdCollect.h"
#include "host/model/BasicAffine.h"
#include "host/model/MatrixDouble.h"
#include "host/model/PointMesh.h"
#include "host/model/ThreeDPoint.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/FieldFill.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/TarnOITexture.h"
#include "nodes/framework/TriangleSet.h"
#include "nodes/meshes/TriangleLookups.h"

#include <algorithm>

TARNOI_NODE_SOURCE(TarnOIPointMeshSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIPointMeshSeparator);

namespace {

constexpr const char* sourceFile = "TarnOIPointMeshSeparator";

// The second texture coordinate counts from the other side.
void placeTexture(const tarn::MatrixDouble& uvMatrix, SbVec2f* corners) {
  for (int corner = 0; corner < 3; ++corner) {
    corners[corner].setValue(static_cast<float>(uvMatrix(corner + 1, 1)),
                             static_cast<float>(1.0 - uvMatrix(corner + 1, 2)));
  }
}

}  // namespace

TarnOIPointMeshSeparator::TarnOIPointMeshSeparator() {
  TARNOI_NODE_CONSTRUCTOR();
  subHighlightColor = SubHighlight::selectionColour();
}

TarnOIPointMeshSeparator::TarnOIPointMeshSeparator(const TarnOIPointMeshSeparator& other)
    : TarnOIPointMeshSeparator() {
  *this = other;
}

TarnOIPointMeshSeparator& TarnOIPointMeshSeparator::operator=(
    const TarnOIPointMeshSeparator& other) = default;

TarnOIPointMeshSeparator::~TarnOIPointMeshSeparator() = default;

int TarnOIPointMeshSeparator::SetPointCloudPointMesh(tarn::PointMesh* mesh,
                                                     tarn::VDictionary* dict) {
  SetTarnObject(mesh, dict);
  if (mesh) SetMeshData(mesh);
  return 1;
}

int TarnOIPointMeshSeparator::SetMeshData(tarn::PointMesh* mesh) {
  const OneNotification once(*this);
  const NodeRef<SoCoordinate3> earlier = getNumChildren() > 0 ? pointPos : NodeRef<SoCoordinate3>();
  dropCloud();
  UpdateLocalTransform(0);
  TARNOI_ASSERT_AT(!pointPos, "!pointPos", sourceFile, 218);
  pointPos = makeNode<SoCoordinate3>();
  const NodeRef<SoPointSet> pointSet = makeNode<SoPointSet>();
  if (!mesh || !mesh->GetPoints()) return 0;

  // Where nobody else knows the coordinates that were dropped, their memory is filled again.
  if (earlier && earlier->getRefCount() == 1) FieldMemory::swap(pointPos->point, earlier->point);
  {
    const int count = std::max(mesh->GetNumPoints(), 0);
    const FieldFill points(pointPos->point, count);
    frame().place(*mesh, points.values(), count);
  }
  insertLocalTransform();
  addChild(pointPos.get());
  addChild(pointSet.get());
  return 1;
}

int TarnOIPointMeshSeparator::SetTriMeshData(tarn::PointMesh* mesh) {
  buildTriangles(mesh);
  return 1;
}

void TarnOIPointMeshSeparator::buildTriangles(tarn::Surface* surface) {
  const OneNotification once(*this);
  dropAll();
  UpdateLocalTransform(0);
  // Hosts rely on being asked, though both kinds are built alike.
  if (surface) surface->IsDoubleSided();
  triangleLookups.reset();
  addTriangles(surface ? surface->GetTriangles() : nullptr, nullptr, nullptr);
  insertLocalTransform();
}

void TarnOIPointMeshSeparator::SetTriangulatedPointMeshAndTextures(
    tarn::Surface* surface, tarn::VDictionary* dict, SoShapeHints* singleSidedHints,
    SoShapeHints* doubleSidedHints, TarnOITexture** textures, tarn::VOrdCollect** triangleGroups,
    tarn::VDictionary* uvByTriangle) {
  SetTarnObject(surface, dict);
  if (!surface) return;
  const OneNotification once(*this);
  dropAll();
  UpdateLocalTransform(0);
  SoShapeHints* hints = surface->IsDoubleSided() ? doubleSidedHints : singleSidedHints;
  if (hints) addChild(hints);

  triangleLookups.reset();
  const tarn::VOrdCollect* groups = triangleGroups ? *triangleGroups : nullptr;
  const int count = groups ? groups->size() : 0;
  if (count > 1) {
    triangleLookups = std::make_shared<TriangleLookups>();
    triangleLookups->records.reserve(static_cast<std::size_t>(count));
  }
  for (int group = 0; group < count; ++group) {
    addTriangles(static_cast<const tarn::VOrdCollect*>(groups->at(group)),
                 textures ? textures[group] : nullptr, uvByTriangle);
  }
  insertLocalTransform();
}

void TarnOIPointMeshSeparator::SetDoNotUseLocalTransform(int flag) {
  doNotUseLocalTransform = flag;
}

void TarnOIPointMeshSeparator::UpdateLocalTransform(int insertIfMissing) {
  if (doNotUseLocalTransform) return;
  if (mesh() && mesh()->HasLocalAffine()) {
    if (!localTransform) localTransform = makeNode<SoTransform>();
    const std::unique_ptr<tarn::BasicAffine> affine(mesh()->GetLocalAffine());
    const int inverted = affine ? affine->IsInverted() : 0;
    if (!affine || affine->SetupAffine()) {
      ConvertTarnAffineToSoTransform(affine.get(), localTransform.get(), 1, 1, 1, inverted);
    } else {
      localTransform.reset();
    }
  }
  if (insertIfMissing) insertLocalTransform();
}

int TarnOIPointMeshSeparator::GetNumTriangles() const {
  TARNOI_ASSERT_AT(tarnObject, "tarnObject", sourceFile, 1254);
  TARNOI_ASSERT_AT(mesh(), "tarnObject->isA( PointMeshCls )", sourceFile, 1255);
  return mesh() ? mesh()->GetNumTriangles() : 0;
}

SoNode* TarnOIPointMeshSeparator::copy(SbBool copyConnections) const {
  return boundCopy(TarnOISeparator::copy(copyConnections));
}

void TarnOIPointMeshSeparator::copyContents(const SoFieldContainer* from, SbBool copyConnections) {
  TarnOISeparator::copyContents(from, copyConnections);
  TriangleSet::completeCopy(*this);
  // The members of a copy are its own children, where the original's were its.
  const auto* other = static_cast<const TarnOIPointMeshSeparator*>(from);
  pointPos = ChildNodes::counterpart(*this, *other, other->pointPos);
  faceSet = ChildNodes::counterpart(*this, *other, other->faceSet);
  colorMaterial = ChildNodes::counterpart(*this, *other, other->colorMaterial);
  colorBinding = ChildNodes::counterpart(*this, *other, other->colorBinding);
  localTransform = ChildNodes::counterpart(*this, *other, other->localTransform);
  doNotUseLocalTransform = other->doNotUseLocalTransform;
  if (other->triangleLookups) {
    triangleLookups =
        std::make_shared<TriangleLookups>(other->triangleLookups->counterpart(*this, *other));
  }
  highlightOn = other->highlightOn;
  subHighlightColor = other->subHighlightColor;
  subHighlight = other->subHighlight.counterpart(*this, *other);
  contourSeparator = ChildNodes::counterpart(*this, *other, other->contourSeparator);
}

tarn::PointMesh* TarnOIPointMeshSeparator::mesh() const {
  return tarnObject && tarnObject->isA(tarn::PointMeshCls)
             ? static_cast<tarn::PointMesh*>(tarnObject)
             : nullptr;
}

tarn::Surface* TarnOIPointMeshSeparator::surface() const {
  return tarnObject && tarnObject->isA(tarn::SurfaceCls) ? static_cast<tarn::Surface*>(tarnObject)
                                                         : nullptr;
}

// What a node without children has in its members stays there: hosts rely on it.
void TarnOIPointMeshSeparator::dropCloud() {
  if (getNumChildren() == 0) return;
  removeAllChildren();
  colorMaterial.reset();
  colorBinding.reset();
  pointPos.reset();
  subHighlight = SubHighlight();
  localTransform.reset();
}

void TarnOIPointMeshSeparator::dropAll() {
  if (getNumChildren() == 0) return;
  dropCloud();
  faceSet.reset();
  contourSeparator.reset();
  highlightOn = 0;
}

void TarnOIPointMeshSeparator::addTriangles(const tarn::VOrdCollect* triangles,
                                            TarnOITexture* texture,
                                            tarn::VDictionary* uvByTriangle) {
  static const tarn::VOrdCollect none;
  if (!triangles) triangles = &none;
  TriangleSet set(texture);
  set.fill(
      *triangles,
      [frame = frame()](const tarn::ThreeDPoint* corner) {
        tarn::Point3DDouble position;
        if (corner) corner->GetApproximationNoLocalAffine(position);
        return frame.at(position);
      },
      [uvByTriangle](tarn::Triangle* triangle, SbVec2f* corners) {
        const auto* uvMatrix = static_cast<const tarn::MatrixDouble*>(
            uvByTriangle ? uvByTriangle->atKey(triangle) : nullptr);
        if (TARNOI_ASSERT_AT(uvMatrix, "uvMatrix", sourceFile, 1175)) {
          placeTexture(*uvMatrix, corners);
        } else {
          std::fill(corners, corners + 3, SbVec2f(0.0F, 0.0F));
        }
      });
  faceSet = set.faces;
  if (triangleLookups) {
    OI_To_Tarn_TriangleLookup& record = triangleLookups->records.emplace_back();
    record.faceSet = faceSet;
    record.triangles.reserve(static_cast<std::size_t>(triangles->size()));
    for (int t = 0; t < triangles->size(); ++t) record.triangles.push_back(triangles->at(t));
  }
  if (texture) {
    set.append(*this, texture);
  } else {
    // In front of all, the shape hints included: hosts rely on it.
    set.insert(*this, 0);
  }
}

void TarnOIPointMeshSeparator::insertLocalTransform() {
  if (localTransform && findChild(localTransform.get()) == -1) insertChild(localTransform.get(), 0);
}

MeshFrame TarnOIPointMeshSeparator::frame() const {
  return localTransform ? MeshFrame::asStored() : MeshFrame::lessViewOffset();
}
