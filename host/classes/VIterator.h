#pragma once

#include "host/classes/VOrdCollect.h"

namespace tarn {

/// Walks over the objects of an ordered collection, which must outlive it.
class VIterator {
public:
  explicit VIterator(const VOrdCollect& collection) : _collection(&collection) {}

  /// The next object; null after the last.
  VObject* next() {
    return _position < _collection->size() ? _collection->at(_position++) : nullptr;
  }

  /// Starts again before the first object.
  void reset() { _position = 0; }

private:
  const VOrdCollect* _collection;
  int _position = 0;
};

}  // namespace tarn
