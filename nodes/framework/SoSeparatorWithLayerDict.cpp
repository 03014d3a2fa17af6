#include "nodes/framework/SoSeparatorWithLayerDict.h"

TARNOI_NODE_SOURCE(SoSeparatorWithLayerDict, SoSeparator);

void SoSeparatorWithLayerDict::initClass() {
  registration.init(&SoSeparatorWithLayerDict::atexit_cleanup);
}

SoSeparatorWithLayerDict::SoSeparatorWithLayerDict() : layerDict(8) {
  TARNOI_NODE_CONSTRUCTOR();
  layerDict.max_load_factor(1.0F);
}

SoSeparatorWithLayerDict::SoSeparatorWithLayerDict(const SoSeparatorWithLayerDict& other)
    : SoSeparatorWithLayerDict() {
  *this = other;
}

SoSeparatorWithLayerDict& SoSeparatorWithLayerDict::operator=(
    const SoSeparatorWithLayerDict& other) {
  layerDict = other.layerDict;
  return *this;
}

SoSeparatorWithLayerDict::~SoSeparatorWithLayerDict() = default;
