#include "nodes/framework/ChildNodes.h"

void ChildNodes::remove(SoGroup& group, const SoNode* child) {
  const int index = child ? group.findChild(child) : -1;
  if (index != -1) group.removeChild(index);
}
