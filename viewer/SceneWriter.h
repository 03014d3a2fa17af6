#pragma once

#include "nodes/framework/NodeRef.h"

#include <string>
#include <unordered_map>

class SoNode;

/// Writes a scene so that any Open Inventor program opens it: nodes of this library become
/// the nodes of Coin that they derive from, each named after the object it shows, and the
/// point symbols become Inventor's nearest own ones. A background and what lies on the screen are
/// left out.
class SceneWriter {
public:
  /// The scene without classes of this library. Nodes that stand under several parents do
  /// so in the result, too; nodes that need no change are shared with the original.
  static NodeRef<SoNode> toStandardNodes(SoNode* scene);

  /// Writes the scene as ASCII Inventor text, whole or not at all. Throws
  /// std::runtime_error that names the file when it cannot be written.
  static void write(SoNode* scene, const std::string& fileName);

  /// The text as a name that Inventor allows: other characters become underscores.
  static std::string legalName(const std::string& text);
};
