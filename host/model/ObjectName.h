#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VString.h"

#include <string_view>

namespace tarn {

extern TARN_HOST_EXPORT VClass ObjectNameCls;

/// The name under which objects are grouped: a layer.
class TARN_HOST_EXPORT ObjectName : public VObject {
public:
  explicit ObjectName(std::string_view name = "Default") : _name(name) {}

  virtual const VString& GetName() const { return _name; }

  /// The layer of objects that name none.
  static ObjectName* const gDefault;

  VClass* iam() const override { return &ObjectNameCls; }

private:
  VString _name;
};

}  // namespace tarn
