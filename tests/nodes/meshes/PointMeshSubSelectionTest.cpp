#include "nodes/meshes/TarnOIPointMeshSeparator.h"

// Above: the class. Here: single points and triangles of it.

#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "host/classes/VDictionary.h"
#include "host/classes/VOrdCollect.h"
#include "host/classes/VPathString.h"
#include "host/model/MatrixDouble.h"
#include "host/model/PointMeshTempSubPoints.h"
#include "host/model/PointMeshTempSubTriangles.h"
#include "host/model/Triangle.h"
#include "nodes/framework/TarnOITexture.h"
#include "tests/nodes/meshes/PointMeshFixture.h"

#include <deque>
#include <limits>

using ::testing::Each;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr const char* className = "TarnOIPointMeshSeparator";
const PreferenceRead selectionColor{PreferenceRead::eInt, "SelectionColor", "7", "Colors"};

// A host's own node, which takes no materials in.
class NodeWithoutMaterials : public OpenMeshNode {
public:
  void insertChild(SoNode* child, int index) override {
    if (!child->isOfType(SoMaterial::getClassTypeId())) OpenMeshNode::insertChild(child, index);
  }
};

}  // namespace

/// Selections in a mesh whose material is (10, 20, 30); the selection colour is (192, 192, 192).
class PointMeshSubSelectionTest : public PointMeshFixture {
protected:
  PointMeshSubSelectionTest() {
    setPoints(mesh, points);
    material.SetFixedColor({1, 2, 3}, {10, 20, 30}, {40, 50, 60}, {70, 80, 90}, 0.375);
    mesh.SetMaterial(&material);
    texture->SetFileName(&imageFile, &textureDictionary);
  }
  void TearDown() override {
    takeCoinErrors();  // of the image, which is not there
    node.reset();
    PointMeshFixture::TearDown();
  }

  tarn::VOrdCollect* listed(const std::vector<std::intptr_t>& indexes) {
    auto& list = lists.emplace_back();
    for (const std::intptr_t index : indexes) list.addIndex(index);
    return &list;
  }
  void buildCloud() { node->SetPointCloudPointMesh(&mesh, &dictionary); }
  void buildMesh() {
    setTriangles();
    node->SetTarnObject(&mesh, &dictionary);
    node->SetTriMeshData(&mesh);
  }
  /// Triangle 1 textured, then triangle 0 twice, without texture.
  void buildSurface() {
    setTriangles();
    const tarn::VOrdCollect& triangles = *mesh.GetTriangles();
    uvByTriangle.atKeyPut(triangles.at(1), &uv);
    groupStorage.resize(2);
    groupStorage[0].add(triangles.at(1));
    groupStorage[1].add(triangles.at(0));
    groupStorage[1].add(triangles.at(0));
    for (tarn::VOrdCollect& group : groupStorage) groups.add(&group);
    tarn::VOrdCollect* all = &groups;
    TarnOITexture* textures[] = {texture.get(), nullptr};
    node->SetTriangulatedPointMeshAndTextures(&mesh, &dictionary, hints.get(), hints.get(),
                                              textures, &all, &uvByTriangle);
    ASSERT_THAT(childTypes(*node), ElementsAre("Normal", "Coordinate3", "IndexedFaceSet",
                                               "ShapeHints", "TarnOITexture", "TextureCoordinate2",
                                               "Normal", "Coordinate3", "IndexedFaceSet"));
  }
  SoNode* untexturedFaces() const { return node->triangleLookups->records[1].faceSet.get(); }
  SoNode* texturedFaces() const { return node->triangleLookups->records[0].faceSet.get(); }

  std::vector<SbColor> colours() const {
    return valuesOf(node->subHighlight.material->diffuseColor);
  }
  static std::vector<SbColor> coloursInFront(const SoGroup& group, SoNode* faceSet) {
    auto* front = static_cast<SoMaterial*>(group.getChild(group.findChild(faceSet) - 1));
    return valuesOf(front->diffuseColor);
  }

