// The rays of one photograph with ten thousand marked points: what a ray costs to make.
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoSeparator.h>

#include "bench/Building.h"
#include "bench/PointNodes.h"
#include "bench/Subject.h"
#include "host/model/CameraStation.h"
#include "host/model/Photograph.h"
#include "nodes/cameras/TarnOICameraRaysSeparator.h"
#include "nodes/framework/ViewerFrame.h"

#include <memory>
#include <vector>

namespace {

constexpr int manyMarks = 10000;

// A photograph on which points within a unit cube are marked, with its station.
struct Shot {
  explicit Shot(int marks) : points(bench::objectPoints(marks)) {
    station.SetOrientation({0.5, -4.0, 0.5}, tarn::MatrixDouble::Identity(3));
    photograph.SetCameraStation(&station);
    for (tarn::ObjectPoint& point : points) {
      point.SetProcessed(1);
      point.AddMarkedPoint(&photograph.AddMarkedPoint({0.0, 0.0}));
    }
  }
  std::vector<tarn::ObjectPoint> points;
  tarn::CameraStation station;
  tarn::Photograph photograph;
};

struct RayNodes {
  RayNodes() { bench::initialiseNodes(); }
  void build(Shot& shot) {
    node = makeNode<TarnOICameraRaysSeparator>();
    node->SetRays(&shot.photograph, &objects);
  }

  tarn::VDictionary objects;
  NodeRef<TarnOICameraRaysSeparator> node;
};

// The same children made by hand, with a dictionary entry.
struct PlainNodes {
  PlainNodes() { bench::initialiseNodes(); }
  void build(Shot& shot) {
    node = makeNode<SoSeparator>();
    objects.atKeyPut(&shot.photograph, node.get());
    const SbVec3f from = ViewerFrame::fromModel(shot.station.GetPosition());
    for (const tarn::ObjectPoint& point : shot.points) {
      tarn::Point3DRandom position;
      point.GetApproximation(position);
      const SbVec3f ends[2] = {from, ViewerFrame::fromModel(position.position())};
      auto* coordinates = new SoCoordinate3;
      coordinates->point.setValues(0, 2, ends);
      node->addChild(coordinates);
      auto* lines = new SoLineSet;
      lines->numVertices.setValue(2);
      node->addChild(lines);
    }
  }

  tarn::VDictionary objects;
  NodeRef<SoSeparator> node;
};

const bench::Subject build("rays-build", "making the rays of one photograph", [] {
  const auto shot = std::make_shared<Shot>(manyMarks);
  const auto twice = std::make_shared<Shot>(2 * manyMarks);
  return std::vector<bench::Row>{
      {.work = "make the rays of a photograph",
       .size = "10,000 marks",
       .ours = bench::building<RayNodes>("ours", shot),
       .against = bench::building<PlainNodes>("coordinates and lines by hand", shot),
       .target = 1.3},
      {.work = "make twice as many",
       .size = "20,000 marks",
       .ours = bench::building<RayNodes>("ours", twice),
       .against = bench::building<RayNodes>("10,000 marks", shot),
       .target = 2.3}};
});

}  // namespace
