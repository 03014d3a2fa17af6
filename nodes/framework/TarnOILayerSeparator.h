#pragma once

#include "nodes/framework/TarnOISeparator.h"

class TarnOISwitch;

namespace tarn {
class ObjectName;
}

/// The separator of one layer: the host puts the nodes of the layer's objects under it,
/// and it under a TarnOISwitch that shows or hides the layer. It enters itself into a
/// layer dictionary, and a TarnOISearchAction finds it by its layer. It binds no model
/// object of its own.
///
///     auto* layerSwitch = new TarnOISwitch;
///     auto* layer = new TarnOILayerSeparator;
///     root->addChild(layerSwitch);
///     layerSwitch->addChild(layer);
///     layer->SetLayer(&walls, &layerDictionary);
///     layer->SetLayerSwitch(layerSwitch);
///     layer->SetVisibility(1);
class TARNOI_EXPORT TarnOILayerSeparator : public TarnOISeparator {
  TARNOI_NODE_HEADER(TarnOILayerSeparator);

public:
  TarnOILayerSeparator();
  /// Copies the members; the dictionary's entry stays with the other separator.
  TarnOILayerSeparator(const TarnOILayerSeparator& other);
  TarnOILayerSeparator& operator=(const TarnOILayerSeparator& other);

  /// Binds the separator to the layer, by the rule of SetTarnObject. Neither is owned; both
  /// must outlive the separator.
  void SetLayer(tarn::ObjectName* newLayer, tarn::VDictionary* dict);
  /// The layer; null while there is none.
  tarn::ObjectName* GetLayer() const { return layer; }

  /// The switch that shows or hides this layer; not owned.
  void SetLayerSwitch(TarnOISwitch* s) { layerSwitch = s; }
  /// Shows the layer with all its children, or hides it. The switch must be set.
  void SetVisibility(int visible);

  /// The ordinary copy, bound to the same layer: the dictionary's entry moves to it. The
  /// switch is not carried over.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  /// Matches the layer, then the nodes below by their objects.
  void search(SoSearchAction* action) override;

protected:
  /// Reports a separator that never was given a dictionary.
  ~TarnOILayerSeparator() override;

private:
  tarn::ObjectName* layer = nullptr;
  tarn::VDictionary* tarnoi_searchDict = nullptr;
  TarnOISwitch* layerSwitch = nullptr;
};