  const SbColor plain = bytes(10, 20, 30);
  const SbColor selected = bytes(192, 192, 192);
  tarn::Material material;
  std::deque<tarn::VOrdCollect> lists;
  std::deque<tarn::VOrdCollect> groupStorage;
  tarn::VOrdCollect groups;
  tarn::VPathString imageFile{"brick.png"};
  tarn::VDictionary textureDictionary;
  NodeRef<TarnOITexture> texture = makeNode<TarnOITexture>();
  NodeRef<SoShapeHints> hints = makeNode<SoShapeHints>();
  tarn::MatrixDouble uv{3, 2};
  tarn::VDictionary uvByTriangle;
};

// --- The colour

TEST_F(PointMeshSubSelectionTest, TheSubHighlightColourIsStoredInEightBitsEach) {
  node->SetSubHighlightColor(1, 2, 3);
  EXPECT_EQ(node->subHighlightColor.packed(), 0x030201U);
  node->SetSubHighlightColor(0x1FF, -1, 256);
  EXPECT_EQ(node->subHighlightColor.packed(), 0x00FFFFU);
}

// --- Points

TEST_F(PointMeshSubSelectionTest, ListedPointsHaveTheHighlightColourOthersTheMaterials) {
  buildCloud();
  node->HighlightSubPoints(listed({2, 0}));
  EXPECT_THAT(colours(), ElementsAre(selected, plain, selected, plain));
  EXPECT_EQ(node->subHighlight.binding->value.getValue(), SoMaterialBinding::PER_PART);
}

TEST_F(PointMeshSubSelectionTest, PointsWithColoursKeepThemButTheListed) {
  setColouredPoints();
  buildCloud();
  node->HighlightSubPoints(listed({1}));
  EXPECT_THAT(colours(),
              ElementsAre(bytes(2, 1, 0), selected, bytes(62, 41, 20), bytes(92, 61, 30)));
}

TEST_F(PointMeshSubSelectionTest, AMeshWithoutMaterialHasThatOfAllThatHaveNone) {
  mesh.SetMaterial(nullptr);
  buildCloud();
  node->HighlightSubPoints(listed({0}));
  EXPECT_THAT(colours(), ElementsAre(selected, bytes(204, 204, 204), bytes(204, 204, 204),
                                     bytes(204, 204, 204)));
}

TEST_F(PointMeshSubSelectionTest, AnEmptyListPlacesTheNodesWithEveryPointInItsColour) {
  buildCloud();
  node->HighlightSubPoints(listed({}));
  EXPECT_THAT(colours(), ElementsAre(plain, plain, plain, plain));
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "MaterialBinding", "Coordinate3", "PointSet"));
}

TEST_F(PointMeshSubSelectionTest, ANullListIsLikeAnEmptyOne) {
  buildCloud();
  node->HighlightSubPoints(nullptr);
  EXPECT_THAT(colours(), ElementsAre(plain, plain, plain, plain));
}

TEST_F(PointMeshSubSelectionTest, IndexesOutsideArePassedOver) {
  buildCloud();
  node->HighlightSubPoints(
      listed({-1, 4, 1, std::numeric_limits<std::intptr_t>::max(), std::intptr_t{1} << 32}));
  EXPECT_THAT(colours(), ElementsAre(plain, selected, plain, plain));
}

TEST_F(PointMeshSubSelectionTest, AnotherColourIsUsedForLaterPoints) {
  buildCloud();
  node->SetSubHighlightColor(255, 0, 51);
  preferences.takeReads();
  node->HighlightSubPoints(listed({3}));
  EXPECT_THAT(colours(), ElementsAre(plain, plain, plain, bytes(255, 0, 51)));
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(PointMeshSubSelectionTest, WithoutColouringTheNodesStandInFront) {
  mesh.SetLocalAffine(shift(1, 2, 3));
  buildCloud();
  node->HighlightSubPoints(listed({0}));
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "MaterialBinding", "Transform", "Coordinate3", "PointSet"));
  EXPECT_EQ(node->getChild(0), node->subHighlight.material.get());
  EXPECT_EQ(node->getChild(1), node->subHighlight.binding.get());
}

TEST_F(PointMeshSubSelectionTest, TheNodesStandBehindTheColouring) {
  setColouredPoints();
  buildCloud();
  node->ColorPointsWithTexture(1, 1, nullptr);
  node->HighlightSubPoints(listed({0}));
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "MaterialBinding", "Material",
                                             "MaterialBinding", "Coordinate3", "PointSet"));
  EXPECT_EQ(node->getChild(1), node->colorBinding.get());
  EXPECT_EQ(node->getChild(2), node->subHighlight.material.get());
}

