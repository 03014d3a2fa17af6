#pragma once

#include "host/classes/VObject.h"

#include <cstddef>
#include <cstdint>
#include <vector>

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

  virtual int size() const { return static_cast<int>(_count); }

  /// Makes room for `count` entries at once.
  void reserve(int count);

  VClass* iam() const override { return &VDictionaryCls; }

private:
  // One table without links: a look-up among a hundred thousand keys waits for memory
  // once, where a map of nodes waits twice. An entry stands at its hash's place or as near
  // behind it as there was room (linear probing: Knuth, The Art of Computer Programming,
  // vol. 3, 6.4, algorithms L and R).
  struct Entry {
    VObject* key = nullptr;  // null: free
    void* value = nullptr;
    std::uint64_t hash = 0;
  };

  std::size_t home(std::uint64_t hash) const;
  std::size_t next(std::size_t place) const { return (place + 1) & (_entries.size() - 1); }
  std::size_t find(const VObject* key, std::uint64_t hash) const;
  void resize(std::size_t places);

  std::vector<Entry> _entries;  // as many as a power of two, or none
  std::size_t _count = 0;
};

}  // namespace tarn
