#pragma once

#include <utility>

/// Holds one reference on a Coin node (or path, or any SoBase).
template <typename Node>
class NodeRef {
public:
  NodeRef() = default;
  explicit NodeRef(Node* node) : held(node) {
    if (held) held->ref();
  }
  NodeRef(const NodeRef& other) : NodeRef(other.held) {}
  NodeRef(NodeRef&& other) noexcept : held(std::exchange(other.held, nullptr)) {}
  NodeRef& operator=(NodeRef other) noexcept {
    std::swap(held, other.held);
    return *this;
  }
  ~NodeRef() {
    if (held) held->unref();
  }

  Node* get() const { return held; }
  Node* operator->() const { return held; }
  Node& operator*() const { return *held; }
  explicit operator bool() const { return held; }

  /// Gives the reference up: a node that nothing else holds is destroyed.
  void reset() { *this = NodeRef(); }

private:
  Node* held = nullptr;
};

/// A new node, held by one reference.
template <typename Node, typename... Arguments>
NodeRef<Node> makeNode(Arguments&&... arguments) {
  return NodeRef<Node>(new Node(std::forward<Arguments>(arguments)...));
}
