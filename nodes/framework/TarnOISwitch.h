#pragma once

#include <Inventor/nodes/SoSwitch.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

/// A switch that a search for a model object looks through: it finds nodes of layers that
/// are switched off. All other searches respect the switch.
class TARNOI_EXPORT TarnOISwitch : public SoSwitch {
  TARNOI_NODE_HEADER(TarnOISwitch);

public:
  TarnOISwitch();
  TarnOISwitch(const TarnOISwitch& other);
  TarnOISwitch& operator=(const TarnOISwitch& other);

  void search(SoSearchAction* action) override;

protected:
  ~TarnOISwitch() override;
};
