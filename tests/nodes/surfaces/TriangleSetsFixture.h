#pragma once

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoNormal.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTextureCoordinate2.h>

#include "host/classes/VPathString.h"
#include "host/model/ImportedSurface.h"
#include "host/model/Material.h"
#include "nodes/framework/TarnOITexture.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

#include <string>
#include <vector>

/// A surface to which sets of one triangle each are added, with hints and textures for its
/// node. No two coordinates of its corners are the same.
class TriangleSetsFixture : public TarnTest {
protected:
  TriangleSetsFixture() {
    brick->SetFileName(&brickFile, &textureDictionary);
    stone->SetFileName(&stoneFile, &textureDictionary);
    textured.SetDiffuseType(tarn::Material::ePhotoTexture);
  }
  void TearDown() override {
    takeCoinErrors();  // of the images, which are not there
    TarnTest::TearDown();
  }

  static tarn::Point3DDouble cornerOf(int set, int corner) {
    return {1.5 + 10 * set + corner, 2.25 - 3 * corner + 7 * set,
            4.0 + 0.5 * corner * corner + set};
  }
  static SbVec3f shownCorner(int set, int corner) {
    const tarn::Point3DDouble p = cornerOf(set, corner);
    return SbVec3f(static_cast<float>(p.x - viewOffset.x), static_cast<float>(p.z - viewOffset.z),
                   static_cast<float>(-(p.y - viewOffset.y)));
  }
  static std::array<std::array<double, 2>, 3> uvOf(int set) {
    return {{{0.125 * set, 0.25}, {0.5, 0.0625 * set}, {1.0, 0.75}}};
  }

  /// A set more, of one triangle; its texture, or null for none.
  tarn::Triangle& addSet(TarnOITexture* texture = nullptr) {
    const int set = surface.AddTriangleSet();
    tarn::ThreeDPoint* corners[3];
    for (int k = 0; k < 3; ++k) corners[k] = &surface.AddPoint(cornerOf(set, k));
    tarn::Triangle& triangle = surface.AddTriangle(set, corners[0], corners[1], corners[2]);
    textures.push_back(texture);
    if (texture) surface.SetTextureCoordinates(triangle, uvOf(set));
    return triangle;
  }

  static std::vector<SbVec3f> valuesOf(const SoMFVec3f& field) {
    return {field.getValues(0), field.getValues(0) + field.getNum()};
  }
  static std::vector<SbVec2f> valuesOf(const SoMFVec2f& field) {
    return {field.getValues(0), field.getValues(0) + field.getNum()};
  }
  static std::vector<std::int32_t> valuesOf(const SoMFInt32& field) {
    return {field.getValues(0), field.getValues(0) + field.getNum()};
  }

  /// The children in short: H hints, M the neutral material, 0 to 9 a set without texture,
  /// T0 to T9 a textured one, and the type's name for any other.
  std::string inShort(const SoGroup& node) const {
    std::string text;
    for (int i = 0; i < node.getNumChildren(); ++i) {
      SoNode* child = node.getChild(i);
      if (child == singleSided.get() || child == doubleSided.get()) {
        text += "H ";
      } else if (child->getTypeId() == SoMaterial::getClassTypeId()) {
        text += "M ";
      } else if (child->isOfType(TarnOITexture::getClassTypeId())) {
        expectType<SoTextureCoordinate2>(node, i + 1);
        text += "T" + setAt(node, i + 2) + " ";
        i += 4;
      } else if (child->getTypeId() == SoNormal::getClassTypeId()) {
        text += setAt(node, i) + " ";
        i += 2;
      } else {
        text += std::string(child->getTypeId().getName().getString()) + " ";
      }
    }
    return text.empty() ? text : text.substr(0, text.size() - 1);
  }

  template <typename Node>
  static Node* childAt(const SoGroup& node, int index) {
    expectType<Node>(node, index);
    return static_cast<Node*>(node.getChild(index));
  }

  tarn::ImportedSurface surface;
  tarn::Material textured;
  tarn::VPathString brickFile{"brick.png"};
  tarn::VPathString stoneFile{"stone.png"};
  tarn::VDictionary textureDictionary;
  NodeRef<TarnOITexture> brick = makeNode<TarnOITexture>();
  NodeRef<TarnOITexture> stone = makeNode<TarnOITexture>();
  NodeRef<SoShapeHints> singleSided = makeNode<SoShapeHints>();
  NodeRef<SoShapeHints> doubleSided = makeNode<SoShapeHints>();
  std::vector<TarnOITexture*> textures;

private:
  template <typename Node>
  static void expectType(const SoGroup& node, int index) {
    ASSERT_LT(index, node.getNumChildren());
    EXPECT_EQ(node.getChild(index)->getTypeId(), Node::getClassTypeId()) << "child " << index;
  }
  // The number of the set whose normals stand at that index.
  static std::string setAt(const SoGroup& node, int index) {
    expectType<SoNormal>(node, index);
    expectType<SoIndexedFaceSet>(node, index + 2);
    const auto& point = childAt<SoCoordinate3>(node, index + 1)->point;
    for (int set = 0; set < 10; ++set) {
      if (point.getNum() > 0 && point[0] == shownCorner(set, 0)) return std::to_string(set);
    }
    return "?";
  }
};
