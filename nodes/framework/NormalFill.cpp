#include "nodes/framework/NormalFill.h"

#include <Inventor/nodes/SoNormal.h>

#include "host/general/LargePages.h"
#include "nodes/framework/OneNotification.h"

#include <algorithm>

namespace {
const SbVec3f noDirection(0.0F, 0.0F, 0.0F);
}

void NormalFill::finish() {
  if (!vectors) return;
  // Coin reads a normal for every coordinate, also where the list ends before the last: the
  // memory is as long as the coordinates are.
  std::fill(vectors.get() + count, vectors.get() + capacity, noDirection);
  const OneNotification once(node.vector);
  node.vector.setValuesPointer(count, vectors.release());
  node.vector.enableDeleteValues();
}

void NormalFill::makeRoomFor(SoNormal& node, int coordinates) {
  const int count = node.vector.getNum();
  if (count == 0 || count >= coordinates) return;
  NormalFill fill(node, coordinates);
  fill.makeRoom(0);
  std::copy_n(node.vector.getValues(0), count, fill.vectors.get());
  fill.count = count;
  fill.finish();
}

void NormalFill::makeRoom(int index) {
  if (!vectors) {
    const auto size = static_cast<std::size_t>(capacity);
    vectors = std::make_unique_for_overwrite<SbVec3f[]>(size);
    tarn::makeLargePages(vectors.get(), size * sizeof(SbVec3f));
  }
  std::fill(vectors.get() + count, vectors.get() + index, noDirection);
}
