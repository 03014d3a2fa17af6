#include "host/model/Photograph.h"

namespace tarn {

VClass PhotographCls("Photograph", &VObjectCls, []() -> VObject* { return new Photograph; });

const VOrdCollect& Photograph::GetAllMarkedPoints(int selection, int) const {
  if (selection == 0) return _allMarks;
  _referencedMarks.clear();
  for (int i = 0; i < _allMarks.size(); ++i) {
    if (static_cast<MarkedPoint*>(_allMarks.at(i))->GetObjectPoint()) {
      _referencedMarks.add(_allMarks.at(i));
    }
  }
  return _referencedMarks;
}

void Photograph::SetImageFile(const VPathString& fileName) {
  _image.SetFileName(fileName);
  _hasImage = 1;
}

MarkedPoint& Photograph::AddMarkedPoint(const Point2DDouble& position, int subPixel) {
  MarkedPoint& mark = _marks.emplace_back(this, position, subPixel);
  _allMarks.add(&mark);
  return mark;
}

}  // namespace tarn
