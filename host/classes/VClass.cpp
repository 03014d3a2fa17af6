#include "host/classes/VClass.h"

#include <cstring>

namespace tarn {

namespace {
// Constant-initialised, so that it is ready before any record's constructor runs.
constinit VClass* firstRecord = nullptr;
}  // namespace

VClass::VClass(const char* name, const VClass* parent, Factory factory)
    : _name(name), _parent(parent), _factory(factory), _next(firstRecord) {
  firstRecord = this;
}

VClass::~VClass() {
  for (VClass** link = &firstRecord; *link; link = &(*link)->_next) {
    if (*link == this) {
      *link = _next;
      return;
    }
  }
}

int VClass::isDerivedFrom(const VClass& other) const {
  for (const VClass* record = this; record; record = record->_parent) {
    if (record == &other) return 1;
  }
  return 0;
}

VClass* VClass::find(const char* name) {
  if (!name) return nullptr;
  for (VClass* record = firstRecord; record; record = record->_next) {
    if (std::strcmp(record->_name, name) == 0) return record;
  }
  return nullptr;
}

}  // namespace tarn
