#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VOrdCollect.h"
#include "host/model/AffineObjectNPoint.h"
#include "host/model/BasicAffine.h"
#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/CheckPoint.h"
#include "host/model/Edge.h"
#include "host/model/Extents.h"
#include "host/model/ImportedPoint.h"
#include "host/model/Line.h"
#include "host/model/ObjectName.h"
#include "host/model/ObjectPoint.h"
#include "host/model/OffsetPoint.h"
#include "host/model/PhotoCollection.h"
#include "host/model/PointMesh.h"
#include "host/model/ThreeDPointFromTarnObject.h"
#include "host/model/Units.h"

#include <deque>
#include <memory>
#include <string_view>
#include <vector>

namespace tarn {

class ImportedLine;
class ImportedSurface;
class NURBSCurve;
class NURBSSurface;
class NURBSSurfaceCylinder;
class Shape;
class SurfaceGroup;

extern TARN_HOST_EXPORT VClass ProjectCls;

/// A photogrammetric project and everything it owns. Objects are added empty and
/// filled by their setters; the references returned stay valid for the project's
/// life. Collections list the objects in the order they were added.
class TARN_HOST_EXPORT Project : public VObject {
public:
  Project();
  Project(const Project&) = delete;
  Project& operator=(const Project&) = delete;
  ~Project() override;

  Camera& AddCamera();
  CameraStation& AddCameraStation();
  ObjectPoint& AddObjectPoint();
  ImportedPoint& AddImportedPoint();
  Line& AddLine();
  Edge& AddEdge();
  PointMesh& AddPointMesh();
  /// Adds a mesh that was filled before.
  PointMesh& AddPointMesh(std::unique_ptr<PointMesh> mesh);
  OffsetPoint& AddOffsetPoint();
  CheckPoint& AddCheckPoint();
  ThreeDPointFromTarnObject& AddThreeDPoint();
  AffineObjectNPoint& AddAffineObjectNPoint();
  SurfaceGroup& AddSurfaceGroup();
  NURBSCurve& AddNURBSCurve();
  NURBSSurface& AddNURBSSurface();
  NURBSSurfaceCylinder& AddNURBSSurfaceCylinder();
  ImportedLine& AddImportedLine();
  ImportedSurface& AddImportedSurface();
  Shape& AddShape();

  virtual const VOrdCollect& GetCameras() const { return _allCameras; }
  virtual const VOrdCollect& GetCameraStations() const { return _allStations; }
  virtual const VOrdCollect& GetObjectPoints() const { return _allObjectPoints; }
  virtual const VOrdCollect& GetImportedPoints() const { return _allImportedPoints; }
  virtual const VOrdCollect& GetLines() const { return _allLines; }
  virtual const VOrdCollect& GetEdges() const { return _allEdges; }
  virtual const VOrdCollect& GetPointMeshes() const { return _allPointMeshes; }
  virtual const VOrdCollect& GetOffsetPoints() const { return _allOffsetPoints; }
  virtual const VOrdCollect& GetCheckPoints() const { return _allCheckPoints; }
  /// The points that were derived from objects of the model (ThreeDPointFromTarnObject).
  virtual const VOrdCollect& GetThreeDPoints() const { return _allThreeDPoints; }
  virtual const VOrdCollect& GetAffineObjects() const { return _allAffineObjects; }
  virtual const VOrdCollect& GetSurfaceGroups() const;
  virtual const VOrdCollect& GetNURBSCurves() const;
  virtual const VOrdCollect& GetNURBSSurfaces() const;
  virtual const VOrdCollect& GetNURBSSurfaceCylinders() const;
  virtual const VOrdCollect& GetImportedLines() const;
  virtual const VOrdCollect& GetImportedSurfaces() const;
  virtual const VOrdCollect& GetShapes() const;
  virtual PhotoCollection* GetPhotoCollection() { return &_photographs; }
  const PhotoCollection& photographs() const { return _photographs; }

  /// The object point of that number, the imported point or station of that name; null
  /// when there is none. Linear.
  ObjectPoint* FindObjectPoint(long number) const;
  ImportedPoint* FindImportedPoint(std::string_view name) const;
  CameraStation* FindCameraStation(std::string_view name) const;

  /// The transform that brings the project into its own coordinate system; null
  /// when it is there already. `active` is for hosts in which it can be switched off:
  /// non-zero asks for it only while it is on.
  virtual BasicAffine* GetAffineTransform(int active) const;
  /// Sets the project's transform; not owned, null for none.
  void SetAffineTransform(BasicAffine* affine) { _affine = affine; }

  /// The unit in which lengths are told to the user: metres until another is set.
  virtual const Units* GetUnits() const { return &_units; }
  void SetUnits(const Units& units) { _units = units; }

  /// The height, in the project's units and its own coordinate system, above whose plane
  /// volumes are measured: the height of the ground. 0, the XY plane itself, until another
  /// is set.
  virtual double GetVolumeAboveXY_ZLevel() const { return _zLevel; }
  void SetVolumeAboveXY_ZLevel(double height) { _zLevel = height; }

  /// How far a drawn curve may depart from the true one, in project units: 0.001 until another
  /// is set.
  virtual double GetCurveTesselationTolerance() const { return _curveTolerance; }
  void SetCurveTesselationTolerance(double tolerance) { _curveTolerance = tolerance; }

  /// Grows `extents` to hold the points of all point meshes as they are stored, without the
  /// meshes' local affines: the frame that a ramp of heights colours. Each box is that of its
  /// points brought through `affine` (see PointMesh::GetBoundingBox).
  virtual void GetPointMeshExtents(Extents& extents, BasicAffine* affine) const;

  /// Grows `extents` to hold everything that has a position, each point brought through
  /// `affine` first, in its direction of conversion (null, or one that cannot be set up:
  /// as it is); points of meshes are taken in the model. `withStations` non-zero counts oriented
  /// camera stations, `processedOnly` non-zero leaves out object points that the adjustment did
  /// not compute, and offset points from such.
  virtual void GetProjectExtents(Extents& extents, BasicAffine* affine, int withStations,
                                 int processedOnly) const;
  /// The same box by itself; empty when nothing has a position.
  Extents GetProjectExtents(BasicAffine* affine, int withStations, int processedOnly) const;

  VClass* iam() const override { return &ProjectCls; }

private:
  struct Surfaces;

  std::deque<Camera> _cameras;
  std::deque<CameraStation> _stations;
  std::deque<ObjectPoint> _objectPoints;
  std::deque<ImportedPoint> _importedPoints;
  std::deque<Line> _lines;
  std::deque<Edge> _edges;
  std::vector<std::unique_ptr<PointMesh>> _pointMeshes;
  std::deque<OffsetPoint> _offsetPoints;
  std::deque<CheckPoint> _checkPoints;
  std::deque<ThreeDPointFromTarnObject> _threeDPoints;
  std::deque<AffineObjectNPoint> _affineObjectNPoints;
  PhotoCollection _photographs;
  VOrdCollect _allCameras;
  VOrdCollect _allStations;
  VOrdCollect _allObjectPoints;
  VOrdCollect _allImportedPoints;
  VOrdCollect _allLines;
  VOrdCollect _allEdges;
  VOrdCollect _allPointMeshes;
  VOrdCollect _allOffsetPoints;
  VOrdCollect _allCheckPoints;
  VOrdCollect _allThreeDPoints;
  VOrdCollect _allAffineObjects;
  BasicAffine* _affine = nullptr;
  Units _units;
  double _zLevel = 0.0;
  double _curveTolerance = 0.001;
  std::unique_ptr<Surfaces> _surfaces;
};

}  // namespace tarn
