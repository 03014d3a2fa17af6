#pragma once

#include <Inventor/nodes/SoNode.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

/// What is drawn behind a scene. It has neither fields nor behaviour: applications recognise
/// any background by this type. Abstract; SoGradientBackground is one.
class TARNOI_EXPORT SoBackground : public SoNode {
  TARNOI_ABSTRACT_NODE_HEADER(SoBackground);

protected:
  SoBackground();
  SoBackground(const SoBackground& other);
  SoBackground& operator=(const SoBackground& other);
  ~SoBackground() override;
};
