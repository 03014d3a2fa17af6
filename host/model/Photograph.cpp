#include "host/model/Photograph.h"

#include "host/model/Camera.h"
#include "host/model/CameraStation.h"

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

Point2DDouble Photograph::GetPixelToTextureNormalizedSpace() const {
  int width = 0;
  int height = 0;
  const CameraStation* station = GetCameraStation();
  if (const Camera* camera = station ? station->GetCamera(1) : nullptr) {
    camera->GetImageSize(width, height);
  } else if (const Image* image = GetImage()) {
    image->GetExtents(width, height);
  }
  if (width <= 0 || height <= 0) return {1.0, 1.0};
  return {1.0 / width, 1.0 / height};
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
