#include "host/classes/VDictionary.h"

namespace tarn {

VClass VDictionaryCls("VDictionary", &VObjectCls, []() -> VObject* { return new VDictionary; });

void VDictionary::atKeyPut(VObject* key, void* value) {
  if (key) _entries.insert_or_assign(key, value);
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