TEST_F(PointMeshSubSelectionTest, AColouringThatAHostTookOutCountsAsNone) {
  setColouredPoints();
  buildCloud();
  node->ColorPointsWithTexture(1, 1, nullptr);
  node->removeChild(node->colorBinding.get());
  node->HighlightSubPoints(listed({0}));
  EXPECT_EQ(node->getChild(0), node->subHighlight.material.get());
}

TEST_F(PointMeshSubSelectionTest, HighlightingAgainReusesNodesAndMemory) {
  buildCloud();
  node->HighlightSubPoints(listed({0}));
  const auto before = children(*node);
  const SbColor* memory = node->subHighlight.material->diffuseColor.getValues(0);
  node->HighlightSubPoints(listed({1}));
  EXPECT_EQ(children(*node), before);
  EXPECT_EQ(node->subHighlight.material->diffuseColor.getValues(0), memory);
  EXPECT_THAT(colours(), ElementsAre(plain, selected, plain, plain));
}

TEST_F(PointMeshSubSelectionTest, HighlightingPointsIsSignalledOnce) {
  buildCloud();
  EXPECT_EQ(signalsWhile([this] { node->HighlightSubPoints(listed({0})); }), 1);
  EXPECT_EQ(signalsWhile([this] { node->HighlightSubPoints(listed({1})); }), 1);
  EXPECT_EQ(signalsWhile([this] { node->ClearSubPointHighlights(); }), 1);
}

TEST_F(PointMeshSubSelectionTest, CoordinatesBeyondTheMeshsPointsHaveTheMaterialsColour) {
  setColouredPoints();
  buildCloud();
  mesh.Truncate(1);
  node->HighlightSubPoints(listed({2}));
  EXPECT_THAT(colours(), ElementsAre(bytes(2, 1, 0), plain, selected, plain));
}

TEST_F(PointMeshSubSelectionTest, PointsWithoutCoordinatesAreHighlightedToo) {
  node->SetTarnObject(&mesh, &dictionary);
  node->HighlightSubPoints(listed({2}));
  EXPECT_THAT(colours(), ElementsAre(plain, plain, selected, plain));
}

TEST_F(PointMeshSubSelectionTest, AnUnboundNodeHighlightsNoPoints) {
  node->HighlightSubPoints(listed({2}));
  EXPECT_EQ(node->getNumChildren(), 0);
}

TEST_F(PointMeshSubSelectionTest, ClearingRemovesAndForgetsTheNodes) {
  buildCloud();
  node->HighlightSubPoints(listed({2}));
  node->ClearSubPointHighlights();
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->subHighlight.material);
  EXPECT_FALSE(node->subHighlight.binding);
  node->ClearSubPointHighlights();
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(PointMeshSubSelectionTest, AHighlightOfTheWholeNodeBindsTheSubHighlightOverall) {
  buildCloud();
  node->HighlightSubPoints(listed({2}));
  const auto whole = makeNode<SoMaterial>();
  node->Highlight(whole.get(), 1);
  EXPECT_EQ(node->subHighlight.binding->value.getValue(), SoMaterialBinding::OVERALL);
  node->Highlight(whole.get(), 0);
  EXPECT_EQ(node->subHighlight.binding->value.getValue(), SoMaterialBinding::PER_PART);
}

// --- Triangles

TEST_F(PointMeshSubSelectionTest, ListedTrianglesHaveTheSelectionColourOthersTheMaterials) {
  buildMesh();
  node->HighlightSubTriangles(listed({1}));
  EXPECT_THAT(colours(), ElementsAre(plain, selected));
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "MaterialBinding", "Normal", "Coordinate3",
                                             "IndexedFaceSet"));
  EXPECT_EQ(node->subHighlight.binding->value.getValue(), SoMaterialBinding::PER_PART);
}

TEST_F(PointMeshSubSelectionTest, TheTrianglesMaterialHasTheFixedColours) {
  buildMesh();
  node->HighlightSubTriangles(listed({1}));
  const SoMaterial& shown = *node->subHighlight.material;
  EXPECT_EQ(shown.ambientColor[0], SbColor(0.9F, 0.9F, 0.9F));
  EXPECT_EQ(shown.specularColor[0], bytes(40, 50, 60));
  EXPECT_EQ(shown.emissiveColor[0], bytes(70, 80, 90));
  EXPECT_EQ(shown.shininess[0], 0.375F);
}

