// What an application does with the library: a project, a node for one of its points, and
// the way back from the point to its node.

#include <Inventor/SoDB.h>
#include <Inventor/SoPath.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/classes/VDictionary.h"
#include "host/model/ObjectName.h"
#include "host/model/Project.h"
#include "io/ColmapReader.h"
#include "nodes/TarnOI.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "nodes/framework/TarnOISeparator.h"
#include "nodes/framework/TarnOISwitch.h"

#include <cstdio>

namespace {

// A class of the application's own, on top of the library's.
class PointNode : public TarnOISeparator {
  TARNOI_NODE_HEADER(PointNode);

public:
  PointNode() { TARNOI_NODE_CONSTRUCTOR(); }
};
TARNOI_NODE_SOURCE(PointNode, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(PointNode);

int failures = 0;

void check(bool holds, const char* what) {
  if (holds) return;
  ++failures;
  std::fprintf(stderr, "does not hold: %s\n", what);
}

void showAndFindAPoint() {
  tarn::Project project;
  tarn::ObjectPoint& point = project.AddObjectPoint();
  tarn::ObjectName layer("Points");
  tarn::VDictionary dictionary;

  const auto root = makeNode<SoSeparator>();
  auto* layerSwitch = new TarnOISwitch;
  auto* layerNode = new TarnOILayerSeparator;
  auto* node = new PointNode;
  root->addChild(layerSwitch);
  layerSwitch->addChild(layerNode);
  layerNode->addChild(node);
  layerNode->SetLayer(&layer, &dictionary);
  layerNode->SetLayerSwitch(layerSwitch);
  layerNode->SetVisibility(0);
  node->SetTarnObject(&point, &dictionary);

  check(dictionary.atKey(&point) == node, "the dictionary knows the point's node");
  TarnOISearchAction search;
  search.SetTarnObject(&point);
  search.apply(root.get());
  check(search.getPath() && search.getPath()->getTail() == node,
        "a search finds the point's node in a hidden layer");
}

}  // namespace

int main() {
  SoDB::init();
  TarnOI::initClasses();
  PointNode::initClass();
  showAndFindAPoint();
  check(!tarn::ColmapReader::IsModelFolder("no such folder"), "a folder that is not there is none");
  PointNode::CleanUpInitClass();
  TarnOI::cleanUpClasses();
  SoDB::finish();
  if (!failures) std::puts("the installed library works");
  return failures ? 1 : 0;
}
