// A hundred thousand lines, one node each: what a node costs to make.
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoSeparator.h>

#include "bench/Building.h"
#include "bench/PointNodes.h"
#include "bench/Subject.h"
#include "host/model/Line.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/lines/TarnOILineSeparator.h"
#include "nodes/lines/ThreeDExtension.h"

#include <memory>
#include <vector>

namespace {

constexpr int manyLines = 100000;
constexpr const char* many = "100,000 nodes";

// Lines between points within a unit cube, and the points.
struct Lines {
  explicit Lines(double factor) : points(bench::objectPoints(2 * manyLines)), lines(manyLines) {
    for (std::size_t i = 0; i < lines.size(); ++i) {
      lines[i].SetThreeDPoints(&points[2 * i], &points[2 * i + 1]);
      lines[i].SetThreeDExtenstionFactor(factor);
    }
  }
  std::vector<tarn::ObjectPoint> points;
  std::vector<tarn::Line> lines;
};

// A layer of line nodes, made as a host does: node, setter, layer.
struct LineNodes {
  LineNodes() {
    bench::initialiseNodes();
    layer = makeNode<TarnOILayerSeparator>();
    layer->SetLayer(&name, &layers);
  }
  void build(std::vector<tarn::Line>& lines) {
    for (tarn::Line& line : lines) {
      auto* node = new TarnOILineSeparator;
      node->SetLine(&line, &objects);
      layer->addChild(node);
    }
  }

  tarn::VDictionary layers;
  tarn::VDictionary objects;
  tarn::ObjectName name{"Lines"};
  NodeRef<TarnOILayerSeparator> layer;
};

// The same children made by hand: separator, coordinates and line set, a dashed line where the
// line is prolonged, and a dictionary entry.
struct PlainNodes {
  PlainNodes() {
    bench::initialiseNodes();
    layer = makeNode<SoSeparator>();
  }
  void build(std::vector<tarn::Line>& lines) {
    for (tarn::Line& line : lines) {
      LineSegment::Ends ends;
      for (int i = 0; i < 2; ++i) {
        tarn::Point3DRandom position;
        line.GetThreeDPoint(i)->GetApproximation(position);
        ends[static_cast<std::size_t>(i)] = position.position();
      }
      auto* node = new SoSeparator;
      addSegment(*node, ends, false);
      const double factor = line.GetThreeDExtenstionFactor();
      if (factor > 1.0) addSegment(*node, ThreeDExtension::prolonged(ends, factor), true);
      objects.atKeyPut(&line, node);
      layer->addChild(node);
    }
  }
  static void addSegment(SoSeparator& node, const LineSegment::Ends& ends, bool dashed) {
    const SbVec3f shown[2] = {ViewerFrame::fromModel(ends[0]), ViewerFrame::fromModel(ends[1])};
    auto* coordinates = new SoCoordinate3;
    coordinates->point.setValues(0, 2, shown);
    node.addChild(coordinates);
    if (dashed) {
      auto* style = new SoDrawStyle;
      style->linePattern.setValue(0xf0f0);
      node.addChild(style);
    }
    auto* lineSet = new SoLineSet;
    lineSet->numVertices.setValue(2);
    node.addChild(lineSet);
  }

  tarn::VDictionary objects;
  NodeRef<SoSeparator> layer;
};

bench::Row buildRow(const char* work, double factor) {
  const auto made = std::make_shared<Lines>(factor);
  const std::shared_ptr<std::vector<tarn::Line>> lines(made, &made->lines);
  return {.work = work,
          .size = many,
          .ours = bench::building<LineNodes>("ours", lines),
          .against = bench::building<PlainNodes>("separators by hand, with dictionary", lines),
          .target = 1.3};
}

const bench::Subject build("lines-build", "making line nodes against their children alone", [] {
  return std::vector<bench::Row>{buildRow("make nodes under a layer", 1.0),
                                 buildRow("the same, all prolonged", 1.5)};
});

}  // namespace
