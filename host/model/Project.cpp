#include "host/model/Project.h"

#include <utility>

namespace tarn {

VClass ProjectCls("Project", &VObjectCls, []() -> VObject* { return new Project; });

namespace {
// One object more at the end of its store, and in the collection that lists it.
template <typename Object>
Object& added(std::deque<Object>& store, VOrdCollect& all) {
  Object& object = store.emplace_back();
  all.add(&object);
  return object;
}

void addBoxes(Extents& extents, const VOrdCollect& meshes, BasicAffine* affine, int stored) {
  Point3DDouble minimum;
  Point3DDouble maximum;
  for (int i = 0; i < meshes.size(); ++i) {
    const auto* mesh = static_cast<const PointMesh*>(meshes.at(i));
    if (!mesh->GetBoundingBox(minimum, maximum, affine, stored)) continue;
    extents.Add(minimum);
    extents.Add(maximum);
  }
}
}  // namespace

Project::Project() = default;

Project::~Project() = default;

Camera& Project::AddCamera() { return added(_cameras, _allCameras); }

CameraStation& Project::AddCameraStation() { return added(_stations, _allStations); }

ObjectPoint& Project::AddObjectPoint() { return added(_objectPoints, _allObjectPoints); }

ImportedPoint& Project::AddImportedPoint() { return added(_importedPoints, _allImportedPoints); }

Line& Project::AddLine() { return added(_lines, _allLines); }

Edge& Project::AddEdge() { return added(_edges, _allEdges); }

PointMesh& Project::AddPointMesh() { return AddPointMesh(std::make_unique<PointMesh>()); }

PointMesh& Project::AddPointMesh(std::unique_ptr<PointMesh> mesh) {
  PointMesh& added = *_pointMeshes.emplace_back(std::move(mesh));
  _allPointMeshes.add(&added);
  return added;
}

ObjectPoint* Project::FindObjectPoint(long number) const {
  const VOrdCollect& points = GetObjectPoints();
  for (int i = 0; i < points.size(); ++i) {
    auto* point = static_cast<ObjectPoint*>(points.at(i));
    if (point->GetNumber() == number) return point;
  }
  return nullptr;
}

CameraStation* Project::FindCameraStation(std::string_view name) const {
  const VOrdCollect& stations = GetCameraStations();
  for (int i = 0; i < stations.size(); ++i) {
    auto* station = static_cast<CameraStation*>(stations.at(i));
    if (station->GetName().str() == name) return station;
  }
  return nullptr;
}

BasicAffine* Project::GetAffineTransform(int) const { return _affine; }

void Project::GetPointMeshExtents(Extents& extents, BasicAffine* affine) const {
  addBoxes(extents, GetPointMeshes(), affine, 1);
}

void Project::GetProjectExtents(Extents& extents, BasicAffine* affine, int withStations,
                                int processedOnly) const {
  const BasicAffine* usable = affine && affine->SetupAffine() ? affine : nullptr;
  const auto add = [&extents, usable](Point3DDouble point) {
    if (usable) usable->ConvertPoint(point);
    extents.Add(point);
  };
  // By way of the virtual collections: a project that answers from its own model need
  // not answer this too.
  Point3DRandom position;
  const VOrdCollect& objectPoints = GetObjectPoints();
  for (int i = 0; i < objectPoints.size(); ++i) {
    const auto* point = static_cast<const ObjectPoint*>(objectPoints.at(i));
    if (point->HasUsablePosition(processedOnly) && point->GetApproximation(position)) {
      add(position.position());
    }
  }
  const VOrdCollect& importedPoints = GetImportedPoints();
  for (int i = 0; i < importedPoints.size(); ++i) {
    const auto* point = static_cast<const ImportedPoint*>(importedPoints.at(i));
    if (point->GetApproximation(position)) add(position.position());
  }
  addBoxes(extents, GetPointMeshes(), affine, 0);
  if (!withStations) return;
  const VOrdCollect& stations = GetCameraStations();
  for (int i = 0; i < stations.size(); ++i) {
    const auto* station = static_cast<const CameraStation*>(stations.at(i));
    if (station->IsOriented()) add(station->GetPosition());
  }
}

Extents Project::GetProjectExtents(BasicAffine* affine, int withStations, int processedOnly) const {
  Extents extents;
  GetProjectExtents(extents, affine, withStations, processedOnly);
  return extents;
}

}  // namespace tarn
