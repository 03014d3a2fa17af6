#include "nodes/surfaces/TarnOICurveSeparator.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>

#include "host/classes/VOrdCollect.h"
#include "host/general/Preferences.h"
#include "host/model/NURBSCurve.h"
#include "host/model/Project.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/ViewerFrame.h"

TARNOI_NODE_SOURCE(TarnOICurveSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOICurveSeparator);

namespace {

double toleranceOf(const tarn::Project* project) {
  if (project) return project->GetCurveTesselationTolerance();
  // A percentage of one unit, not of the curve's size: hosts rely on it.
  return tarn::gPref->GetPreference("CurveTessTolPercent", 0.03, "Curve") / 100.0;
}

}  // namespace

TarnOICurveSeparator::TarnOICurveSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOICurveSeparator::TarnOICurveSeparator(const TarnOICurveSeparator& other)
    : TarnOICurveSeparator() {
  *this = other;
}

TarnOICurveSeparator& TarnOICurveSeparator::operator=(const TarnOICurveSeparator& other) = default;

TarnOICurveSeparator::~TarnOICurveSeparator() = default;

void TarnOICurveSeparator::SetCurve(tarn::NURBSCurve* curve, tarn::VDictionary* dict,
                                    tarn::Project* project) {
  SetTarnObject(curve, dict);
  if (!curve) return;
  const tarn::VOrdCollect* points = curve->Tess3D(toleranceOf(project), nullptr);
  if (!points) return;
  const OneNotification once(*this);
  if (getNumChildren() == 0) {
    addChild(new SoCoordinate3);
    addChild(new SoLineSet);
  }
  auto* curvePos = ChildNodes::last<SoCoordinate3>(*this);
  auto* curveSet = ChildNodes::last<SoLineSet>(*this);
  TARNOI_ASSERT_AT(curvePos && curveSet, "curvePos && curveSet", "TarnOICurveSeparator", 149);
  const int count = points->size();
  if (curveSet) curveSet->numVertices.setValue(count);
  if (!curvePos) return;
  const OneNotification onceForAll(curvePos->point);
  // Points of an earlier, longer curve stay behind these: the line set leaves them out.
  if (curvePos->point.getNum() < count) curvePos->point.setNum(count);
  SbVec3f* shown = curvePos->point.startEditing();
  tarn::Point3DRandom position;
  for (int i = 0; i < count; ++i) {
    // A point without a position is drawn at the one before.
    const auto* point = static_cast<const tarn::ThreeDPoint*>(points->at(i));
    if (point) point->GetApproximation(position);
    shown[i] = ViewerFrame::fromModel(position.position());
  }
  curvePos->point.finishEditing();
}

SoNode* TarnOICurveSeparator::copy(SbBool copyConnections) const {
  auto* copied = static_cast<TarnOICurveSeparator*>(TarnOISeparator::copy(copyConnections));
  copied->SetCurve(tarnObjectAs<tarn::NURBSCurve>(tarn::NURBSCurveCls), searchDict, nullptr);
  return copied;
}
