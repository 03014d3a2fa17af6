#pragma once

#include <Inventor/nodes/SoGroup.h>

#include <string>
#include <vector>

/// The names of a group's children's types, in order: "Coordinate3".
inline std::vector<std::string> childTypes(const SoGroup& node) {
  std::vector<std::string> result;
  for (int i = 0; i < node.getNumChildren(); ++i) {
    result.emplace_back(node.getChild(i)->getTypeId().getName().getString());
  }
  return result;
}

/// A group's children, in order.
inline std::vector<SoNode*> children(const SoGroup& node) {
  std::vector<SoNode*> result;
  for (int i = 0; i < node.getNumChildren(); ++i) result.push_back(node.getChild(i));
  return result;
}
