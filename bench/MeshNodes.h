#pragma once

#include <Inventor/nodes/SoGroup.h>

#include "host/classes/VDictionary.h"
#include "host/model/PointMesh.h"
#include "host/model/Project.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/meshes/TarnOIPointMeshSeparator.h"

#include <memory>

namespace bench {

/// The mesh node with what is opened that only a host's own node class can call.
class OpenMeshNode : public TarnOIPointMeshSeparator {
public:
  using TarnOIPointMeshSeparator::HighlightSubTrianglesMultiPhotoTexture;
  using TarnOIPointMeshSeparator::SetTriMeshData;
};

/// A project of one mesh: a cloud with a colour for each point, or a terrain of triangles with
/// normals.
struct MeshProject {
  static std::unique_ptr<MeshProject> ofCloud(int points);
  static std::unique_ptr<MeshProject> ofTerrain(int triangles);

  tarn::Project project;
  tarn::PointMesh& mesh = project.AddPointMesh();
  tarn::VDictionary nodes;
};

/// The first child of that type; null when there is none.
template <typename Node>
Node* childOf(const SoGroup& group) {
  for (int i = 0; i < group.getNumChildren(); ++i) {
    SoNode* child = group.getChild(i);
    if (child->isOfType(Node::getClassTypeId())) return static_cast<Node*>(child);
  }
  return nullptr;
}

}  // namespace bench
