#pragma once

#include <unordered_map>

#include "host/classes/VObject.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass VDictionaryCls;

/// A map from objects (by their `hash` and `isEqual`) to plain pointers. It owns
/// neither keys nor values. Nodes enter and remove themselves; the operations are
/// virtual, so that an application can watch or replace them.
class TARN_HOST_EXPORT VDictionary : public VObject {
public:
  /// Enters `value` under `key`, replacing the entry of an equal key, the key included.
  /// A null key is ignored. A key must outlive its entry.
  virtual void atKeyPut(VObject* key, void* value);

  /// Removes the entry of `key`; nothing happens when there is none.
  virtual void removeKey(VObject* key);

  /// The value under `key`; null when there is none.
  virtual void* atKey(VObject* key) const;

  virtual int size() const { return static_cast<int>(_entries.size()); }

  /// Makes room for `count` entries at once.
  void reserve(int count);

  VClass* iam() const override { return &VDictionaryCls; }

private:
  struct KeyHash {
    std::size_t operator()(const VObject* key) const { return key->hash(); }
  };
  struct KeyEqual {
    bool operator()(const VObject* a, const VObject* b) const { return a == b || a->isEqual(b); }
  };
  std::unordered_map<VObject*, void*, KeyHash, KeyEqual> _entries;
};

}  // namespace tarn
