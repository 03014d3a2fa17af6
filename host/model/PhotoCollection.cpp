#include "host/model/PhotoCollection.h"

#include "host/model/CameraStation.h"

#include <memory>

namespace tarn {

VClass PhotoCollectionCls("PhotoCollection", &VObjectCls,
                          []() -> VObject* { return new PhotoCollection; });

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

Photograph& PhotoCollection::Add() {
  Photograph& photograph = _photographs.emplace_back();
  _all.add(&photograph);
  return photograph;
}

}  // namespace tarn
