#include "nodes/meshes/TarnOIPointMeshSeparator.h"

// Above: the class. Here: triangle meshes and textured surfaces.

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTextureCoordinate2.h>

#include "host/classes/VDictionary.h"
#include "host/classes/VOrdCollect.h"
#include "host/classes/VPathString.h"
#include "host/model/MatrixDouble.h"
#include "host/model/Triangle.h"
#include "nodes/framework/TarnOITexture.h"
#include "tests/nodes/meshes/PointMeshFixture.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr const char* className = "TarnOIPointMeshSeparator";

// Counts how often it is asked for its sides.
class AskedMesh : public tarn::PointMesh {
public:
  int IsDoubleSided() const override {
    ++asked;
    return tarn::PointMesh::IsDoubleSided();
  }
  mutable int asked = 0;
};

}  // namespace

class PointMeshTrianglesTest : public PointMeshFixture {
protected:
  PointMeshTrianglesTest() {
    setPoints(mesh, points);
    setTriangles();
    texture->SetFileName(&imageFile, &textureDictionary);
    otherTexture->SetFileName(&otherImageFile, &textureDictionary);
    for (int row = 1; row <= 3; ++row) {
      uv(row, 1) = 0.125 * row;
      uv(row, 2) = 0.25 * row - 0.125;
    }
  }
  void TearDown() override {
    takeCoinErrors();  // of the images, which are not there
    node.reset();
    PointMeshFixture::TearDown();
  }

  void buildMesh() {
    node->SetTarnObject(&mesh, &dictionary);
    EXPECT_EQ(node->SetTriMeshData(&mesh), 1);
  }

  /// Triangle i of the mesh becomes the next of a new group.
  void addGroup(const std::vector<int>& indexes) {
    auto& group = groupStorage.emplace_back();
    for (const int i : indexes) group.add(mesh.GetTriangles()->at(i));
    groups.add(&group);
  }
  void giveEveryTriangleItsCorners() {
    for (int i = 0; i < mesh.GetNumTriangles(); ++i) {
      uvByTriangle.atKeyPut(mesh.GetTriangles()->at(i), &uv);
    }
  }
  void buildSurface(std::vector<TarnOITexture*> textures = {}) {
    tarn::VOrdCollect* all = &groups;
    node->SetTriangulatedPointMeshAndTextures(
        &mesh, &dictionary, singleSided.get(), doubleSided.get(),
        textures.empty() ? nullptr : textures.data(), &all, &uvByTriangle);
  }
  SbVec3f corner(int point) const { return shown(points[static_cast<std::size_t>(point)]); }

  tarn::VPathString imageFile{"brick.png"};
  tarn::VPathString otherImageFile{"stone.png"};
  tarn::VDictionary textureDictionary;
  NodeRef<TarnOITexture> texture = makeNode<TarnOITexture>();
  NodeRef<TarnOITexture> otherTexture = makeNode<TarnOITexture>();
  NodeRef<SoShapeHints> singleSided = makeNode<SoShapeHints>();
  NodeRef<SoShapeHints> doubleSided = makeNode<SoShapeHints>();
  std::deque<tarn::VOrdCollect> groupStorage;
  tarn::VOrdCollect groups;
  tarn::MatrixDouble uv{3, 2};
  tarn::VDictionary uvByTriangle;
};

// --- Triangle meshes

