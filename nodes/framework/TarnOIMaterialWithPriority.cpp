#include "nodes/framework/TarnOIMaterialWithPriority.h"

#include <Inventor/actions/SoSearchAction.h>

TARNOI_NODE_SOURCE(TarnOIMaterialWithPriority, SoMaterial);

void TarnOIMaterialWithPriority::initClass() {
  registration.init(&TarnOIMaterialWithPriority::atexit_cleanup);
}

TarnOIMaterialWithPriority::TarnOIMaterialWithPriority() { TARNOI_NODE_CONSTRUCTOR(); }

TarnOIMaterialWithPriority::TarnOIMaterialWithPriority(const TarnOIMaterialWithPriority& other)
    : TarnOIMaterialWithPriority() {
  *this = other;
}

TarnOIMaterialWithPriority& TarnOIMaterialWithPriority::operator=(
    const TarnOIMaterialWithPriority& other) {
  priority = other.priority;
  return *this;
}

TarnOIMaterialWithPriority::~TarnOIMaterialWithPriority() = default;

SoNode* TarnOIMaterialWithPriority::copy(SbBool copyConnections) const {
  SoNode* result = SoMaterial::copy(copyConnections);
  static_cast<TarnOIMaterialWithPriority*>(result)->SetPriority(priority);
  return result;
}

void TarnOIMaterialWithPriority::search(SoSearchAction* action) {
  if (!action->isFound()) SoMaterial::search(action);
}
