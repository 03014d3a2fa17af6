#include "viewer/layers/LabelColor.h"

#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoGroup.h>

#include "nodes/framework/TarnOIText2.h"

void LabelColor::add(SoGroup& node) {
  for (int i = node.getNumChildren() - 1; i > 0; --i) {
    if (!node.getChild(i)->isOfType(TarnOIText2::getClassTypeId())) continue;
    const int transform = i - 1;
    if (transform > 0 && node.getChild(transform - 1)->isOfType(SoBaseColor::getClassTypeId())) {
      return;
    }
    auto* color = new SoBaseColor;
    color->rgb = SbColor(0.97F, 0.97F, 0.93F);
    node.insertChild(color, transform);
    return;
  }
}

void LabelColor::remove(SoGroup& node) {
  for (int i = node.getNumChildren() - 1; i >= 0; --i) {
    if (node.getChild(i)->getTypeId() == SoBaseColor::getClassTypeId()) node.removeChild(i);
  }
}
