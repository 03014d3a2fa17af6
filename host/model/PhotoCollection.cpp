#include "host/model/PhotoCollection.h"

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

Photograph& PhotoCollection::Add() {
  Photograph& photograph = _photographs.emplace_back();
  _all.add(&photograph);
  return photograph;
}

}  // namespace tarn
