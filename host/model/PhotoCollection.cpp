#include "host/model/PhotoCollection.h"

namespace tarn {

VClass PhotoCollectionCls("PhotoCollection", &VObjectCls,
                          []() -> VObject* { return new PhotoCollection; });

Photograph* PhotoCollection::GetPhotograph(int number) const {
  for (int i = 0; i < _all.size(); ++i) {
    auto* photograph = static_cast<Photograph*>(_all.at(i));
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
