#include "nodes/cameras/TarnOIPointRaysSeparator.h"

#include "host/model/CameraStation.h"
#include "host/model/ObjectPoint.h"
#include "host/model/Photograph.h"
#include "nodes/framework/LineSegment.h"
#include "nodes/framework/OneNotification.h"

#include <memory>

TARNOI_NODE_SOURCE(TarnOIPointRaysSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOIPointRaysSeparator);

TarnOIPointRaysSeparator::TarnOIPointRaysSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIPointRaysSeparator::TarnOIPointRaysSeparator(const TarnOIPointRaysSeparator& other)
    : TarnOIPointRaysSeparator() {
  *this = other;
}

TarnOIPointRaysSeparator& TarnOIPointRaysSeparator::operator=(
    const TarnOIPointRaysSeparator& other) = default;

TarnOIPointRaysSeparator::~TarnOIPointRaysSeparator() = default;

void TarnOIPointRaysSeparator::SetRays(tarn::ObjectPoint* point, tarn::VDictionary* searchDict) {
  SetTarnObject(point ? point->GetRay3D() : nullptr, searchDict);
  UpdateRays(1);
}

void TarnOIPointRaysSeparator::UpdateRays(int build) {
  const auto* rays = tarnObjectAs<tarn::Ray3D>(tarn::Ray3DCls);
  const tarn::ObjectPoint* point = rays ? rays->GetObjectPoint() : nullptr;
  tarn::Point3DRandom from;
  if (!build || !point || !point->HasUsablePosition(1) || !point->GetApproximation(from)) return;
  const std::unique_ptr<const tarn::VOrdCollect> photographs(point->GetPhotographs(4));
  if (!photographs) return;
  const OneNotification once(*this);
  for (int i = 0; i < photographs->size(); ++i) {
    const tarn::CameraStation* station =
        static_cast<tarn::Photograph*>(photographs->at(i))->GetCameraStation();
    if (!station || !station->IsOriented()) continue;
    LineSegment::place(*LineSegment::append(*this),
                       LineSegment::Ends{from.position(), station->GetPosition()});
  }
}
