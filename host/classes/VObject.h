#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VClass.h"

#include <cstdint>

namespace tarn {

extern TARN_HOST_EXPORT VClass VObjectCls;

/// The root of all host classes: what a dictionary can key and a node can show.
class TARN_HOST_EXPORT VObject {
public:
  VObject() = default;
  VObject(const VObject&) = default;
  VObject& operator=(const VObject&) = default;
  virtual ~VObject();

  /// The class record of this object.
  virtual VClass* iam() const { return &VObjectCls; }

  /// Non-zero when this object's class is `record` or derives from it.
  int isA(const VClass& record) const;

  /// Equal objects have equal hashes. By default that of the object's identity.
  virtual std::uint64_t hash() const;

  /// Non-zero when `other` counts as the same dictionary key. By default identity.
  virtual int isEqual(const VObject* other) const { return this == other; }
};

}  // namespace tarn
