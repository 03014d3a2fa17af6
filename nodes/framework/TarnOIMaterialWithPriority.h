#pragma once

#include <Inventor/nodes/SoMaterial.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

/// A highlight material with a priority: among the highlights of a model-bound node the
/// one of highest priority ends last in the child list, and so wins.
class TARNOI_EXPORT TarnOIMaterialWithPriority : public SoMaterial {
  TARNOI_NODE_HEADER(TarnOIMaterialWithPriority);

public:
  TarnOIMaterialWithPriority();
  TarnOIMaterialWithPriority(const TarnOIMaterialWithPriority& other);
  TarnOIMaterialWithPriority& operator=(const TarnOIMaterialWithPriority& other);

  void SetPriority(int p) { priority = p; }
  int GetPriority() const { return priority; }

  SoNode* copy(SbBool copyConnections = FALSE) const override;
  void search(SoSearchAction* action) override;

protected:
  ~TarnOIMaterialWithPriority() override;

private:
  int priority = 0;
};
