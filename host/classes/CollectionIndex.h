#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VOrdCollect.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarn {

/// Finds the objects of a collection: where each stands, by its identity, in constant time. Made
/// for objects of 64 bytes or more, such as points; many smaller ones are found more slowly.
///
///     CollectionIndex index(vertices);
///     const int corner = index.add(&point);  // a new one, or where it is already
class TARN_HOST_EXPORT CollectionIndex {
public:
  /// Reads the collection, which has to outlive the index and from now on may grow through it
  /// only.
  explicit CollectionIndex(VOrdCollect& collection);
  CollectionIndex(const CollectionIndex&) = delete;
  CollectionIndex& operator=(const CollectionIndex&) = delete;

  /// The first position of the object, counted from 0; -1 where it is not in the collection, and
  /// for null.
  int indexOf(const VObject* object) const { return _positions[placeOf(object)] - 1; }

  /// Adds the object to the collection unless it is there. Its position; -1 for null.
  int add(VObject* object);

private:
  // Where the object's position is, or would go. Objects that lie together in memory lie
  // together here: those of a page share one stretch, a place for each 64 bytes, and pages are
  // scattered. Meshes mostly go from neighbour to neighbour; with every object scattered by
  // itself a look-up takes three times as long.
  std::size_t placeOf(const VObject* object) const {
    constexpr std::uint64_t golden = 0x9E3779B97F4A7C15;  // 2^64 over the golden ratio
    const std::uint64_t address = reinterpret_cast<std::uintptr_t>(object);
    std::uint64_t place = ((address >> 12) * golden >> _shift) + ((address & 0xFFF) >> 6);
    for (;; ++place) {
      const auto i = static_cast<std::size_t>(place) & (_positions.size() - 1);
      if (_positions[i] == 0 || _collection.at(_positions[i] - 1) == object) return i;
    }
  }
  void grow(std::size_t places);
  void enter(int position);

  VOrdCollect& _collection;
  std::vector<int> _positions;  // from 1, 0: free; as many as a power of two, half of them free
  int _shift = 0;
};

}  // namespace tarn
