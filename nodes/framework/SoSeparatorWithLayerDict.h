#pragma once

#include <Inventor/nodes/SoSeparator.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

#include <cstdint>
#include <unordered_map>

/// A separator that carries a map for the host, from layers to their nodes by intent. The
/// library never reads or writes it.
class TARNOI_EXPORT SoSeparatorWithLayerDict : public SoSeparator {
  TARNOI_NODE_HEADER(SoSeparatorWithLayerDict);

public:
  using LayerDict = std::unordered_map<std::uintptr_t, std::uintptr_t>;

  SoSeparatorWithLayerDict();
  /// Copies the map entry by entry.
  SoSeparatorWithLayerDict(const SoSeparatorWithLayerDict& other);
  SoSeparatorWithLayerDict& operator=(const SoSeparatorWithLayerDict& other);

  /// The host's map; empty in a new node.
  LayerDict layerDict;

protected:
  ~SoSeparatorWithLayerDict() override;
};