TEST_F(PointMeshSubSelectionTest, TrianglesAlwaysHaveThePreferredColourWhichStays) {
  buildMesh();
  node->SetSubHighlightColor(255, 0, 51);
  preferences.Set("SelectionColor", "10020200", "Colors");
  preferences.takeReads();
  node->HighlightSubTriangles(listed({0}));
  EXPECT_THAT(colours(), ElementsAre(bytes(10, 20, 200), plain));
  EXPECT_EQ(node->subHighlightColor.packed(), 0xC8140AU);
  EXPECT_THAT(preferences.takeReads(), ElementsAre(selectionColor));
}

TEST_F(PointMeshSubSelectionTest, TrianglesOutsideAndANullListArePassedOver) {
  buildMesh();
  node->HighlightSubTriangles(listed({-1, 2, 0}));
  EXPECT_THAT(colours(), ElementsAre(selected, plain));
  node->HighlightSubTriangles(nullptr);
  EXPECT_THAT(colours(), ElementsAre(plain, plain));
}

TEST_F(PointMeshSubSelectionTest, ASurfaceOfSeveralTexturesBecomesAPlainMesh) {
  buildSurface();
  node->HighlightSubTriangles(listed({1}));
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "MaterialBinding", "Normal", "Coordinate3",
                                             "IndexedFaceSet"));
  EXPECT_FALSE(node->triangleLookups);
  EXPECT_THAT(colours(), ElementsAre(plain, selected));
  EXPECT_EQ(node->faceSet->coordIndex.getNum(), 8);
}

TEST_F(PointMeshSubSelectionTest, ASurfaceOfOneTextureKeepsIt) {
  setTriangles();
  groupStorage.resize(1);
  for (int i = 0; i < 2; ++i) {
    groupStorage[0].add(mesh.GetTriangles()->at(i));
    uvByTriangle.atKeyPut(mesh.GetTriangles()->at(i), &uv);
  }
  groups.add(&groupStorage[0]);
  tarn::VOrdCollect* all = &groups;
  TarnOITexture* textures[] = {texture.get()};
  node->SetTriangulatedPointMeshAndTextures(&mesh, &dictionary, hints.get(), hints.get(), textures,
                                            &all, &uvByTriangle);
  node->HighlightSubTriangles(listed({1}));
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Material", "MaterialBinding", "ShapeHints", "TarnOITexture",
                          "TextureCoordinate2", "Normal", "Coordinate3", "IndexedFaceSet"));
}

TEST_F(PointMeshSubSelectionTest, HighlightingTrianglesIsSignalledOnce) {
  buildSurface();
  EXPECT_EQ(signalsWhile([this] { node->HighlightSubTriangles(listed({1})); }), 1);
  EXPECT_EQ(signalsWhile([this] { node->HighlightSubTriangles(listed({0})); }), 1);
  EXPECT_EQ(signalsWhile([this] { node->ClearSubTriangleHighlights(); }), 1);
}

TEST_F(PointMeshSubSelectionTest, HighlightingTrianglesOfAnUnboundNodeIsReported) {
  node->HighlightSubTriangles(listed({1}));
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("tarnObject", className, 1254),
                          IsAssertionAt("tarnObject->isA( PointMeshCls )", className, 1255)));
  EXPECT_THAT(colours(), IsEmpty());
}

TEST_F(PointMeshSubSelectionTest, ClearingTrianglesRemovesAndForgetsTheNodes) {
  buildMesh();
  node->HighlightSubTriangles(listed({1}));
  node->ClearSubTriangleHighlights();
  EXPECT_THAT(childTypes(*node), ElementsAre("Normal", "Coordinate3", "IndexedFaceSet"));
  EXPECT_FALSE(node->subHighlight.material);
  EXPECT_FALSE(node->subHighlight.binding);
}

TEST_F(PointMeshSubSelectionTest, ClearingTrianglesWithoutRecordsLeavesOtherMaterials) {
  buildMesh();
  node->insertChild(new SoMaterial, 2);
  node->ClearSubTriangleHighlights();
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Normal", "Coordinate3", "Material", "IndexedFaceSet"));
}

