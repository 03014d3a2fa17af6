#include "nodes/framework/ChildNodes.h"

#include <Inventor/nodes/SoMaterial.h>

void ChildNodes::remove(SoGroup& group, const SoNode* child) {
  const int index = child ? group.findChild(child) : -1;
  if (index != -1) group.removeChild(index);
}

const SoNode* ChildNodes::lastMaterial(const SoGroup& group) {
  for (int i = group.getNumChildren(); i > 0; --i) {
    const SoNode* child = group.getChild(i - 1);
    if (child->isOfType(SoMaterial::getClassTypeId())) return child;
  }
  return nullptr;
}
