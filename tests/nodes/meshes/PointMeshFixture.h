#pragma once

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMaterialBinding.h>
#include <Inventor/nodes/SoNormal.h>
#include <Inventor/nodes/SoTransform.h>

#include "host/model/Material.h"
#include "host/model/PointMesh.h"
#include "nodes/meshes/TriangleLookups.h"
#include "tests/nodes/meshes/OpenMeshNode.h"
#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

#include <array>
#include <vector>

/// A mesh of four points, no two coordinates of which are the same, and a node for it.
class PointMeshFixture : public TarnTest {
protected:
  PointMeshFixture() { setPoints(mesh, points); }

  static constexpr std::array<std::array<float, 3>, 4> points{
      {{1.5F, 2.25F, -3.75F}, {11.0F, -7.5F, 8.0F}, {4.0F, 5.5F, 6.25F}, {-9.5F, 0.5F, 20.0F}}};

  template <typename Points>
  static void setPoints(tarn::PointMesh& mesh, const Points& points, int withColours = 0) {
    mesh.Allocate(static_cast<int>(points.size()), withColours);
    float* stored = mesh.GetPointStorage().data();
    for (const auto& point : points) stored = std::copy(point.begin(), point.end(), stored);
    mesh.PointsChanged();
  }

  /// Points and, in the order blue, green, red, a colour for each: (10 i, 20 i + 1, 30 i + 2).
  void setColouredPoints() {
    setPoints(mesh, points, 1);
    unsigned char* stored = mesh.GetColourStorage().data();
    for (unsigned int i = 0; i < 3 * points.size(); ++i) {
      stored[i] = static_cast<unsigned char>(10 * (i % 3 + 1) * (i / 3) + i % 3);
    }
  }

  /// The triangles (0, 1, 2) and (2, 1, 3).
  void setTriangles(bool withNormals = false) {
    std::vector<tarn::Point3DDouble> normals;
    if (withNormals) normals = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 11, 12}};
    ASSERT_TRUE(mesh.SetTriangles({{0, 1, 2}, {2, 1, 3}}, normals));
  }

  static tarn::BasicAffine shift(double x, double y, double z) {
    tarn::BasicAffine affine;
    affine.SetTranslation({x, y, z}, {0, 0, 0});
    return affine;
  }

  /// A stored point as it is shown: with the view offset taken off, or without.
  static SbVec3f shown(const std::array<float, 3>& p) {
    return SbVec3f(static_cast<float>(p[0] - viewOffset.x), static_cast<float>(p[2] - viewOffset.z),
                   static_cast<float>(-(p[1] - viewOffset.y)));
  }
  static SbVec3f shownAsStored(const std::array<float, 3>& p) { return SbVec3f(p[0], p[2], -p[1]); }

  static std::vector<SbVec3f> valuesOf(const SoMFVec3f& field) {
    return {field.getValues(0), field.getValues(0) + field.getNum()};
  }
  static std::vector<SbColor> valuesOf(const SoMFColor& field) {
    return {field.getValues(0), field.getValues(0) + field.getNum()};
  }
  static std::vector<std::int32_t> valuesOf(const SoMFInt32& field) {
    return {field.getValues(0), field.getValues(0) + field.getNum()};
  }
  /// The child of that type that comes first; null where there is none.
  template <typename Node>
  static Node* firstChild(const SoGroup& group) {
    for (SoNode* child : children(group)) {
      if (child->isOfType(Node::getClassTypeId())) return static_cast<Node*>(child);
    }
    return nullptr;
  }

  static SbColor bytes(int red, int green, int blue) {
    return SbColor(static_cast<float>(red / 255.0), static_cast<float>(green / 255.0),
                   static_cast<float>(blue / 255.0));
  }

  /// How often a parent of the node hears of a change while `change` runs.
  template <typename Change>
  int signalsWhile(Change change) {
    auto parent = makeNode<SoGroup>();
    parent->addChild(node.get());
    SignalCount signals(parent.get());
    change();
    return signals.count();
  }

  tarn::PointMesh mesh;
  NodeRef<OpenMeshNode> node = makeNode<OpenMeshNode>();
};
