#include "host/model/ObjectPoint.h"

#include "host/model/MarkedPoint.h"
#include "host/model/Photograph.h"

#include <algorithm>
#include <unordered_set>

namespace tarn {

VClass ObjectPointCls("ObjectPoint", &ThreeDPointCls, []() -> VObject* { return new ObjectPoint; });

int ObjectPoint::GetTargetCode(int& code, int& ring) const {
  if (!_codedTarget) return 0;
  code = _targetCode;
  ring = _targetRing;
  return 1;
}

int ObjectPoint::AllMarksAreSubPixel(SubPixelInfo** info) const {
  if (info) *info = nullptr;
  return !_marks.empty() && std::all_of(_marks.begin(), _marks.end(),
                                        [](const MarkedPoint* mark) { return mark->IsSubPixel(); });
}

int ObjectPoint::IsControlPoint(int showOnlyActive) const {
  return _control && (!showOnlyActive || _controlActive);
}

int ObjectPoint::HasUsablePosition(int processedOnly) const {
  Point3DRandom position;
  return GetApproximation(position) && (!processedOnly || IsProcessed());
}

Ray3D* ObjectPoint::GetRay3D() {
  if (!_ray) _ray = std::make_unique<Ray3D>(this);
  return _ray.get();
}

VOrdCollect* ObjectPoint::GetPhotographs(int) const {
  auto photographs = std::make_unique<VOrdCollect>(static_cast<int>(_marks.size()));
  std::unordered_set<const Photograph*> listed;
  for (const MarkedPoint* mark : _marks) {
    Photograph* photograph = mark->GetPhotograph();
    if (photograph && listed.insert(photograph).second) photographs->add(photograph);
  }
  return photographs.release();
}

int ObjectPoint::BestProjectionOnto(Photograph* photograph, Point2DDouble& pixel) const {
  const auto mark = std::ranges::find_if(_marks, [photograph](const MarkedPoint* one) {
    return photograph && one->GetPhotograph() == photograph;
  });
  if (mark == _marks.end()) return ThreeDPoint::BestProjectionOnto(photograph, pixel);
  pixel = (*mark)->GetPosition();
  return 1;
}

void ObjectPoint::SetTargetCode(int code, int ring) {
  _codedTarget = true;
  _targetCode = code;
  _targetRing = ring;
}

void ObjectPoint::SetControlPoint(int control, int active) {
  _control = control != 0;
  _controlActive = active != 0;
}

void ObjectPoint::AddMarkedPoint(MarkedPoint* mark) {
  if (!mark) return;
  _marks.push_back(mark);
  mark->SetObjectPoint(this);
}

}  // namespace tarn
