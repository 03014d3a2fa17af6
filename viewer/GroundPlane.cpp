#include "viewer/GroundPlane.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "host/general/Preferences.h"
#include "host/model/Project.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/lines/TarnOIGroundPlaneSeparator.h"
#include "viewer/ViewFraming.h"

GroundPlane::GroundPlane(SoNode& root, tarn::Project& project, const ViewFraming& framing)
    : litFromBothSides(makeNode<SoSeparator>()), plane(new TarnOIGroundPlaneSeparator) {
  auto* hints = new SoShapeHints;
  hints->vertexOrdering = SoShapeHints::COUNTERCLOCKWISE;
  litFromBothSides->addChild(hints);
  litFromBothSides->addChild(plane);
  tarn::Point3DDouble low;
  tarn::Point3DDouble high;
  if (framing.objectExtents().GetExtents(low, high)) {
    project.SetVolumeAboveXY_ZLevel(low.z - 0.01 * framing.objectDiagonal());
  }
  // Calmer than the node's own bright green: it is behind all else.
  tarn::gPref->Set("GroundPlaneColor", "055085065", "Colors");
  plane->SetRoot(&root, &project);
}

GroundPlane::~GroundPlane() = default;

void GroundPlane::show(bool on) {
  shown = on;
  if (on) plane->UpdatePosition();
  plane->Hide(!on);
}

void GroundPlane::includeIn(ViewFraming& all) const {
  if (!shown) return;
  SoGetBoundingBoxAction measure((SbViewportRegion()));
  measure.apply(plane);
  const SbBox3f box = measure.getBoundingBox();
  if (box.isEmpty()) return;
  // The plane is flat: two corners of its box on either side.
  for (const float x : {box.getMin()[0], box.getMax()[0]}) {
    for (const float z : {box.getMin()[2], box.getMax()[2]}) {
      all.include(ViewerFrame::toModel(SbVec3f(x, box.getMin()[1], z)));
    }
  }
}
