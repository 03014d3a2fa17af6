#pragma once

#include "nodes/meshes/TarnOIPointMeshSeparator.h"

/// The node with its members and protected operations open.
class OpenMeshNode : public TarnOIPointMeshSeparator {
public:
  OpenMeshNode() = default;
  /// Has the members of any other node: a look into a copy that Coin made.
  explicit OpenMeshNode(const TarnOIPointMeshSeparator& other) : TarnOIPointMeshSeparator(other) {}

  using TarnOIPointMeshSeparator::colorBinding;
  using TarnOIPointMeshSeparator::colorMaterial;
  using TarnOIPointMeshSeparator::ColorRange;
  using TarnOIPointMeshSeparator::contourSeparator;
  using TarnOIPointMeshSeparator::doNotUseLocalTransform;
  using TarnOIPointMeshSeparator::faceSet;
  using TarnOIPointMeshSeparator::highlightOn;
  using TarnOIPointMeshSeparator::HighlightSubTrianglesMultiPhotoTexture;
  using TarnOIPointMeshSeparator::localTransform;
  using TarnOIPointMeshSeparator::pointPos;
  using TarnOIPointMeshSeparator::SetMeshData;
  using TarnOIPointMeshSeparator::SetTriMeshData;
  using TarnOIPointMeshSeparator::subHighlight;
  using TarnOIPointMeshSeparator::subHighlightColor;
  using TarnOIPointMeshSeparator::triangleLookups;
};
