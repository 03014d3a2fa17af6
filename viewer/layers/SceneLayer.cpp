#include "viewer/layers/SceneLayer.h"

#include "nodes/framework/TarnOILayerSeparator.h"
#include "viewer/layers/SceneContext.h"

SceneLayer::SceneLayer(std::string_view name, SceneContext& context)
    : context(context),
      separator(new TarnOILayerSeparator),
      name(name),
      layerSwitch(makeNode<TarnOISwitch>()) {
  layerSwitch->addChild(separator);
  separator->SetLayer(&this->name, &context.layers);
  separator->SetLayerSwitch(layerSwitch.get());
  setVisible(true);
}

void SceneLayer::setVisible(bool visible) { separator->SetVisibility(visible); }

bool SceneLayer::isVisible() const { return layerSwitch->whichChild.getValue() != SO_SWITCH_NONE; }