// --- Triangles of a surface of several textures

TEST_F(PointMeshSubSelectionTest, EveryFaceSetGetsAMaterialWithAColourForEachFace) {
  buildSurface();
  node->HighlightSubTrianglesMultiPhotoTexture(listed({1}));
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Normal", "Coordinate3", "MaterialBinding", "Material", "IndexedFaceSet",
                          "ShapeHints", "TarnOITexture", "TextureCoordinate2", "Normal",
                          "Coordinate3", "MaterialBinding", "Material", "IndexedFaceSet"));
  EXPECT_EQ(static_cast<SoMaterialBinding*>(node->getChild(2))->value.getValue(),
            SoMaterialBinding::PER_FACE);
  EXPECT_THAT(coloursInFront(*node, texturedFaces()), ElementsAre(selected));
  EXPECT_THAT(coloursInFront(*node, untexturedFaces()), ElementsAre(plain, plain));
}

TEST_F(PointMeshSubSelectionTest, OfSeveralFacesOfATriangleTheFirstIsHighlighted) {
  buildSurface();
  node->HighlightSubTrianglesMultiPhotoTexture(listed({0, -1, 2, 0}));
  EXPECT_THAT(coloursInFront(*node, texturedFaces()), ElementsAre(plain));
  EXPECT_THAT(coloursInFront(*node, untexturedFaces()), ElementsAre(selected, plain));
}

TEST_F(PointMeshSubSelectionTest, TexturedTrianglesHaveThePreferredColour) {
  buildSurface();
  node->SetSubHighlightColor(255, 0, 51);
  preferences.takeReads();
  node->HighlightSubTrianglesMultiPhotoTexture(listed({1}));
  EXPECT_THAT(coloursInFront(*node, texturedFaces()), ElementsAre(selected));
  EXPECT_THAT(preferences.takeReads(), ElementsAre(selectionColor));
  EXPECT_EQ(node->subHighlightColor.packed(), 0x3300FFU) << "of points, as it was set";
}

TEST_F(PointMeshSubSelectionTest, WithoutRecordsOrAListEveryFaceHasTheMaterialsColour) {
  buildMesh();
  node->HighlightSubTrianglesMultiPhotoTexture(listed({1}));
  EXPECT_THAT(coloursInFront(*node, node->faceSet.get()), ElementsAre(plain, plain));
  node->HighlightSubTrianglesMultiPhotoTexture(nullptr);
  EXPECT_THAT(coloursInFront(*node, node->faceSet.get()), ElementsAre(plain, plain));
}

TEST_F(PointMeshSubSelectionTest, AFaceSetThatAHostTookOutIsReported) {
  buildSurface();
  node->removeChild(texturedFaces());
  node->HighlightSubTrianglesMultiPhotoTexture(listed({1}));
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertionAt("node", className, 967)));
}

TEST_F(PointMeshSubSelectionTest, AFaceSetWithSomethingElseInFrontIsReported) {
  node = NodeRef<OpenMeshNode>(new NodeWithoutMaterials);
  buildSurface();
  node->HighlightSubTrianglesMultiPhotoTexture(listed({1}));
  EXPECT_THAT(
      takeAssertions(),
      ElementsAre(IsAssertionAt("node->isOfType( SoMaterial::getClassTypeId() )", className, 968)));
}

TEST_F(PointMeshSubSelectionTest, HighlightingTexturedTrianglesIsSignalledOnce) {
  buildSurface();
  EXPECT_EQ(signalsWhile([this] {
              node->HighlightSubTrianglesMultiPhotoTexture(listed({0, 1}));
            }),
            1);
}

TEST_F(PointMeshSubSelectionTest, ClearingTrianglesRemovesTheMaterialsOfEveryFaceSet) {
  buildSurface();
  const auto before = children(*node);
  node->HighlightSubTrianglesMultiPhotoTexture(listed({1}));
  node->HighlightSubTrianglesMultiPhotoTexture(listed({0}));
  node->ClearSubTriangleHighlights();
  EXPECT_EQ(children(*node), before);
  EXPECT_TRUE(node->triangleLookups);
}

