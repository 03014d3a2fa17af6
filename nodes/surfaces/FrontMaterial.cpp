#include "nodes/surfaces/FrontMaterial.h"

#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoMaterial.h>

#include "nodes/framework/NodeRef.h"

void FrontMaterial::set(SoGroup& node, SoMaterial* material) {
  const NodeRef held(material);  // it may be the one that is taken out
  if (node.getNumChildren() > 0 && node.getChild(0)->isOfType(SoMaterial::getClassTypeId())) {
    node.removeChild(0);
  }
  if (material) node.insertChild(material, 0);
}
