#include "host/classes/VDictionary.h"

#include <algorithm>
#include <bit>
#include <utility>

namespace tarn {

VClass VDictionaryCls("VDictionary", &VObjectCls, []() -> VObject* { return new VDictionary; });

namespace {

constexpr std::size_t fewestPlaces = 16;

// At most three quarters of the places are taken.
bool isTooFull(std::size_t count, std::size_t places) { return count > places - places / 4; }

}  // namespace

void VDictionary::atKeyPut(VObject* key, void* value) {
  if (!key) return;
  if (isTooFull(_count + 1, _entries.size())) {
    resize(_entries.empty() ? fewestPlaces : 2 * _entries.size());
  }
  const std::uint64_t hash = key->hash();
  Entry& entry = _entries[find(key, hash)];
  if (!entry.key) ++_count;
  // Also where an equal key of another object stood: the old one may go away.
  entry = {key, value, hash};
}

void VDictionary::removeKey(VObject* key) {
  if (!key || _count == 0) return;
  std::size_t hole = find(key, key->hash());
  if (!_entries[hole].key) return;
  --_count;
  // Entries behind move up into the hole, unless that is ahead of their own place.
  for (std::size_t i = next(hole); _entries[i].key; i = next(i)) {
    const std::size_t last = _entries.size() - 1;
    if (((i - home(_entries[i].hash)) & last) < ((i - hole) & last)) continue;
    _entries[hole] = _entries[i];
    hole = i;
  }
  _entries[hole] = {};
}

void* VDictionary::atKey(VObject* key) const {
  if (!key || _count == 0) return nullptr;
  return _entries[find(key, key->hash())].value;
}

void VDictionary::reserve(int count) {
  if (count < 1) return;
  const auto wanted = static_cast<std::size_t>(count);
  std::size_t places = std::bit_ceil(std::max(wanted, fewestPlaces));
  if (isTooFull(wanted, places)) places *= 2;
  if (places > _entries.size()) resize(places);
}

// The hash's upper bits after a multiplication that spreads it (hashes of a host's own
// classes may differ in few bits only).
std::size_t VDictionary::home(std::uint64_t hash) const {
  hash ^= hash >> 32;
  hash *= 0x9E3779B97F4A7C15ULL;
  return static_cast<std::size_t>(hash >> (64 - std::countr_zero(_entries.size())));
}

// The place of the key, or the free one where it would go. The table is never full.
std::size_t VDictionary::find(const VObject* key, std::uint64_t hash) const {
  std::size_t i = home(hash);
  for (; _entries[i].key; i = next(i)) {
    const Entry& entry = _entries[i];
    if (entry.key == key || (entry.hash == hash && key->isEqual(entry.key))) break;
  }
  return i;
}

void VDictionary::resize(std::size_t places) {
  const std::vector<Entry> before = std::exchange(_entries, std::vector<Entry>(places));
  for (const Entry& entry : before) {
    if (!entry.key) continue;
    std::size_t i = home(entry.hash);
    while (_entries[i].key) i = next(i);
    _entries[i] = entry;
  }
}

}  // namespace tarn