TEST_F(PointMeshSubSelectionTest, ClearingLeavesAMaterialThatIsTheFirstChildInFrontOfNoFaceSet) {
  buildSurface();
  const auto first = makeNode<SoMaterial>();
  node->insertChild(first.get(), 0);
  node->ClearSubTriangleHighlights();
  EXPECT_EQ(node->getChild(0), first.get());
}

// --- From a face to its triangle

TEST_F(PointMeshSubSelectionTest, AFaceOfAPlainMeshIsItsTriangle) {
  buildMesh();
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(1, node->faceSet.get()), 1);
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(17, nullptr), 17);
}

TEST_F(PointMeshSubSelectionTest, AFaceOfASetIsTracedBackToTheModelsTriangle) {
  buildSurface();
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(0, texturedFaces()), 1);
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(0, untexturedFaces()), 0);
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(1, untexturedFaces()), 0);
}

TEST_F(PointMeshSubSelectionTest, AFaceOfAnotherFaceSetIsItsOwnNumber) {
  buildSurface();
  const auto other = makeNode<SoIndexedFaceSet>();
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(5, other.get()), 5);
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(5, nullptr), 5);
}

TEST_F(PointMeshSubSelectionTest, AFaceThatASetDoesNotHaveIsItsOwnNumber) {
  buildSurface();
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(1, texturedFaces()), 1);
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(7, texturedFaces()), 7);
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(-1, texturedFaces()), -1);
}

TEST_F(PointMeshSubSelectionTest, AFaceWhoseTriangleIsGoneHasNoNumber) {
  buildSurface();
  tarn::Surface emptied;
  SoNode* faces = untexturedFaces();
  node->SetTarnObject(&emptied, &dictionary);
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(0, faces), -1);
  tarn::VOrdCollect others;
  emptied.SetTriangles(&others);
  EXPECT_EQ(node->GetTarnIndexOfSubTriangle(0, faces), -1);
  node.reset();
}

// --- Temporary points

TEST_F(PointMeshSubSelectionTest, TemporaryPointsAreThoseOfTheCloud) {
  buildCloud();
  node->pointPos->point.set1Value(2, 7.0F, 8.0F, 9.0F);
  tarn::PointMeshTempSubPoints selection;
  selection.SetSelectedIndexes(listed({2, 0}));
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubPointsSeparator(target.get(), &selection);
  EXPECT_THAT(childTypes(*target), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_THAT(valuesOf(firstChild<SoCoordinate3>(*target)->point),
              ElementsAre(SbVec3f(7, 8, 9), shown(points[0])));
}

TEST_F(PointMeshSubSelectionTest, TemporaryPointsOfAMeshWithAnAffineStandInTheModel) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  buildCloud();
  tarn::PointMeshTempSubPoints selection;
  selection.SetSelectedIndexes(listed({3, 0}));
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubPointsSeparator(target.get(), &selection);
  EXPECT_THAT(valuesOf(firstChild<SoCoordinate3>(*target)->point),
              ElementsAre(shown({90.5F, 200.5F, 320.0F}), shown({101.5F, 202.25F, 296.25F})));
}

TEST_F(PointMeshSubSelectionTest, TheAffineIsAppliedAlsoWhereTheCloudIsDrawnWithoutIt) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetDoNotUseLocalTransform(1);
  buildCloud();
  tarn::PointMeshTempSubPoints selection;
  selection.SetSelectedIndexes(listed({0}));
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubPointsSeparator(target.get(), &selection);
  EXPECT_THAT(valuesOf(firstChild<SoCoordinate3>(*target)->point),
              ElementsAre(shown({101.5F, 202.25F, 296.25F})));
}

TEST_F(PointMeshSubSelectionTest, AnAffineThatCannotBeSetUpLeavesTemporaryPartsWhereTheMeshIs) {
  tarn::BasicAffine affine;
  affine.SetScale(-1.0);
  mesh.SetLocalAffine(affine);
  setTriangles();
  buildCloud();
  tarn::PointMeshTempSubPoints selectedPoints;
  selectedPoints.SetSelectedIndexes(listed({3}));
  tarn::PointMeshTempSubTriangles selectedTriangles;
  selectedTriangles.SetSelectedIndexes(listed({0}));
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubPointsSeparator(target.get(), &selectedPoints);
  node->AddTempSubTrianglesSeparator(target.get(), &selectedTriangles);
  ASSERT_THAT(childTypes(*target),
              ElementsAre("Coordinate3", "PointSet", "Coordinate3", "PointSet"));
  EXPECT_THAT(valuesOf(static_cast<SoCoordinate3*>(target->getChild(0))->point),
              ElementsAre(shown(points[3])));
  EXPECT_THAT(valuesOf(static_cast<SoCoordinate3*>(target->getChild(2))->point),
              ElementsAre(shown(points[0]), shown(points[1]), shown(points[2])));
}

