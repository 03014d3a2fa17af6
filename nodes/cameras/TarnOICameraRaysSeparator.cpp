#include "nodes/cameras/TarnOICameraRaysSeparator.h"

#include "host/model/CameraStation.h"
#include "host/model/MarkedPoint.h"
#include "host/model/ObjectPoint.h"
#include "host/model/Photograph.h"
#include "nodes/framework/LineSegment.h"
#include "nodes/framework/OneNotification.h"

TARNOI_NODE_SOURCE(TarnOICameraRaysSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOICameraRaysSeparator);

TarnOICameraRaysSeparator::TarnOICameraRaysSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOICameraRaysSeparator::TarnOICameraRaysSeparator(const TarnOICameraRaysSeparator& other)
    : TarnOICameraRaysSeparator() {
  *this = other;
}

TarnOICameraRaysSeparator& TarnOICameraRaysSeparator::operator=(
    const TarnOICameraRaysSeparator& other) = default;

TarnOICameraRaysSeparator::~TarnOICameraRaysSeparator() = default;

void TarnOICameraRaysSeparator::SetRays(tarn::Photograph* photo, tarn::VDictionary* searchDict) {
  SetTarnObject(photo, searchDict);
  UpdateRays(1);
}

void TarnOICameraRaysSeparator::UpdateRays(int build) {
  const auto* photo = tarnObjectAs<tarn::Photograph>(tarn::PhotographCls);
  const tarn::CameraStation* station = photo ? photo->GetCameraStation() : nullptr;
  if (!build || !station) return;
  const OneNotification once(*this);
  const tarn::Point3DDouble from = station->GetPosition();
  const tarn::VOrdCollect& marks = photo->GetAllMarkedPoints(0, 1);
  for (int i = 0; i < marks.size(); ++i) {
    const tarn::ObjectPoint* point = static_cast<tarn::MarkedPoint*>(marks.at(i))->GetObjectPoint();
    tarn::Point3DRandom to;
    if (!point || !point->HasUsablePosition(1) || !point->GetApproximation(to)) continue;
    LineSegment::place(*LineSegment::append(*this), LineSegment::Ends{from, to.position()});
  }
}
