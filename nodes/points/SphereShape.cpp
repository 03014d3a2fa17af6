#include "nodes/points/SphereShape.h"

#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoSphere.h>
#include <Inventor/nodes/SoTranslation.h>

#include "nodes/framework/ViewerFrame.h"

void SphereShape::rebuild(SoGroup& node, const tarn::Point3DDouble& modelPoint) const {
  node.removeAllChildren();
  auto* sphereTrans = new SoTranslation;
  sphereTrans->translation.setValue(ViewerFrame::fromModel(modelPoint));
  node.addChild(sphereTrans);
  auto* sphere = new SoSphere;
  sphere->radius.setValue(sphereSize);
  node.addChild(sphere);
}
