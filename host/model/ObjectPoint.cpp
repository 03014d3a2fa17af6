#include "host/model/ObjectPoint.h"

#include "host/model/MarkedPoint.h"

#include <algorithm>

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
