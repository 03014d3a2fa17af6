#pragma once

#include "host/classes/VDictionary.h"
#include "io/ColmapReader.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIMaterialWithPriority.h"

/// What the layers of a scene share. It outlives their nodes, which take themselves out of the
/// dictionaries when they go.
struct SceneContext {
  explicit SceneContext(tarn::ProgressHandler progress);

  tarn::ProgressHandler progress;  ///< may be empty
  tarn::VDictionary objects;       ///< finds the node of a model object
  tarn::VDictionary layers;        ///< finds the separator of a layer's name
  tarn::VDictionary textures;      ///< finds the texture of a picture's path
  NodeRef<TarnOIMaterialWithPriority> highlightMaterial;
};
