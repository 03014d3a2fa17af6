#include "host/model/Project.h"

#include "host/model/ImportedLine.h"
#include "host/model/ImportedSurface.h"
#include "host/model/NURBSCurve.h"
#include "host/model/NURBSSurface.h"
#include "host/model/NURBSSurfaceCylinder.h"
#include "host/model/Shape.h"
#include "host/model/SurfaceGroup.h"

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

// The one object of the collection for which the condition holds, the first of several.
template <typename Object, typename Condition>
Object* found(const VOrdCollect& all, Condition holds) {
  for (int i = 0; i < all.size(); ++i) {
    auto* object = static_cast<Object*>(all.at(i));
    if (holds(*object)) return object;
  }
  return nullptr;
}
}  // namespace

// Lines, curves, surfaces and shapes, each kind with the collection that lists it.
struct Project::Surfaces {
  template <typename Object>
  struct Kind {
    std::deque<Object> store;
    VOrdCollect all;

    Object& add() { return added(store, all); }
  };
  Kind<SurfaceGroup> groups;
  Kind<NURBSCurve> curves;
  Kind<NURBSSurface> nurbs;
  Kind<NURBSSurfaceCylinder> cylinders;
  Kind<ImportedLine> importedLines;
  Kind<ImportedSurface> importedSurfaces;
  Kind<Shape> shapes;
};

Project::Project() : _surfaces(std::make_unique<Surfaces>()) {}

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

OffsetPoint& Project::AddOffsetPoint() { return added(_offsetPoints, _allOffsetPoints); }

CheckPoint& Project::AddCheckPoint() { return added(_checkPoints, _allCheckPoints); }

ThreeDPointFromTarnObject& Project::AddThreeDPoint() {
  return added(_threeDPoints, _allThreeDPoints);
}

AffineObjectNPoint& Project::AddAffineObjectNPoint() {
  return added(_affineObjectNPoints, _allAffineObjects);
}

SurfaceGroup& Project::AddSurfaceGroup() { return _surfaces->groups.add(); }

NURBSCurve& Project::AddNURBSCurve() { return _surfaces->curves.add(); }

NURBSSurface& Project::AddNURBSSurface() { return _surfaces->nurbs.add(); }

NURBSSurfaceCylinder& Project::AddNURBSSurfaceCylinder() { return _surfaces->cylinders.add(); }

ImportedLine& Project::AddImportedLine() { return _surfaces->importedLines.add(); }

ImportedSurface& Project::AddImportedSurface() { return _surfaces->importedSurfaces.add(); }

Shape& Project::AddShape() { return _surfaces->shapes.add(); }

const VOrdCollect& Project::GetSurfaceGroups() const { return _surfaces->groups.all; }

const VOrdCollect& Project::GetNURBSCurves() const { return _surfaces->curves.all; }

const VOrdCollect& Project::GetNURBSSurfaces() const { return _surfaces->nurbs.all; }

const VOrdCollect& Project::GetNURBSSurfaceCylinders() const { return _surfaces->cylinders.all; }

const VOrdCollect& Project::GetImportedLines() const { return _surfaces->importedLines.all; }

const VOrdCollect& Project::GetImportedSurfaces() const { return _surfaces->importedSurfaces.all; }

const VOrdCollect& Project::GetShapes() const { return _surfaces->shapes.all; }

ObjectPoint* Project::FindObjectPoint(long number) const {
  return found<ObjectPoint>(GetObjectPoints(),
                            [number](const auto& point) { return point.GetNumber() == number; });
}

ImportedPoint* Project::FindImportedPoint(std::string_view name) const {
  return found<ImportedPoint>(GetImportedPoints(),
                              [name](const auto& point) { return point.GetName().str() == name; });
}

CameraStation* Project::FindCameraStation(std::string_view name) const {
  return found<CameraStation>(
      GetCameraStations(), [name](const auto& station) { return station.GetName().str() == name; });
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
  const auto addPoints = [&add](const VOrdCollect& points, bool onlyProcessed) {
    Point3DRandom position;
    for (int i = 0; i < points.size(); ++i) {
      const auto* point = static_cast<const ThreeDPoint*>(points.at(i));
      if (onlyProcessed && !point->IsProcessed()) continue;
      if (point->GetApproximation(position)) add(position.position());
    }
  };
  addPoints(GetOffsetPoints(), processedOnly);
  for (const VOrdCollect* points : {&GetImportedPoints(), &GetCheckPoints(), &GetThreeDPoints()}) {
    addPoints(*points, false);
  }
  const VOrdCollect& objectPoints = GetObjectPoints();
  for (int i = 0; i < objectPoints.size(); ++i) {
    const auto* point = static_cast<const ObjectPoint*>(objectPoints.at(i));
    Point3DRandom position;
    if (point->HasUsablePosition(processedOnly) && point->GetApproximation(position)) {
      add(position.position());
    }
  }
  const VOrdCollect& affineObjects = GetAffineObjects();
  for (int i = 0; i < affineObjects.size(); ++i) {
    const VObject* object = affineObjects.at(i);
    if (!object->isA(AffineObjectNPointCls)) continue;
    const auto* point = static_cast<const AffineObjectNPoint*>(object);
    if (point->HasPosition()) add(point->GetPosition());
  }
  const auto addPoint = [&add](const ThreeDPoint* point) {
    Point3DRandom position;
    if (point && point->GetApproximation(position)) add(position.position());
  };
  const auto addCorners = [&addPoint](const VOrdCollect* triangles) {
    for (int i = 0; triangles && i < triangles->size(); ++i) {
      const auto* triangle = static_cast<const Feature*>(triangles->at(i));
      for (int corner = 0; corner < 3; ++corner) addPoint(triangle->GetThreeDPoint(corner));
    }
  };
  const VOrdCollect& groups = GetSurfaceGroups();
  for (int i = 0; i < groups.size(); ++i) {
    addCorners(static_cast<SurfaceGroup*>(groups.at(i))->GetSelsCollection(0));
  }
  for (const VOrdCollect* surfaces :
       {&GetNURBSSurfaces(), &GetNURBSSurfaceCylinders(), &GetImportedSurfaces()}) {
    for (int i = 0; i < surfaces->size(); ++i) {
      addCorners(static_cast<Surface*>(surfaces->at(i))->GetTriangles());
    }
  }
  const VOrdCollect& importedLines = GetImportedLines();
  for (int i = 0; i < importedLines.size(); ++i) {
    const auto* line = static_cast<const ImportedLine*>(importedLines.at(i));
    for (int end = 0; end < 2; ++end) addPoint(line->GetThreeDPoint(end));
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
