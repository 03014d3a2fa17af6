#include "host/classes/CollectionIndex.h"

#include <algorithm>
#include <bit>

namespace tarn {

CollectionIndex::CollectionIndex(VOrdCollect& collection) : _collection(collection) {
  constexpr std::size_t fewest = 16;
  grow(std::max(fewest, std::bit_ceil(2 * static_cast<std::size_t>(collection.size()))));
}

int CollectionIndex::add(VObject* object) {
  if (!object) return -1;
  int& entry = _positions[placeOf(object)];
  if (entry != 0) return entry - 1;
  _collection.add(object);
  entry = _collection.size();
  const int position = entry - 1;
  if (2 * static_cast<std::size_t>(entry) > _positions.size()) grow(2 * _positions.size());
  return position;
}

void CollectionIndex::grow(std::size_t places) {
  _positions.assign(places, 0);
  _shift = 64 - std::countr_zero(places);
  for (int i = 0; i < _collection.size(); ++i) enter(i);
}

void CollectionIndex::enter(int position) {
  const VObject* object = _collection.at(position);
  if (!object) return;
  int& entry = _positions[placeOf(object)];
  if (entry == 0) entry = position + 1;
}

}  // namespace tarn
