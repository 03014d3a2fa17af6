#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VOrdCollect.h"
#include "host/model/Photograph.h"

#include <deque>
#include <string_view>

namespace tarn {

extern TARN_HOST_EXPORT VClass PhotoCollectionCls;

/// The photographs of a project, which it owns.
class TARN_HOST_EXPORT PhotoCollection : public VObject {
public:
  PhotoCollection() = default;
  PhotoCollection(const PhotoCollection&) = delete;
  PhotoCollection& operator=(const PhotoCollection&) = delete;

  /// The photographs in the order they were added.
  virtual const VOrdCollect& GetPhotographs() const { return _all; }
  /// The photograph of that number; null when there is none.
  virtual Photograph* GetPhotograph(int number) const;

  /// Adds an empty photograph; the reference stays valid.
  Photograph& Add();

  VClass* iam() const override { return &PhotoCollectionCls; }

private:
  std::deque<Photograph> _photographs;
  VOrdCollect _all;
};

}  // namespace tarn