TEST_F(PointMeshTrianglesTest, AMeshHasNormalsCoordinatesAndFaces) {
  buildMesh();
  EXPECT_THAT(childTypes(*node), ElementsAre("Normal", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(node->getChild(2), node->faceSet.get());
  EXPECT_FALSE(node->pointPos);
}

TEST_F(PointMeshTrianglesTest, EveryTriangleHasItsOwnCorners) {
  buildMesh();
  EXPECT_THAT(valuesOf(firstChild<SoCoordinate3>(*node)->point),
              ElementsAre(corner(0), corner(1), corner(2), corner(2), corner(1), corner(3)));
  EXPECT_THAT(valuesOf(node->faceSet->coordIndex), ElementsAre(0, 1, 2, -1, 3, 4, 5, -1));
}

TEST_F(PointMeshTrianglesTest, NormalsAreTurnedAndNotOffset) {
  setTriangles(true);
  buildMesh();
  EXPECT_THAT(valuesOf(firstChild<SoNormal>(*node)->vector),
              ElementsAre(SbVec3f(1, 3, -2), SbVec3f(4, 6, -5), SbVec3f(7, 9, -8),
                          SbVec3f(7, 9, -8), SbVec3f(4, 6, -5), SbVec3f(10, 12, -11)));
}

TEST_F(PointMeshTrianglesTest, AMeshWithoutNormalsHasAnEmptyNormalNode) {
  buildMesh();
  EXPECT_EQ(firstChild<SoNormal>(*node)->vector.getNum(), 0);
}

TEST_F(PointMeshTrianglesTest, TrianglesWithoutNormalsLeaveTheListShorter) {
  setTriangles(true);
  auto* second = static_cast<tarn::Triangle*>(mesh.GetTriangles()->at(1));
  for (int k = 0; k < 3; ++k) second->SetNormal(k, nullptr);
  buildMesh();
  EXPECT_EQ(firstChild<SoNormal>(*node)->vector.getNum(), 3);
  EXPECT_EQ(firstChild<SoCoordinate3>(*node)->point.getNum(), 6);
}

TEST_F(PointMeshTrianglesTest, AMeshWithALocalAffineIsDrawnThroughATransform) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  buildMesh();
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Transform", "Normal", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(firstChild<SoCoordinate3>(*node)->point[5], shownAsStored(points[3]));
}

TEST_F(PointMeshTrianglesTest, WithoutUseOfTheAffineCornersAreDrawnAsStored) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetDoNotUseLocalTransform(1);
  buildMesh();
  EXPECT_THAT(childTypes(*node), ElementsAre("Normal", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(firstChild<SoCoordinate3>(*node)->point[5], corner(3));
}

TEST_F(PointMeshTrianglesTest, AMeshIsAskedForItsSidesAndTakesNoHints) {
  AskedMesh asked;
  setPoints(asked, points);
  asked.SetTriangles({{0, 1, 2}});
  asked.SetDoubleSided(1);
  node->SetTriMeshData(&asked);
  EXPECT_EQ(asked.asked, 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Normal", "Coordinate3", "IndexedFaceSet"));
}

TEST_F(PointMeshTrianglesTest, AMeshWithoutTrianglesHasEmptyNodes) {
  mesh.Allocate(0, 0);
  buildMesh();
  EXPECT_THAT(childTypes(*node), ElementsAre("Normal", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(firstChild<SoCoordinate3>(*node)->point.getNum(), 0);
  EXPECT_EQ(node->faceSet->coordIndex.getNum(), 0);
}

TEST_F(PointMeshTrianglesTest, ANullMeshHasEmptyNodesToo) {
  EXPECT_EQ(node->SetTriMeshData(nullptr), 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Normal", "Coordinate3", "IndexedFaceSet"));
}

TEST_F(PointMeshTrianglesTest, AMeshForgetsEverythingOfEarlierChildren) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->colorMaterial = makeNode<SoMaterial>();
  node->colorBinding = makeNode<SoMaterialBinding>();
  node->localTransform = makeNode<SoTransform>();
  node->contourSeparator = makeNode<SoSeparator>();
  node->subHighlight.place(*node, 0);
  node->Highlight(nullptr, 1);
  const auto earlier = makeNode<SoIndexedFaceSet>();
  node->faceSet = earlier;
  node->SetTriMeshData(&mesh);
  EXPECT_FALSE(node->colorMaterial);
  EXPECT_FALSE(node->colorBinding);
  EXPECT_FALSE(node->localTransform);
  EXPECT_FALSE(node->contourSeparator);
  EXPECT_FALSE(node->subHighlight.material);
  EXPECT_FALSE(node->subHighlight.binding);
  EXPECT_FALSE(node->pointPos);
  EXPECT_EQ(node->highlightOn, 0);
  EXPECT_NE(node->faceSet.get(), earlier.get());
}

TEST_F(PointMeshTrianglesTest, ANodeWithoutChildrenKeepsItsMembersButTheFaces) {
  const auto contours = makeNode<SoSeparator>();
  node->contourSeparator = contours;
  node->Highlight(nullptr, 1);
  node->pointPos = makeNode<SoCoordinate3>();
  buildMesh();
  EXPECT_EQ(node->contourSeparator.get(), contours.get());
  EXPECT_EQ(node->highlightOn, 1);
  EXPECT_TRUE(node->pointPos) << "and nothing is reported, unlike when a cloud is built";
}

TEST_F(PointMeshTrianglesTest, ACloudAfterAMeshKeepsTheFaceSetInMind) {
  buildMesh();
  const SoIndexedFaceSet* faces = node->faceSet.get();
  node->SetMeshData(&mesh);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(node->faceSet.get(), faces);
}

TEST_F(PointMeshTrianglesTest, BuildingIsSignalledOnce) {
  node->SetTarnObject(&mesh, &dictionary);
  EXPECT_EQ(signalsWhile([this] { node->SetTriMeshData(&mesh); }), 1);
  EXPECT_EQ(signalsWhile([this] { node->SetTriMeshData(&mesh); }), 1);
  addGroup({0});
  addGroup({1});
  EXPECT_EQ(signalsWhile([this] { buildSurface(); }), 1);
}

// --- Surfaces

TEST_F(PointMeshTrianglesTest, OneUntexturedGroupStandsInFrontOfTheHints) {
  addGroup({0, 1});
  buildSurface();
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Normal", "Coordinate3", "IndexedFaceSet", "ShapeHints"));
  EXPECT_EQ(node->faceSet.get(), node->getChild(2));
  EXPECT_EQ(firstChild<SoCoordinate3>(*node)->point[5], corner(3));
}

TEST_F(PointMeshTrianglesTest, ASurfaceBindsTheNode) {
  addGroup({0, 1});
  buildSurface();
  EXPECT_EQ(node->GetTarnObject(), &mesh);
  EXPECT_EQ(dictionary.atKey(&mesh), static_cast<SoNode*>(node.get()));
}

TEST_F(PointMeshTrianglesTest, TheHintsGoByTheSurfacesSides) {
  addGroup({0, 1});
  buildSurface();
  EXPECT_EQ(node->getChild(3), singleSided.get());
  mesh.SetDoubleSided(1);
  buildSurface();
  EXPECT_EQ(node->getChild(3), doubleSided.get());
}

TEST_F(PointMeshTrianglesTest, NullHintsAreLeftOut) {
  addGroup({0, 1});
  singleSided.reset();
  buildSurface();
  EXPECT_THAT(childTypes(*node), ElementsAre("Normal", "Coordinate3", "IndexedFaceSet"));
}

TEST_F(PointMeshTrianglesTest, TexturedGroupsFollowTheHintsInOrder) {
  addGroup({1});
  addGroup({0});
  giveEveryTriangleItsCorners();
  buildSurface({texture.get(), otherTexture.get()});
  EXPECT_THAT(childTypes(*node),
              ElementsAre("ShapeHints", "TarnOITexture", "TextureCoordinate2", "Normal",
                          "Coordinate3", "IndexedFaceSet", "TarnOITexture", "TextureCoordinate2",
                          "Normal", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(node->getChild(1), texture.get());
  EXPECT_EQ(node->getChild(6), otherTexture.get());
  EXPECT_EQ(static_cast<SoCoordinate3*>(node->getChild(4))->point[2], corner(3));
  EXPECT_EQ(static_cast<SoCoordinate3*>(node->getChild(9))->point[2], corner(2));
  EXPECT_EQ(node->faceSet.get(), node->getChild(10));
}

TEST_F(PointMeshTrianglesTest, UntexturedGroupsStandInFrontTheLastOneFirst) {
  addGroup({0});
  addGroup({1});
  addGroup({0, 1});
  giveEveryTriangleItsCorners();
  buildSurface({nullptr, texture.get(), nullptr});
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Normal", "Coordinate3", "IndexedFaceSet", "Normal", "Coordinate3",
                          "IndexedFaceSet", "ShapeHints", "TarnOITexture", "TextureCoordinate2",
                          "Normal", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(static_cast<SoCoordinate3*>(node->getChild(1))->point.getNum(), 6);
  EXPECT_EQ(static_cast<SoCoordinate3*>(node->getChild(4))->point.getNum(), 3);
  EXPECT_EQ(node->faceSet.get(), node->getChild(2));
}

TEST_F(PointMeshTrianglesTest, TheTransformStandsInFrontOfAll) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  addGroup({0, 1});
  giveEveryTriangleItsCorners();
  buildSurface({texture.get()});
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Transform", "ShapeHints", "TarnOITexture", "TextureCoordinate2",
                          "Normal", "Coordinate3", "IndexedFaceSet"));
  buildSurface();
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Transform", "Normal", "Coordinate3", "IndexedFaceSet", "ShapeHints"));
  EXPECT_EQ(firstChild<SoCoordinate3>(*node)->point[5], shownAsStored(points[3]));
}

TEST_F(PointMeshTrianglesTest, TheSecondTextureCoordinateCountsFromTheOtherSide) {
  addGroup({0, 1});
  giveEveryTriangleItsCorners();
  buildSurface({texture.get()});
  const SoMFVec2f& field = firstChild<SoTextureCoordinate2>(*node)->point;
  const SbVec2f first(0.125F, 0.875F);
  const SbVec2f second(0.25F, 0.625F);
  const SbVec2f third(0.375F, 0.375F);
  EXPECT_THAT(std::vector<SbVec2f>(field.getValues(0), field.getValues(0) + field.getNum()),
              ElementsAre(first, second, third, first, second, third));
}

TEST_F(PointMeshTrianglesTest, ATexturedTriangleWithoutCornersIsReported) {
  addGroup({0, 1});
  uvByTriangle.atKeyPut(mesh.GetTriangles()->at(1), &uv);
  buildSurface({texture.get()});
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertionAt("uvMatrix", className, 1175)));
  const SoMFVec2f& field = firstChild<SoTextureCoordinate2>(*node)->point;
  EXPECT_EQ(field[0], SbVec2f(0.0F, 0.0F));
  EXPECT_EQ(field[3], SbVec2f(0.125F, 0.875F));
  EXPECT_EQ(firstChild<SoCoordinate3>(*node)->point.getNum(), 6);
}

TEST_F(PointMeshTrianglesTest, AMissingDictionaryIsReportedForEveryTexturedTriangle) {
  addGroup({0, 1});
  tarn::VOrdCollect* all = &groups;
  TarnOITexture* textures[] = {texture.get()};
  node->SetTriangulatedPointMeshAndTextures(&mesh, &dictionary, nullptr, nullptr, textures, &all,
                                            nullptr);
  EXPECT_EQ(takeAssertions().size(), 2U);
}

TEST_F(PointMeshTrianglesTest, WithoutTexturesTheCornersAreNotAskedFor) {
  addGroup({0, 1});
  buildSurface({nullptr});
  EXPECT_THAT(takeAssertions(), IsEmpty());
  EXPECT_FALSE(firstChild<SoTextureCoordinate2>(*node));
}

TEST_F(PointMeshTrianglesTest, ASurfaceWithoutGroupsHasItsHintsOnly) {
  buildSurface();
  EXPECT_THAT(childTypes(*node), ElementsAre("ShapeHints"));
  node->SetTriangulatedPointMeshAndTextures(&mesh, &dictionary, singleSided.get(), nullptr, nullptr,
                                            nullptr, nullptr);
  EXPECT_THAT(childTypes(*node), ElementsAre("ShapeHints"));
  EXPECT_FALSE(node->faceSet);
}

TEST_F(PointMeshTrianglesTest, ANullGroupHasNoTriangles) {
  groups.add(nullptr);
  buildSurface();
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Normal", "Coordinate3", "IndexedFaceSet", "ShapeHints"));
  EXPECT_EQ(node->faceSet->coordIndex.getNum(), 0);
}

TEST_F(PointMeshTrianglesTest, ANullSurfaceUnbindsAndKeepsTheChildren) {
  addGroup({0, 1});
  buildSurface();
  const auto before = children(*node);
  tarn::VOrdCollect* all = &groups;
  node->SetTriangulatedPointMeshAndTextures(nullptr, &dictionary, singleSided.get(), nullptr,
                                            nullptr, &all, nullptr);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(children(*node), before);
}

TEST_F(PointMeshTrianglesTest, ASurfaceForgetsEverythingOfEarlierChildren) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->colorMaterial = makeNode<SoMaterial>();
  node->contourSeparator = makeNode<SoSeparator>();
  node->Highlight(nullptr, 1);
  addGroup({0, 1});
  buildSurface();
  EXPECT_FALSE(node->pointPos);
  EXPECT_FALSE(node->colorMaterial);
  EXPECT_FALSE(node->contourSeparator);
  EXPECT_EQ(node->highlightOn, 0);
}

TEST_F(PointMeshTrianglesTest, BuildingASurfaceAgainDropsEveryChild) {
  addGroup({0, 1});
  buildSurface();
  node->addChild(new SoCube);
  buildSurface();
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Normal", "Coordinate3", "IndexedFaceSet", "ShapeHints"));
}

TEST_F(PointMeshTrianglesTest, ASurfaceThatIsNoPointMeshIsDrawnToo) {
  tarn::Surface surface;
  surface.SetTriangles(mesh.GetTriangles());
  addGroup({0, 1});
  tarn::VOrdCollect* all = &groups;
  node->SetTriangulatedPointMeshAndTextures(&surface, &dictionary, singleSided.get(), nullptr,
                                            nullptr, &all, nullptr);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Normal", "Coordinate3", "IndexedFaceSet", "ShapeHints"));
  node.reset();
}

// --- Records of the faces' triangles

TEST_F(PointMeshTrianglesTest, OneGroupHasNoRecords) {
  addGroup({0, 1});
  buildSurface();
  EXPECT_FALSE(node->triangleLookups);
}

TEST_F(PointMeshTrianglesTest, SeveralGroupsHaveARecordEachInTheirOrder) {
  addGroup({1});
  addGroup({0, 1});
  giveEveryTriangleItsCorners();
  buildSurface({texture.get(), nullptr});
  ASSERT_TRUE(node->triangleLookups);
  const auto& records = node->triangleLookups->records;
  ASSERT_EQ(records.size(), 2U);
  const tarn::VOrdCollect& triangles = *mesh.GetTriangles();
  EXPECT_EQ(records[0].faceSet.get(), node->getChild(8));
  EXPECT_THAT(records[0].triangles, ElementsAre(triangles.at(1)));
  EXPECT_EQ(records[1].faceSet.get(), node->getChild(2));
  EXPECT_THAT(records[1].triangles, ElementsAre(triangles.at(0), triangles.at(1)));
}

TEST_F(PointMeshTrianglesTest, RecordsGoWithTheGroups) {
  addGroup({0});
  addGroup({1});
  buildSurface();
  buildSurface();
  EXPECT_EQ(node->triangleLookups->records.size(), 2U);
  groups.clear();
  addGroup({0, 1});
  buildSurface();
  EXPECT_FALSE(node->triangleLookups);
}

TEST_F(PointMeshTrianglesTest, ATriangleMeshDropsTheRecords) {
  addGroup({0});
  addGroup({1});
  buildSurface();
  node->SetTriMeshData(&mesh);
  EXPECT_FALSE(node->triangleLookups);
}

TEST_F(PointMeshTrianglesTest, ACloudKeepsTheRecords) {
  addGroup({0});
  addGroup({1});
  buildSurface();
  node->SetMeshData(&mesh);
  EXPECT_TRUE(node->triangleLookups);
}

TEST_F(PointMeshTrianglesTest, TheRecordsOfACopyHaveItsOwnFaceSets) {
  addGroup({0});
  addGroup({1});
  buildSurface();
  const NodeRef<TarnOIPointMeshSeparator> copy(
      static_cast<TarnOIPointMeshSeparator*>(node->copy()));
  const auto members = makeNode<OpenMeshNode>(*copy);
  ASSERT_EQ(members->triangleLookups->records.size(), 2U);
  EXPECT_EQ(members->triangleLookups->records[1].faceSet.get(), copy->getChild(2));
  EXPECT_EQ(members->faceSet.get(), copy->getChild(2));
  EXPECT_EQ(node->triangleLookups->records[1].faceSet.get(), node->getChild(2));
}

TEST_F(PointMeshTrianglesTest, ACopyHasRoomForTheNormalsThatItLacks) {
  constexpr int many = 100000;
  ASSERT_TRUE(mesh.SetTriangles(std::vector<tarn::PointMesh::Corners>(many, {0, 1, 2})));
  const tarn::Point3DDouble up{0, 0, 1};
  for (int k = 0; k < 3; ++k) {
    static_cast<tarn::Triangle*>(mesh.GetTriangles()->at(0))->SetNormal(k, &up);
  }
  buildMesh();
  const NodeRef<SoGroup> copy(static_cast<SoGroup*>(node->copy()));
  const SoMFVec3f& normals = firstChild<SoNormal>(*copy)->vector;
  EXPECT_THAT(valuesOf(normals), ElementsAre(SbVec3f(0, 1, 0), SbVec3f(0, 1, 0), SbVec3f(0, 1, 0)));
  EXPECT_EQ(normals.getValues(0)[3 * many - 1], SbVec3f(0, 0, 0)) << "which Coin reads";
}

TEST_F(PointMeshTrianglesTest, RecordsOutliveTheNodeTheyAreSharedWith) {
  addGroup({0});
  addGroup({1});
  buildSurface();
  const auto sharing = makeNode<OpenMeshNode>(*node);
  node.reset();
  ASSERT_EQ(sharing->triangleLookups->records.size(), 2U);
  EXPECT_EQ(sharing->triangleLookups->records[0].faceSet->coordIndex.getNum(), 4);
}
