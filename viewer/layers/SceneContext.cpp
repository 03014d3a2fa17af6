#include "viewer/layers/SceneContext.h"

#include <utility>

SceneContext::SceneContext(tarn::ProgressHandler progress)
    : progress(std::move(progress)), highlightMaterial(makeNode<TarnOIMaterialWithPriority>()) {
  const SbColor color(1.0F, 0.16F, 0.72F);
  highlightMaterial->SetPriority(100);
  highlightMaterial->diffuseColor = color;
  highlightMaterial->ambientColor = color;
  highlightMaterial->emissiveColor = SbColor(0.45F, 0.05F, 0.32F);
}
