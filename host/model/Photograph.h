#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"
#include "host/classes/VOrdCollect.h"
#include "host/model/Image.h"
#include "host/model/MarkedPoint.h"

#include <deque>

namespace tarn {

class CameraStation;

extern TARN_HOST_EXPORT VClass PhotographCls;

/// A photograph: its number, its picture, the camera station it was taken from and
/// the points marked on it.
class TARN_HOST_EXPORT Photograph : public VObject {
public:
  Photograph() = default;
  Photograph(const Photograph&) = delete;
  Photograph& operator=(const Photograph&) = delete;

  virtual int GetNumber() const { return _number; }
  /// The picture; null when the photograph has none.
  virtual Image* GetImage() const { return _hasImage ? &_image : nullptr; }
  virtual CameraStation* GetCameraStation() const { return _station; }

  /// What a pixel's two coordinates are multiplied with so that they count from 0 to 1 over the
  /// picture: (1 / width, 1 / height). The size is the camera's; without a camera the picture
  /// file's; (1, 1) where neither is known.
  virtual Point2DDouble GetPixelToTextureNormalizedSpace() const;

  /// The marked points in the order of marking; the collection stays the
  /// photograph's and, where it is a selection, holds until the next call.
  /// `selection` 0 gives all, any other those of object points only;
  /// `referencedOnly` is for hosts that tell apart marks of other kinds.
  virtual const VOrdCollect& GetAllMarkedPoints(int selection, int referencedOnly) const;

  void SetNumber(int number) { _number = number; }
  void SetImageFile(const VPathString& fileName);
  void SetCameraStation(CameraStation* station) { _station = station; }
  /// Adds a mark, which the photograph owns; the reference stays valid.
  MarkedPoint& AddMarkedPoint(const Point2DDouble& position, int subPixel = 0);

  VClass* iam() const override { return &PhotographCls; }

private:
  int _number = 0;
  int _hasImage = 0;
  mutable Image _image;
  CameraStation* _station = nullptr;
  std::deque<MarkedPoint> _marks;
  VOrdCollect _allMarks;
  mutable VOrdCollect _referencedMarks;
};

}  // namespace tarn
