#pragma once

#include <Inventor/nodes/SoGroup.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"

/// What nodes do with the children that their members point to. Coin removes a stranger
/// silently and so corrupts the list, and knows nothing of members.
namespace ChildNodes {

/// Takes `child` out of the group. Null, and a node that is no child of it, are passed over.
TARNOI_EXPORT void remove(SoGroup& group, const SoNode* child);

/// The last child of that type, which may be a derived one; null where there is none. Of nodes
/// that set the same it is the one that counts.
template <typename Node>
Node* last(const SoGroup& group) {
  for (int i = group.getNumChildren(); i > 0; --i) {
    SoNode* child = group.getChild(i - 1);
    if (child->isOfType(Node::getClassTypeId())) return static_cast<Node*>(child);
  }
  return nullptr;
}

/// Takes the member's node out of the group, where it is a child, and clears the member.
template <typename Node>
void removeAndForget(SoGroup& group, NodeRef<Node>& member) {
  remove(group, member.get());
  member.reset();
}

/// For a member of `copy`, which was copied from `original` by Coin: the child of the copy
/// that stands where `member` of the original stands among its children. Null where that is
/// none of them.
template <typename Node>
NodeRef<Node> counterpart(const SoGroup& copy, const SoGroup& original,
                          const NodeRef<Node>& member) {
  const int index = member ? original.findChild(member.get()) : -1;
  return NodeRef(index == -1 ? nullptr : static_cast<Node*>(copy.getChild(index)));
}

}  // namespace ChildNodes
