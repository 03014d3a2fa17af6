#pragma once

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoGroup.h>

#include <stdexcept>
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

/// The first child of that type. Throws where there is none, which fails the test.
template <typename Node>
Node& childOf(const SoGroup& node) {
  for (SoNode* child : children(node)) {
    if (child->isOfType(Node::getClassTypeId())) return static_cast<Node&>(*child);
  }
  throw std::runtime_error(std::string("no child is a ") +
                           Node::getClassTypeId().getName().getString());
}

/// The coordinates that a group's child of that index holds; none when it is not there or
/// no coordinate node.
inline std::vector<SbVec3f> coordinates(const SoGroup& node, int index) {
  SoNode* child = index < node.getNumChildren() ? node.getChild(index) : nullptr;
  if (!child || !child->isOfType(SoCoordinate3::getClassTypeId())) return {};
  const SoMFVec3f& points = static_cast<SoCoordinate3*>(child)->point;
  return {points.getValues(0), points.getValues(0) + points.getNum()};
}
