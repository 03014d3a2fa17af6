#include "nodes/framework/TarnOILayerSeparator.h"

#include "host/classes/VDictionary.h"
#include "host/model/ObjectName.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "nodes/framework/TarnOISwitch.h"

TARNOI_NODE_SOURCE(TarnOILayerSeparator, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(TarnOILayerSeparator);

namespace {
constexpr const char* sourceFile = "TarnOILayerSeparator";
}

TarnOILayerSeparator::TarnOILayerSeparator() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOILayerSeparator::TarnOILayerSeparator(const TarnOILayerSeparator& other)
    : TarnOILayerSeparator() {
  *this = other;
}

TarnOILayerSeparator& TarnOILayerSeparator::operator=(const TarnOILayerSeparator& other) {
  TarnOISeparator::operator=(other);
  layer = other.layer;
  tarnoi_searchDict = other.tarnoi_searchDict;
  layerSwitch = other.layerSwitch;
  return *this;
}

TarnOILayerSeparator::~TarnOILayerSeparator() {
  if (TARNOI_ASSERT(tarnoi_searchDict, "tarnoi_searchDict", sourceFile) && layer) {
    tarnoi_searchDict->removeKey(layer);
  }
}

void TarnOILayerSeparator::SetLayer(tarn::ObjectName* newLayer, tarn::VDictionary* dict) {
  bindToDictionary(this, layer, tarnoi_searchDict, newLayer, dict);
}

void TarnOILayerSeparator::SetVisibility(int visible) {
  if (!TARNOI_ASSERT(layerSwitch, "layerSwitch", sourceFile)) return;
  layerSwitch->whichChild.setValue(visible ? SO_SWITCH_ALL : SO_SWITCH_NONE);
}

SoNode* TarnOILayerSeparator::copy(SbBool copyConnections) const {
  SoNode* result = TarnOISeparator::copy(copyConnections);
  static_cast<TarnOILayerSeparator*>(result)->SetLayer(layer, tarnoi_searchDict);
  return result;
}

void TarnOILayerSeparator::search(SoSearchAction* action) {
  if (auto* search = TarnOISearchAction::from(action)) {
    if (search->GetTarnObject() == layer && search->addCurrentPath()) return;
  }
  TarnOISeparator::search(action);
}