TEST_F(PointMeshSubSelectionTest, WithoutSelectedPointsNothingIsAdded) {
  buildCloud();
  tarn::PointMeshTempSubPoints selection;
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubPointsSeparator(target.get(), &selection);
  selection.SetSelectedIndexes(listed({}));
  node->AddTempSubPointsSeparator(target.get(), &selection);
  node->AddTempSubPointsSeparator(target.get(), nullptr);
  EXPECT_EQ(target->getNumChildren(), 0);
}

TEST_F(PointMeshSubSelectionTest, TemporaryPointsWithoutTargetOrMeshArePassedOver) {
  tarn::PointMeshTempSubPoints selection;
  selection.SetSelectedIndexes(listed({0}));
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubPointsSeparator(target.get(), &selection);
  EXPECT_EQ(target->getNumChildren(), 0);
  buildCloud();
  node->AddTempSubPointsSeparator(nullptr, &selection);
}

TEST_F(PointMeshSubSelectionTest, TemporaryPointsOutsideArePassedOver) {
  buildCloud();
  tarn::PointMeshTempSubPoints selection;
  selection.SetSelectedIndexes(listed({-1, 4, 3}));
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubPointsSeparator(target.get(), &selection);
  EXPECT_THAT(valuesOf(firstChild<SoCoordinate3>(*target)->point), ElementsAre(shown(points[3])));
  selection.SetSelectedIndexes(listed({4}));
  const auto other = makeNode<SoSeparator>();
  node->AddTempSubPointsSeparator(other.get(), &selection);
  EXPECT_EQ(firstChild<SoCoordinate3>(*other)->point.getNum(), 0);
}

TEST_F(PointMeshSubSelectionTest, TemporaryTrianglesAreTheirCornersAsPoints) {
  buildMesh();
  tarn::PointMeshTempSubTriangles selection;
  selection.SetSelectedIndexes(listed({1, 0}));
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubTrianglesSeparator(target.get(), &selection);
  EXPECT_THAT(childTypes(*target), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_THAT(valuesOf(firstChild<SoCoordinate3>(*target)->point),
              ElementsAre(shown(points[2]), shown(points[1]), shown(points[3]), shown(points[0]),
                          shown(points[1]), shown(points[2])));
}

TEST_F(PointMeshSubSelectionTest, TemporaryTrianglesOfAMeshWithAnAffineStandInTheModel) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  buildMesh();
  tarn::PointMeshTempSubTriangles selection;
  selection.SetSelectedIndexes(listed({0}));
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubTrianglesSeparator(target.get(), &selection);
  EXPECT_EQ(firstChild<SoCoordinate3>(*target)->point[0], shown({101.5F, 202.25F, 296.25F}));
}

TEST_F(PointMeshSubSelectionTest, WithoutSelectedTrianglesNothingIsAdded) {
  buildMesh();
  tarn::PointMeshTempSubTriangles selection;
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubTrianglesSeparator(target.get(), &selection);
  selection.SetSelectedIndexes(listed({}));
  node->AddTempSubTrianglesSeparator(target.get(), &selection);
  node->AddTempSubTrianglesSeparator(target.get(), nullptr);
  EXPECT_EQ(target->getNumChildren(), 0);
  selection.SetSelectedIndexes(listed({0}));
  node->AddTempSubTrianglesSeparator(nullptr, &selection);
}

TEST_F(PointMeshSubSelectionTest, TemporaryTrianglesOutsideArePassedOver) {
  buildMesh();
  tarn::PointMeshTempSubTriangles selection;
  selection.SetSelectedIndexes(listed({-1, 2, std::intptr_t{1} << 32}));
  const auto target = makeNode<SoSeparator>();
  node->AddTempSubTrianglesSeparator(target.get(), &selection);
  EXPECT_EQ(firstChild<SoCoordinate3>(*target)->point.getNum(), 0);
}
