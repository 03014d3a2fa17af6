#include "nodes/meshes/SubHighlight.h"

#include <Inventor/nodes/SoGroup.h>

#include "host/classes/VOrdCollect.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/SceneColor.h"

tarn::VColor SubHighlight::selectionColour() { return SceneColor::indexed("SelectionColor", 7); }

void SubHighlight::place(SoGroup& node, int index) {
  if (!material) material = makeNode<SoMaterial>();
  if (!binding) binding = makeNode<SoMaterialBinding>();
  if (node.findChild(material.get()) == -1) node.insertChild(material.get(), index);
  if (node.findChild(binding.get()) == -1) {
    node.insertChild(binding.get(), node.findChild(material.get()) + 1);
  }
  chooseBinding(node);
}

void SubHighlight::remove(SoGroup& node) {
  ChildNodes::removeAndForget(node, material);
  ChildNodes::removeAndForget(node, binding);
}

void SubHighlight::chooseBinding(const SoGroup& node) {
  if (!binding) return;
  const bool wins = ChildNodes::last<SoMaterial>(node) == material.get();
  const auto chosen = wins ? SoMaterialBinding::PER_PART : SoMaterialBinding::OVERALL;
  if (binding->value.getValue() != chosen) binding->value.setValue(chosen);
}

void SubHighlight::paint(SbColor* colours, int count, const tarn::VOrdCollect* indexes,
                         const tarn::VColor& colour) {
  const SbColor painted = SceneColor::from(colour);
  const int listed = indexes ? indexes->size() : 0;
  for (int i = 0; i < listed; ++i) {
    const auto index = indexes->indexAt(i);
    if (index >= 0 && index < count) colours[index] = painted;
  }
}

SubHighlight SubHighlight::counterpart(const SoGroup& copy, const SoGroup& original) const {
  SubHighlight result;
  result.material = ChildNodes::counterpart(copy, original, material);
  result.binding = ChildNodes::counterpart(copy, original, binding);
  return result;
}
