#pragma once

#include <Inventor/nodes/SoSwitch.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

/// A switch that a search for a model object looks through: it finds nodes of layers that
/// are switched off. All other searches respect the switch. See TarnOILayerSeparator for its
/// use.
class TARNOI_EXPORT TarnOISwitch : public SoSwitch {
  TARNOI_NODE_HEADER(TarnOISwitch);

public:
  TarnOISwitch();
  TarnOISwitch(const TarnOISwitch& other);
  TarnOISwitch& operator=(const TarnOISwitch& other);

  /// Searches all children for a model object, the chosen ones for anything else. The switch
  /// is the same afterwards, and nothing is notified.
  void search(SoSearchAction* action) override;

protected:
  ~TarnOISwitch() override;
};
