#pragma once

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoNormal.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTextureCoordinate2.h>

#include "host/classes/VPathString.h"
#include "host/model/Material.h"
#include "host/model/Project.h"
#include "host/model/SurfaceGroup.h"
#include "nodes/framework/TarnOITexture.h"
#include "nodes/surfaces/SurfaceVertexKey.h"
#include "nodes/surfaces/TarnOISurfaceSeparator.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

#include <deque>
#include <initializer_list>
#include <string>
#include <vector>

/// A surface group with its node, hints and textures, and photographs that look down on it from
/// straight above. No two coordinates of its points are the same.
class SurfaceGroupFixture : public TarnTest {
protected:
  SurfaceGroupFixture() {
    brick->SetFileName(&brickFile, &textureDictionary);
    stone->SetFileName(&stoneFile, &textureDictionary);
    textured.SetDiffuseType(tarn::Material::ePhotoTexture);
    for (int i = 0; i < 4; ++i) addPoint();
  }
  void TearDown() override {
    takeCoinErrors();  // of the images, which are not there
    TarnTest::TearDown();
  }

  static tarn::Point3DDouble positionOf(int i) {
    return {1.5 + 3 * (i % 2) + 0.25 * i, 2.25 + 4 * (i / 2), 0.125 + 0.5 * i};
  }
  static SbVec3f shown(const tarn::Point3DDouble& p) {
    return SbVec3f(static_cast<float>(p.x - viewOffset.x), static_cast<float>(p.z - viewOffset.z),
                   static_cast<float>(-(p.y - viewOffset.y)));
  }
  static SbVec3f shownPoint(int i) { return shown(positionOf(i)); }

  tarn::ObjectPoint& addPoint() {
    tarn::ObjectPoint& point = project.AddObjectPoint();
    point.SetApproximation(tarn::Point3DRandom(positionOf(static_cast<int>(points.size()))));
    points.push_back(&point);
    return point;
  }
  tarn::SurfaceElement& addTriangle(int a, int b, int c) {
    const auto at = [this](int i) { return points[static_cast<std::size_t>(i)]; };
    return group.AddElement(at(a), at(b), at(c));
  }
  /// Two triangles, with the vertices 0, 1, 3, 2.
  void addQuadrangle() {
    addTriangle(0, 1, 3);
    addTriangle(0, 3, 2);
  }

  /// A photograph of 1000 x 500 pixels from that height: the pixel of (x, y, z) is
  /// (500 + 1000 (x - 3) / depth, 250 - 1000 (y - 4) / depth).
  tarn::Photograph& addPhotograph(double height) {
    tarn::Camera& camera = project.AddCamera();
    camera.SetImageSize(1000, 500);
    camera.SetFormatSize(36, 18);
    camera.SetFocalLength(36);
    camera.SetPrincipalPoint({500, 250});
    tarn::CameraStation& station = project.AddCameraStation();
    station.SetOrientation({3, 4, height}, tarn::MatrixDouble::Identity(3));
    station.SetCamera(&camera);
    tarn::Photograph& photograph = project.GetPhotoCollection()->Add();
    photograph.SetCameraStation(&station);
    station.SetPhotograph(&photograph);
    return photograph;
  }
  static tarn::Point2DDouble pixelOf(int i, double height) {
    const tarn::Point3DDouble p = positionOf(i);
    const double scale = 1000.0 / (height - p.z);
    return {500 + scale * (p.x - 3), 250 - scale * (p.y - 4)};
  }
  static SbVec2f textureOf(const tarn::Point2DDouble& pixel) {
    return SbVec2f(static_cast<float>(0.001 * pixel.x), 1.0F - static_cast<float>(0.002 * pixel.y));
  }

  /// Sets the surface; its mark is taken, and nothing else is expected to be reported.
  void set() {
    setWith(singleSided.get(), doubleSided.get());
    EXPECT_THAT(takeAssertions(), ::testing::ElementsAre(mark()));
  }
  void setWith(SoShapeHints* single, SoShapeHints* both) {
    node->SetSurface(&group, &dictionary, &project, single, both);
  }
  static auto report(const char* text, int line) {
    return IsAssertionAt(text, "TarnOISurfaceSeparator", line);
  }
  static ::testing::Matcher<const Assertion&> mark() { return report("0", 102); }

  template <typename Field>
  static auto valuesOf(const Field& field) {
    return std::vector(field.getValues(0), field.getValues(0) + field.getNum());
  }
  std::vector<SbVec3f> shownVertices() const {
    return valuesOf(childOf<SoCoordinate3>(*node).point);
  }
  std::vector<SbVec2f> texturePlaces() const {
    return valuesOf(childOf<SoTextureCoordinate2>(*node).point);
  }
  std::vector<std::int32_t> indexes() const {
    return valuesOf(childOf<SoIndexedFaceSet>(*node).coordIndex);
  }
  template <typename Node>
  int countOf() const {
    int count = 0;
    for (const SoNode* child : children(*node)) count += child->isOfType(Node::getClassTypeId());
    return count;
  }

  /// Enters normals for these points under that name.
  void putNormals(tarn::ObjectName* name, std::initializer_list<int> of) {
    for (const int i : of) {
      keys.emplace_back(name, points[static_cast<std::size_t>(i)]);
      normals.emplace_back(normalOf(i));
      normalsByKey.atKeyPut(&keys.back(), &normals.back());
    }
  }
  static tarn::Point3DDouble normalOf(int i) { return {0.1 + 0.01 * i, 0.2 - 0.02 * i, 0.9 + i}; }

  tarn::Project project;
  std::vector<tarn::ObjectPoint*> points;
  tarn::SurfaceGroup group;
  tarn::Material textured;
  tarn::VPathString brickFile{"brick.png"};
  tarn::VPathString stoneFile{"stone.png"};
  tarn::VDictionary textureDictionary;
  tarn::VDictionary normalsByKey;
  std::deque<SurfaceVertexKey> keys;
  std::deque<tarn::Point3DDouble> normals;
  NodeRef<TarnOITexture> brick = makeNode<TarnOITexture>();
  NodeRef<TarnOITexture> stone = makeNode<TarnOITexture>();
  NodeRef<SoShapeHints> singleSided = makeNode<SoShapeHints>();
  NodeRef<SoShapeHints> doubleSided = makeNode<SoShapeHints>();
  NodeRef<TarnOISurfaceSeparator> node = makeNode<TarnOISurfaceSeparator>();
};
