#include "host/classes/VDictionary.h"

#include <utility>

namespace tarn {

VClass VDictionaryCls("VDictionary", &VObjectCls, []() -> VObject* { return new VDictionary; });

void VDictionary::atKeyPut(VObject* key, void* value) {
  if (!key) return;
  const auto [entry, isNew] = _entries.try_emplace(key, value);
  if (isNew) return;
  entry->second = value;
  if (entry->first == key) return;
  // An equal key of another object: the new one is kept, for the old may go away.
  auto node = _entries.extract(entry);
  node.key() = key;
  _entries.insert(std::move(node));
}

void VDictionary::removeKey(VObject* key) {
  if (key) _entries.erase(key);
}

void* VDictionary::atKey(VObject* key) const {
  if (!key) return nullptr;
  const auto found = _entries.find(key);
  return found == _entries.end() ? nullptr : found->second;
}

void VDictionary::reserve(int count) {
  if (count > 0) _entries.reserve(static_cast<std::size_t>(count));
}

}  // namespace tarn
