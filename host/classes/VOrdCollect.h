#pragma once

#include "host/classes/VObject.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace tarn {

extern TARN_HOST_EXPORT VClass VOrdCollectCls;

/// An ordered collection. Each slot holds an object (not owned) or an index: a
/// selection of a million indexes costs eight bytes each, not a million objects.
/// Which of the two a collection holds is an agreement between who fills and who
/// reads it.
class TARN_HOST_EXPORT VOrdCollect : public VObject {
public:
  VOrdCollect() = default;

  /// An empty collection with room for `capacity` slots.
  explicit VOrdCollect(int capacity);

  int size() const { return static_cast<int>(_slots.size()); }
  void reserve(int capacity);
  void clear() { _slots.clear(); }

  void add(VObject* object) { _slots.push_back(reinterpret_cast<std::intptr_t>(object)); }
  void addIndex(std::intptr_t index) { _slots.push_back(index); }

  /// The object in slot `i`, counted from 0; null outside the collection. O(1).
  VObject* at(int i) const { return reinterpret_cast<VObject*>(indexAt(i)); }

  /// The index in slot `i`, counted from 0; 0 outside the collection. O(1).
  std::intptr_t indexAt(int i) const {
    return i >= 0 && i < size() ? _slots[static_cast<std::size_t>(i)] : 0;
  }

  /// The first slot that holds this object (by identity), -1 when none does. O(n).
  int indexOf(const VObject* object) const;

  VClass* iam() const override { return &VOrdCollectCls; }

private:
  std::vector<std::intptr_t> _slots;
};

}  // namespace tarn
