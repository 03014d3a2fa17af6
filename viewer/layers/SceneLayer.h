#pragma once

#include "host/model/ObjectName.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOISwitch.h"

#include <string_view>

class TarnOILayerSeparator;
struct SceneContext;

/// A layer of the scene: a TarnOISwitch over a TarnOILayerSeparator with the nodes of the
/// layer's objects.
class SceneLayer {
public:
  SceneLayer(std::string_view name, SceneContext& context);
  SceneLayer(const SceneLayer&) = delete;
  SceneLayer& operator=(const SceneLayer&) = delete;

  /// What is put into the scene. It must be taken out again before the layer goes.
  TarnOISwitch* root() const { return layerSwitch.get(); }

  void setVisible(bool visible);
  bool isVisible() const;

protected:
  ~SceneLayer() = default;

  SceneContext& context;
  TarnOILayerSeparator* separator = nullptr;

private:
  tarn::ObjectName name;  // ahead of the nodes: their separator knows it to its end
  NodeRef<TarnOISwitch> layerSwitch;
};
