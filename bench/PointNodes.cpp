#include "bench/PointNodes.h"

#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoPointSet.h>

#include "nodes/TarnOI.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/points/TarnOIObjectPointSeparator.h"
#include "viewer/HeadlessContext.h"

#include <random>

namespace bench {

void initialiseNodes() {
  if (SoDB::isInitialized()) return;
  HeadlessContext::prepareEnvironment();
  SoDB::init();
  SoInteraction::init();
  TarnOI::initClasses();
}

std::vector<tarn::ObjectPoint> objectPoints(int count) {
  std::vector<tarn::ObjectPoint> points(static_cast<std::size_t>(count));
  std::mt19937 random(12345);
  const auto coordinate = [&random] { return static_cast<double>(random()) / 4294967296.0; };
  long number = 0;
  for (tarn::ObjectPoint& point : points) {
    const double x = coordinate();
    const double y = coordinate();
    point.SetApproximation(tarn::Point3DRandom({x, y, coordinate()}));
    point.SetNumber(++number);
  }
  return points;
}

PointNodes::PointNodes() {
  initialiseNodes();
  layer = makeNode<TarnOILayerSeparator>();
  layer->SetLayer(&name, &layers);
}

void PointNodes::build(std::vector<tarn::ObjectPoint>& points) {
  for (tarn::ObjectPoint& point : points) {
    auto* node = new TarnOIObjectPointSeparator;
    node->SetObjectPoint(&point, &objects, 0, 0);
    layer->addChild(node);
  }
}

PlainNodes::PlainNodes() {
  initialiseNodes();
  layer = makeNode<SoSeparator>();
}

void PlainNodes::build(std::vector<tarn::ObjectPoint>& points) {
  for (tarn::ObjectPoint& point : points) {
    tarn::Point3DRandom position;
    point.GetApproximation(position);
    auto* node = new SoSeparator;
    auto* coordinate = new SoCoordinate3;
    coordinate->point.setValue(ViewerFrame::fromModel(position.position()));
    node->addChild(coordinate);
    node->addChild(new SoPointSet);
    objects.atKeyPut(&point, node);
    layer->addChild(node);
  }
}

}  // namespace bench
