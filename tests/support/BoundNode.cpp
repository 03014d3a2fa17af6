#include "tests/support/BoundNode.h"

TARNOI_NODE_SOURCE(BoundNode, TarnOISeparator);
TARNOI_SEPARATOR_INIT_CLASS(BoundNode);

BoundNode::BoundNode() { TARNOI_NODE_CONSTRUCTOR(); }

SoNode* BoundNode::copy(SbBool copyConnections) const {
  return boundCopy(TarnOISeparator::copy(copyConnections));
}
