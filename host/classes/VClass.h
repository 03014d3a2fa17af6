#pragma once

#include "host/TarnOIHostExport.h"

namespace tarn {

class VObject;

/// The record of one model class: its name, its parent class and how to make an
/// instance. There is one record per class, a global named after it with the
/// suffix Cls (ObjectPointCls); VObject::isA tests against them.
class TARN_HOST_EXPORT VClass {
public:
  /// Makes an instance that the caller owns.
  using Factory = VObject* (*)();

  /// Records are globals: they enter themselves into the list that `find` reads.
  /// @param name    the class's name; must outlive the record
  /// @param parent  the parent class's record, null for a root class
  /// @param factory null for a class of which no instances are made
  explicit VClass(const char* name, const VClass* parent = nullptr, Factory factory = nullptr);
  ~VClass();
  VClass(const VClass&) = delete;
  VClass& operator=(const VClass&) = delete;

  const char* name() const { return _name; }
  const VClass* parent() const { return _parent; }

  /// A new instance, owned by the caller; null when the class has no factory.
  VObject* create() const { return _factory ? _factory() : nullptr; }

  /// Non-zero when this class is `other` or derives from it.
  int isDerivedFrom(const VClass& other) const;

  /// The record of the class of that name; null when there is none.
  static VClass* find(const char* name);

private:
  const char* _name;
  const VClass* _parent;
  Factory _factory;
  VClass* _next;
};

}  // namespace tarn
