#pragma once

#include "host/general/LargePages.h"

#include <cstddef>
#include <new>
#include <type_traits>
#include <utility>

/// The memory behind the values of a large field. Filling a new field of millions of values is
/// mostly the system's work of handing out its pages; here it is told once how little of that
/// is needed.
namespace FieldMemory {

/// The type of a field's values.
template <typename Field>
using Value = std::remove_pointer_t<decltype(std::declval<Field&>().startEditing())>;

/// Gives the field `count` values, whatever the memory holds. A field of that size keeps its
/// memory; any other forgets its values and gets exactly as much as it needs, which is its own as
/// ever.
template <typename Field>
void resize(Field& field, int count) {
  if (field.getNum() == count) return;
  field.setNum(0);  // else Coin copies what is there, and doubles until the size is reached
  if (count <= 0) return;
  // Not by setNum, which sets integers to 0 and calls the empty constructor of each colour:
  // either takes as long as filling.
  const std::size_t bytes = static_cast<std::size_t>(count) * sizeof(Value<Field>);
  void* const memory = ::operator new[](bytes);
  tarn::makeLargePages(memory, bytes);
  field.setValuesPointer(count, static_cast<Value<Field>*>(memory));
  field.enableDeleteValues();
}

/// Hands the values of one field, with their memory, to another and takes its own in exchange.
/// Nobody is notified.
template <typename Field>
void swap(Field& one, Field& other) {
  // Coin has no call for this. Names of protected members may be formed in a derived class.
  struct Open : Field {
    static void swapMembers(Field& one, Field& other) {
      std::swap(one.*(&Open::values), other.*(&Open::values));
      std::swap(one.*(&Open::num), other.*(&Open::num));
      std::swap(one.*(&Open::maxNum), other.*(&Open::maxNum));
      std::swap(one.*(&Open::userDataIsUsed), other.*(&Open::userDataIsUsed));
    }
  };
  Open::swapMembers(one, other);
}

}  // namespace FieldMemory
