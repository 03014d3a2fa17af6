#pragma once

#include "nodes/framework/FieldMemory.h"
#include "nodes/framework/OneNotification.h"

/// All values of a field, to be written in place. While it lives the field notifies nobody;
/// when it goes, the change is signalled once.
///
///     const FieldFill fill(coordinates->point, count);
///     for (int i = 0; i < count; ++i) fill.values()[i] = positionOf(i);
template <typename Field>
class FieldFill {
public:
  /// Gives the field `count` values (see FieldMemory::resize); each has to be written.
  FieldFill(Field& field, int count) : field(field), once(field) {
    FieldMemory::resize(field, count);
  }
  ~FieldFill() { field.finishEditing(); }
  FieldFill(const FieldFill&) = delete;
  FieldFill& operator=(const FieldFill&) = delete;

  /// The first value; null where there are none.
  FieldMemory::Value<Field>* values() const { return field.startEditing(); }

private:
  Field& field;
  OneNotification<Field> once;
};
