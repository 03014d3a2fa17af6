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
  separator->SetVisibility(1);
}
