#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VOrdCollect.h"
#include "host/model/Photograph.h"

#include <deque>
#include <string_view>

namespace tarn {

class Project;
class SurfaceElement;

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

  /// A selection of photographs.
  enum PhotoType {
    eAll = 0,
    eOriented = 7  ///< those whose camera station is oriented
  };
  /// The photographs of that type, in the order they were added; none of a type that is not
  /// known. `project`, which may be null, is for hosts that select by more than the photograph.
  /// The collection is new, and the caller's.
  virtual VOrdCollect* GetPhotographsByType(int type, Project* project) const;

  /// The photograph that shows the triangle best: wholly, largest and most squarely. Its weight
  /// is the triangle's part of the picture's area times the cosine of the angle between its
  /// normal and the line of sight. Photographs of its front (its corners turn
  /// counter-clockwise) come before those of its back; what stands in between is not known.
  /// Null where none shows all of it. `element` may be null.
  virtual Photograph* GetBestFacePhoto(SurfaceElement* element) const;

  /// Adds an empty photograph; the reference stays valid.
  Photograph& Add();

  VClass* iam() const override { return &PhotoCollectionCls; }

private:
  std::deque<Photograph> _photographs;
  VOrdCollect _all;
};

}  // namespace tarn
