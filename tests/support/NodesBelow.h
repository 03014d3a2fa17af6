#pragma once

#include <Inventor/SoPath.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoNode.h>

#include <vector>

/// The nodes of that type at and below `root`, switched off or not, as often as they are drawn
/// and in that order.
template <typename Node>
std::vector<Node*> nodesBelow(SoNode* root) {
  SoSearchAction search;
  search.setType(Node::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.setSearchingAll(TRUE);
  search.apply(root);
  std::vector<Node*> found;
  for (int i = 0; i < search.getPaths().getLength(); ++i) {
    found.push_back(static_cast<Node*>(search.getPaths()[i]->getTail()));
  }
  return found;
}
