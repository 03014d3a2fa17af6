#pragma once

#include "host/classes/VDictionary.h"
#include "host/model/ObjectName.h"
#include "host/model/ObjectPoint.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOILayerSeparator.h"

#include <vector>

namespace bench {

/// Registers Coin's and this library's classes; the first call does.
void initialiseNodes();

/// Object points within a unit cube, unrelated to each other in place, the same on every
/// machine.
std::vector<tarn::ObjectPoint> objectPoints(int count);

/// A layer of object point nodes, one for each point.
struct PointNodes {
  PointNodes();
  /// Makes the nodes as a host does: node, setter, layer.
  void build(std::vector<tarn::ObjectPoint>& points);

  tarn::VDictionary layers;
  tarn::VDictionary objects;
  tarn::ObjectName name{"Points"};
  NodeRef<TarnOILayerSeparator> layer;
};

/// The same picture without this library: one separator with coordinate and point set for
/// each point, and a dictionary entry.
struct PlainNodes {
  PlainNodes();
  void build(std::vector<tarn::ObjectPoint>& points);

  tarn::VDictionary objects;
  NodeRef<SoSeparator> layer;
};

}  // namespace bench
