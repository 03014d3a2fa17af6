#include <Inventor/SoDB.h>
#include <Inventor/actions/SoWriteAction.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/classes/VDictionary.h"
#include "host/model/Project.h"
#include "nodes/TarnOI.h"
#include "nodes/points/TarnOIObjectPointSeparator.h"

int main() {
  SoDB::init();
  TarnOI::initClasses();

  tarn::Project project;  // the model: plain data that the application fills
  tarn::ObjectPoint& point = project.AddObjectPoint();
  point.SetNumber(12);
  point.SetApproximation(tarn::Point3DRandom({1.0, 2.0, 3.0}));
  point.SetProcessed(1);

  tarn::VDictionary nodes;  // finds the node that shows an object
  auto* scene = new SoSeparator;
  scene->ref();
  auto* shown = new TarnOIObjectPointSeparator;
  scene->addChild(shown);
  shown->SetObjectPoint(&point, &nodes, /*useMarkers=*/1, /*useRGB=*/0);
  shown->UpdateTextLable(/*showNumber=*/1, /*markT=*/0);

  auto* selected = new SoMaterial;  // later: the user selects the point
  selected->diffuseColor.setValue(1.0F, 0.3F, 0.0F);
  static_cast<TarnOISeparator*>(nodes.atKey(&point))->Highlight(selected, 1);

  SoWriteAction().apply(scene);  // or draw it in any viewer of Coin
  scene->unref();
  TarnOI::cleanUpClasses();
  SoDB::finish();
}
