#pragma once

#include <Inventor/nodes/SoMaterial.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

/// A highlight material with a priority: among the highlights of a model-bound node the
/// one of highest priority ends last in the child list, and so wins.
///
///     auto* selected = new TarnOIMaterialWithPriority;
///     selected->SetPriority(5);
///     selected->diffuseColor.setValue(1.0F, 0.0F, 0.0F);
///     node->Highlight(selected, 1);
class TARNOI_EXPORT TarnOIMaterialWithPriority : public SoMaterial {
  TARNOI_NODE_HEADER(TarnOIMaterialWithPriority);

public:
  TarnOIMaterialWithPriority();
  TarnOIMaterialWithPriority(const TarnOIMaterialWithPriority& other);
  TarnOIMaterialWithPriority& operator=(const TarnOIMaterialWithPriority& other);

  /// Set it before the material is used: highlights already placed are not moved.
  void SetPriority(int newPriority) { priority = newPriority; }
  /// The priority; 0 for a new material.
  int GetPriority() const { return priority; }

  /// The ordinary copy, with the same priority.
  SoNode* copy(SbBool copyConnections = FALSE) const override;
  /// Nothing once the action has found what it seeks; else as any node.
  void search(SoSearchAction* action) override;

protected:
  ~TarnOIMaterialWithPriority() override;

private:
  int priority = 0;
};
