#include "host/model/PhotoCollection.h"

#include "host/general/VectorProducts.h"
#include "host/model/Camera.h"
#include "host/model/CameraStation.h"
#include "host/model/SurfaceElement.h"
#include "host/model/ThreeDPoint.h"

#include <array>
#include <cmath>
#include <memory>

namespace tarn {

VClass PhotoCollectionCls("PhotoCollection", &VObjectCls,
                          []() -> VObject* { return new PhotoCollection; });

namespace {

using Corners = std::array<Point3DDouble, 3>;

// The part of the picture that the triangle covers; 0 where it is not seen as a whole.
double coveredPart(const CameraStation& station, const Corners& corners) {
  const Camera* camera = station.GetCamera(1);
  if (!camera) return 0.0;
  int width = 0;
  int height = 0;
  camera->GetImageSize(width, height);
  if (width <= 0 || height <= 0) return 0.0;
  std::array<Point2DDouble, 3> pixels;
  for (std::size_t i = 0; i < 3; ++i) {
    if (!station.ProjectPoint(corners[i], pixels[i])) return 0.0;
    const auto& [x, y] = pixels[i];
    if (!(x >= 0.0 && x <= width && y >= 0.0 && y <= height)) return 0.0;
  }
  const double twice = (pixels[1].x - pixels[0].x) * (pixels[2].y - pixels[0].y) -
                       (pixels[2].x - pixels[0].x) * (pixels[1].y - pixels[0].y);
  return 0.5 * std::abs(twice) / width / height;
}

// The cosine of the angle between the triangle's normal and the line of sight to its middle;
// negative when the station sees its back.
double squareness(const CameraStation& station, const Corners& corners) {
  const Point3DDouble normal = cross(corners[1] - corners[0], corners[2] - corners[0]);
  const Point3DDouble middle = 1.0 / 3.0 * (corners[0] + corners[1] + corners[2]);
  const Point3DDouble sight = station.GetPosition() - middle;
  const double lengths = normal.length() * sight.length();
  return lengths > 0.0 ? dot(normal, sight) / lengths : 0.0;
}

}  // namespace

Photograph* PhotoCollection::GetPhotograph(int number) const {
  const VOrdCollect& all = GetPhotographs();
  for (int i = 0; i < all.size(); ++i) {
    auto* photograph = static_cast<Photograph*>(all.at(i));
    if (photograph->GetNumber() == number) return photograph;
  }
  return nullptr;
}

VOrdCollect* PhotoCollection::GetPhotographsByType(int type, Project*) const {
  const VOrdCollect& all = GetPhotographs();
  auto selected = std::make_unique<VOrdCollect>(all.size());
  for (int i = 0; i < all.size(); ++i) {
    const CameraStation* station = static_cast<Photograph*>(all.at(i))->GetCameraStation();
    if (type == eAll || (type == eOriented && station && station->IsOriented())) {
      selected->add(all.at(i));
    }
  }
  return selected.release();
}

Photograph* PhotoCollection::GetBestFacePhoto(SurfaceElement* element) const {
  if (!element) return nullptr;
  Corners corners;
  Point3DRandom position;
  for (int i = 0; i < 3; ++i) {
    const ThreeDPoint* point = element->GetThreeDPoint(i);
    if (!point || !point->GetApproximation(position)) return nullptr;
    corners[static_cast<std::size_t>(i)] = position.position();
  }
  struct Best {
    Photograph* photograph = nullptr;
    double weight = 0.0;
  };
  Best front;
  Best back;
  const VOrdCollect& all = GetPhotographs();
  for (int i = 0; i < all.size(); ++i) {
    auto* photograph = static_cast<Photograph*>(all.at(i));
    const CameraStation* station = photograph->GetCameraStation();
    if (!station || !station->IsOriented()) continue;
    const double cosine = squareness(*station, corners);
    const double weight = coveredPart(*station, corners) * std::abs(cosine);
    Best& best = cosine > 0.0 ? front : back;
    if (weight > best.weight) best = {photograph, weight};
  }
  return front.photograph ? front.photograph : back.photograph;
}

Photograph& PhotoCollection::Add() {
  Photograph& photograph = _photographs.emplace_back();
  _all.add(&photograph);
  return photograph;
}

}  // namespace tarn
