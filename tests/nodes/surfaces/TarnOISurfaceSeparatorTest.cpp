#include "nodes/surfaces/TarnOISurfaceSeparator.h"

#include <Inventor/nodes/SoMaterial.h>

#include "host/model/ObjectName.h"
#include "tests/nodes/surfaces/SurfaceGroupFixture.h"
#include "tests/support/SignalCount.h"

#include <algorithm>
#include <memory>
#include <utility>

using ::testing::ElementsAre;
using ::testing::Field;
using ::testing::IsEmpty;

namespace {

/// The node with its members open.
class OpenSurfaceNode : public TarnOISurfaceSeparator {
public:
  OpenSurfaceNode() = default;
  explicit OpenSurfaceNode(const TarnOISurfaceSeparator& other) : TarnOISurfaceSeparator(other) {}
  using TarnOISurfaceSeparator::normalNode;
  using TarnOISurfaceSeparator::searchDict;
  using TarnOISurfaceSeparator::texture;
};

/// A group of a host that answers for its vertices and triangles itself.
class HostGroup : public tarn::SurfaceGroup {
public:
  tarn::VOrdCollect* GetSelsCollection(int selection) override {
    selections.push_back(selection);
    return triangles;
  }
  tarn::VOrdCollect* GetVertices(tarn::Project* project) override {
    projects.push_back(project);
    return vertices ? new tarn::VOrdCollect(*vertices) : nullptr;
  }
  tarn::VOrdCollect* triangles = nullptr;
  const tarn::VOrdCollect* vertices = nullptr;
  std::vector<int> selections;
  std::vector<const tarn::Project*> projects;
};

}  // namespace

class TarnOISurfaceSeparatorTest : public SurfaceGroupFixture {
protected:
  ~TarnOISurfaceSeparatorTest() override { node.reset(); }  // ahead of what it may show

  /// A group of the host's own, with the fixture's elements but these vertices.
  HostGroup& hostGroup(std::initializer_list<int> vertices) {
    for (const int i : vertices) listed.add(points[static_cast<std::size_t>(i)]);
    ofHost.triangles = group.GetSelsCollection(0);
    ofHost.vertices = &listed;
    return ofHost;
  }
  void setHost() {
    node->SetSurface(&ofHost, &dictionary, &project, singleSided.get(), doubleSided.get());
  }
  tarn::VOrdCollect listed;
  HostGroup ofHost;
};

// Building.

TEST_F(TarnOISurfaceSeparatorTest, ANewNodeIsEmpty) {
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_EQ(node->GetTexture(), nullptr);
  EXPECT_FALSE(makeNode<OpenSurfaceNode>(*node)->normalNode);
}

TEST_F(TarnOISurfaceSeparatorTest, BuildsHintsCoordinatesAndFaces) {
  addQuadrangle();
  set();
  EXPECT_THAT(childTypes(*node), ElementsAre("ShapeHints", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(node->getChild(0), singleSided.get());
}

TEST_F(TarnOISurfaceSeparatorTest, BindsTheGroup) {
  addQuadrangle();
  set();
  EXPECT_EQ(node->GetTarnObject(), &group);
  EXPECT_EQ(dictionary.atKey(&group), node.get());
}

TEST_F(TarnOISurfaceSeparatorTest, EachSettingIsMarkedAndThenGoesOn) {
  addQuadrangle();
  setWith(singleSided.get(), nullptr);
  setWith(singleSided.get(), nullptr);
  node->SetSurface(nullptr, &dictionary, &project, nullptr, nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(mark(), mark(), mark()));
  EXPECT_EQ(shownVertices().size(), 4U);
}

TEST_F(TarnOISurfaceSeparatorTest, NullOnlyUnbinds) {
  addQuadrangle();
  set();
  node->SetSurface(nullptr, &dictionary, &project, nullptr, nullptr);
  takeAssertions();
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.size(), 0);
  EXPECT_EQ(node->getNumChildren(), 3);
}

TEST_F(TarnOISurfaceSeparatorTest, EachVertexIsShownOnceInTheViewerFrame) {
  addQuadrangle();
  set();
  EXPECT_THAT(shownVertices(),
              ElementsAre(shownPoint(0), shownPoint(1), shownPoint(3), shownPoint(2)));
  EXPECT_EQ(shownVertices()[1], SbVec3f(-5.75F, -29.5F, -22.5F));
}

TEST_F(TarnOISurfaceSeparatorTest, PositionsAreSubtractedAsDoublesAndThenNarrowed) {
  tarn::gThreeDViewOffset = {1e8 + 1.0 / 3, -2e8 + 1.0 / 7, 3e8 + 1.0 / 9};
  addTriangle(0, 1, 2);
  points[0]->SetApproximation(tarn::Point3DRandom({1e8 + 1.7, -2e8 + 2.3, 3e8 + 3.1}));
  set();
  const tarn::Point3DDouble offset = tarn::gThreeDViewOffset;
  EXPECT_EQ(shownVertices()[0], SbVec3f(static_cast<float>(1e8 + 1.7 - offset.x),
                                        static_cast<float>(3e8 + 3.1 - offset.z),
                                        static_cast<float>(-(-2e8 + 2.3 - offset.y))));
}

TEST_F(TarnOISurfaceSeparatorTest, TrianglesReferToTheirVerticesInTheOrderOfTheirCorners) {
  addTriangle(2, 0, 1);
  addTriangle(1, 3, 2);
  addTriangle(3, 1, 2);
  set();
  EXPECT_THAT(shownVertices(),
              ElementsAre(shownPoint(2), shownPoint(0), shownPoint(1), shownPoint(3)));
  EXPECT_THAT(indexes(), ElementsAre(0, 1, 2, -1, 2, 3, 0, -1, 3, 2, 0, -1));
}

TEST_F(TarnOISurfaceSeparatorTest, NormalsAndTexturesGoByTheIndexesOfTheVertices) {
  addQuadrangle();
  set();
  const auto& faces = childOf<SoIndexedFaceSet>(*node);
  EXPECT_THAT(valuesOf(faces.normalIndex), ElementsAre(-1)) << "Coin's default: none of its own";
  EXPECT_THAT(valuesOf(faces.textureCoordIndex), ElementsAre(-1));
  EXPECT_TRUE(faces.normalIndex.isDefault());
  EXPECT_TRUE(faces.textureCoordIndex.isDefault());
}

TEST_F(TarnOISurfaceSeparatorTest, AGroupWithoutTrianglesHasEmptyNodes) {
  set();
  EXPECT_THAT(childTypes(*node), ElementsAre("ShapeHints", "Coordinate3", "IndexedFaceSet"));
  EXPECT_THAT(shownVertices(), IsEmpty());
  EXPECT_THAT(indexes(), IsEmpty());
}

TEST_F(TarnOISurfaceSeparatorTest, AsksForSelectionZeroAndForTheVerticesOfTheProject) {
  hostGroup({0});
  setHost();
  EXPECT_THAT(takeAssertions(), ElementsAre(mark()));
  EXPECT_THAT(ofHost.selections, ElementsAre(0));
  EXPECT_THAT(ofHost.projects, ElementsAre(&project));

  ofHost.SetMaterial(&textured);
  ofHost.selections.clear();
  setHost();
  EXPECT_THAT(takeAssertions(), ElementsAre(mark()));
  EXPECT_THAT(ofHost.selections, ElementsAre(0, 0)) << "for the photograph and for the indexes";
}

TEST_F(TarnOISurfaceSeparatorTest, ACornerThatIsNoVertexGetsTheIndexOfOneThatIsNotFound) {
  addQuadrangle();
  hostGroup({3, 0});
  setHost();
  takeAssertions();
  EXPECT_THAT(shownVertices(), ElementsAre(shownPoint(3), shownPoint(0)));
  EXPECT_THAT(indexes(), ElementsAre(1, -1, 0, -1, 1, 0, -1, -1));
}

TEST_F(TarnOISurfaceSeparatorTest, ACornerWithoutPointGetsTheSameIndex) {
  group.AddElement(points[1], nullptr, points[2]);
  set();
  EXPECT_THAT(indexes(), ElementsAre(0, -1, 1, -1));
}

TEST_F(TarnOISurfaceSeparatorTest, AVertexThatIsListedTwiceIsFoundAtItsFirstPlace) {
  addTriangle(0, 1, 2);
  hostGroup({2, 0, 2, 1});
  setHost();
  takeAssertions();
  EXPECT_EQ(shownVertices().size(), 4U);
  EXPECT_THAT(indexes(), ElementsAre(1, 3, 0, -1));
}

// What the group knows of its triangles is not asked then.
TEST_F(TarnOISurfaceSeparatorTest, ATriangleThatTheHostListedItselfIsShownToo) {
  addTriangle(0, 1, 2);
  tarn::SurfaceElement more(points[2], points[3], points[0]);
  group.GetSelsCollection(0)->add(&more);
  set();
  EXPECT_THAT(indexes(), ElementsAre(0, 1, 2, -1, 2, -1, 0, -1));
}

TEST_F(TarnOISurfaceSeparatorTest, AGroupOfTheHostsOwnClassIsShownAlike) {
  addQuadrangle();
  addTriangle(3, 1, 2);
  set();
  const std::vector<std::int32_t> expected = indexes();
  hostGroup({0, 1, 3, 2});
  setHost();
  takeAssertions();
  EXPECT_EQ(indexes(), expected);
}

TEST_F(TarnOISurfaceSeparatorTest, AGroupThatAnswersNothingHasEmptyNodes) {
  setHost();
  EXPECT_THAT(takeAssertions(), ElementsAre(mark()));
  EXPECT_THAT(shownVertices(), IsEmpty());
  EXPECT_THAT(indexes(), IsEmpty());
}

TEST_F(TarnOISurfaceSeparatorTest, AVertexWithoutPositionIsReportedAndStaysAtTheOneBefore) {
  tarn::ObjectPoint nowhere;
  group.AddElement(&nowhere, points[1], points[2]);
  group.AddElement(points[1], points[2], &project.AddObjectPoint());
  setWith(singleSided.get(), nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(mark(), report("tdp->GetApproximation( pos )", 217),
                                            report("tdp->GetApproximation( pos )", 217)));
  EXPECT_THAT(shownVertices(), ElementsAre(shown({}), shownPoint(1), shownPoint(2), shownPoint(2)));
}

TEST_F(TarnOISurfaceSeparatorTest, AVertexThatIsNullIsReportedAsWithoutPosition) {
  addTriangle(0, 1, 2);
  hostGroup({0});
  listed.add(nullptr);
  setHost();
  EXPECT_THAT(takeAssertions(), ElementsAre(mark(), report("tdp->GetApproximation( pos )", 217)));
  EXPECT_THAT(indexes(), ElementsAre(0, -1, -1, -1));
}

// Building again.

TEST_F(TarnOISurfaceSeparatorTest, ASecondSettingKeepsTheNodesAndResizesThem) {
  addTriangle(0, 1, 2);
  set();
  const std::vector<SoNode*> before = children(*node);
  addTriangle(2, 1, 3);
  points[1]->SetApproximation(tarn::Point3DRandom({7, 8, 9}));
  set();
  EXPECT_EQ(children(*node), before);
  EXPECT_THAT(shownVertices(),
              ElementsAre(shownPoint(0), shown({7, 8, 9}), shownPoint(2), shownPoint(3)));
  EXPECT_THAT(indexes(), ElementsAre(0, 1, 2, -1, 2, 1, 3, -1));
}

TEST_F(TarnOISurfaceSeparatorTest, FewerVerticesAndTrianglesLeaveNoneBehind) {
  addQuadrangle();
  set();
  tarn::SurfaceGroup& smaller = project.AddSurfaceGroup();
  smaller.AddElement(points[2], points[1], points[0]);
  node->SetSurface(&smaller, &dictionary, &project, nullptr, nullptr);
  takeAssertions();
  EXPECT_EQ(dictionary.atKey(&group), nullptr);
  EXPECT_EQ(dictionary.atKey(&smaller), node.get());
  EXPECT_THAT(shownVertices(), ElementsAre(shownPoint(2), shownPoint(1), shownPoint(0)));
  EXPECT_THAT(indexes(), ElementsAre(0, 1, 2, -1));
}

TEST_F(TarnOISurfaceSeparatorTest, TheIndexesAreSignalledOnce) {
  for (int i = 0; i < 100; ++i) addQuadrangle();
  set();
  const SignalCount ofFaces(&childOf<SoIndexedFaceSet>(*node));
  const SignalCount ofCoordinates(&childOf<SoCoordinate3>(*node));
  addTriangle(1, 2, 3);
  set();
  EXPECT_EQ(ofFaces.count(), 1);
  EXPECT_EQ(ofCoordinates.count(), 1);
  EXPECT_TRUE(childOf<SoIndexedFaceSet>(*node).coordIndex.isNotifyEnabled());
}

TEST_F(TarnOISurfaceSeparatorTest, ChangesOfASettingReachWhatStandsAbove) {
  addQuadrangle();
  const auto root = makeNode<SoSeparator>();
  root->addChild(node.get());
  const SignalCount signals(root.get());
  set();
  EXPECT_EQ(signals.count(), 1);
}

TEST_F(TarnOISurfaceSeparatorTest, WithoutCoordinatesOrFacesItIsReportedAndTheOthersAreSet) {
  addQuadrangle();
  set();
  node->removeChild(1);
  group.AddElement(points[0], points[1], points[2]);
  setWith(nullptr, nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(mark(), report("coords && faceSet", 152)));
  EXPECT_EQ(indexes().size(), 12U);
  EXPECT_THAT(childTypes(*node), ElementsAre("ShapeHints", "IndexedFaceSet"));

  node->removeAllChildren();
  const auto coordinates = makeNode<SoCoordinate3>();
  node->addChild(coordinates.get());
  setWith(nullptr, nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(mark(), report("coords && faceSet", 152)));
  EXPECT_EQ(shownVertices().size(), 4U);
}

TEST_F(TarnOISurfaceSeparatorTest, ATextureBeforeTheFirstSettingCountsAsChildrenOfBefore) {
  addQuadrangle();
  node->SetTexture(brick.get(), nullptr);
  setWith(singleSided.get(), nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(mark(), report("coords && faceSet", 152)));
  EXPECT_THAT(childTypes(*node), ElementsAre("TarnOITexture"));
}

TEST_F(TarnOISurfaceSeparatorTest, TheLastChildOfEachKindIsTheSurfaces) {
  addQuadrangle();
  group.SetMaterial(&textured);
  addPhotograph(20);
  set();
  const std::vector<SoNode*> own = children(*node);
  const auto hints = makeNode<SoShapeHints>();
  for (SoNode* other : std::initializer_list<SoNode*>{new SoIndexedFaceSet, new SoCoordinate3,
                                                      new SoTextureCoordinate2, hints.get()}) {
    node->insertChild(other, 0);
  }
  group.SetDoubleSided(1);
  addTriangle(1, 2, 3);
  set();
  EXPECT_EQ(node->getChild(0), hints.get());
  EXPECT_EQ(node->getChild(4), doubleSided.get());
  EXPECT_EQ(static_cast<SoTextureCoordinate2*>(node->getChild(1))->point.getNum(), 0);
  EXPECT_EQ(static_cast<SoCoordinate3*>(node->getChild(2))->point.getNum(), 1) << "Coin's default";
  EXPECT_EQ(static_cast<SoIndexedFaceSet*>(own[3])->coordIndex.getNum(), 12);

  node->addChild(new SoCoordinate3);
  node->addChild(new SoIndexedFaceSet);
  set();
  EXPECT_EQ(static_cast<SoCoordinate3*>(node->getChild(8))->point.getNum(), 4);
  EXPECT_EQ(static_cast<SoIndexedFaceSet*>(node->getChild(9))->coordIndex.getNum(), 12);
}

// Hints.

TEST_F(TarnOISurfaceSeparatorTest, ADoubleSidedGroupGetsTheOtherHints) {
  group.SetDoubleSided(1);
  addQuadrangle();
  set();
  EXPECT_EQ(node->getChild(0), doubleSided.get());
}

TEST_F(TarnOISurfaceSeparatorTest, HintsAreReplacedWhereTheyStand) {
  addQuadrangle();
  set();
  node->SetTexture(brick.get(), nullptr);
  group.SetDoubleSided(1);
  set();
  EXPECT_THAT(childTypes(*node),
              ElementsAre("TarnOITexture", "ShapeHints", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(node->getChild(1), doubleSided.get());
  group.SetDoubleSided(0);
  set();
  EXPECT_EQ(node->getChild(1), singleSided.get());
}

TEST_F(TarnOISurfaceSeparatorTest, NullHintsReplaceNothing) {
  addQuadrangle();
  set();
  group.SetDoubleSided(1);
  setWith(singleSided.get(), nullptr);
  takeAssertions();
  EXPECT_EQ(node->getChild(0), singleSided.get());
}

TEST_F(TarnOISurfaceSeparatorTest, ANodeBuiltWithoutHintsGetsNoneLater) {
  addQuadrangle();
  setWith(nullptr, nullptr);
  takeAssertions();
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "IndexedFaceSet"));
  set();
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "IndexedFaceSet"));
}

// The best photograph and its texture coordinates.

TEST_F(TarnOISurfaceSeparatorTest, ATexturedGroupGetsTextureCoordinatesBeforeItsCoordinates) {
  group.SetMaterial(&textured);
  addPhotograph(20);
  addQuadrangle();
  set();
  EXPECT_THAT(childTypes(*node),
              ElementsAre("ShapeHints", "TextureCoordinate2", "Coordinate3", "IndexedFaceSet"));
  EXPECT_THAT(texturePlaces(), ElementsAre(textureOf(pixelOf(0, 20)), textureOf(pixelOf(1, 20)),
                                           textureOf(pixelOf(3, 20)), textureOf(pixelOf(2, 20))));
}

TEST_F(TarnOISurfaceSeparatorTest, AMarkOnThePhotographTellsThePlaceBeforeItsProjection) {
  group.SetMaterial(&textured);
  tarn::Photograph& photograph = addPhotograph(20);
  points[1]->AddMarkedPoint(&photograph.AddMarkedPoint({123.5, 77.25}));
  addQuadrangle();
  set();
  EXPECT_EQ(texturePlaces()[0], textureOf(pixelOf(0, 20)));
  EXPECT_EQ(texturePlaces()[1], SbVec2f(0.1235F, 1.0F - 0.1545F));
}

TEST_F(TarnOISurfaceSeparatorTest, TheSecondTextureCoordinateIsOneLessTheFloatOfTheProduct) {
  group.SetMaterial(&textured);
  tarn::Photograph& photograph = addPhotograph(20);
  addTriangle(0, 1, 2);
  int differing = 0;
  for (int i = 0; i < 3; ++i) {
    points[static_cast<std::size_t>(i)]->AddMarkedPoint(
        &photograph.AddMarkedPoint({10.0 + i, 400.3 + 17.7 * i}));
  }
  set();
  for (int i = 0; i < 3; ++i) {
    const double product = 1.0 / 500 * (400.3 + 17.7 * i);
    EXPECT_EQ(texturePlaces()[static_cast<std::size_t>(i)][1], 1.0F - static_cast<float>(product));
    differing += 1.0F - static_cast<float>(product) != static_cast<float>(1.0 - product);
  }
  EXPECT_GT(differing, 0) << "else the test cannot tell the two";
}

TEST_F(TarnOISurfaceSeparatorTest, OnePhotographServesTheWholeGroupTheBestOfItsFirstTriangle) {
  group.SetMaterial(&textured);
  tarn::Photograph& far = addPhotograph(40);
  addPhotograph(20);
  // A point that only the farther photograph shows.
  points[1]->SetApproximation(tarn::Point3DRandom({14.5, 2.5, 0.25}));
  addTriangle(0, 1, 2);
  addTriangle(0, 3, 2);
  set();
  EXPECT_EQ(texturePlaces()[2], textureOf(pixelOf(2, 40)));
  EXPECT_EQ(texturePlaces()[3], textureOf(pixelOf(3, 40)));
  tarn::Point2DDouble pixel;
  ASSERT_TRUE(points[3]->BestProjectionOnto(&far, pixel));

  tarn::SurfaceGroup& other = project.AddSurfaceGroup();
  other.SetMaterial(&textured);
  other.AddElement(points[0], points[3], points[2]);
  node->SetSurface(&other, &dictionary, &project, nullptr, nullptr);
  takeAssertions();
  EXPECT_EQ(texturePlaces()[1], textureOf(pixelOf(3, 20)))
      << "of the nearer, which shows all of it";
}

TEST_F(TarnOISurfaceSeparatorTest, OnlyPhotoTexturesAskForAPhotograph) {
  addPhotograph(20);
  addQuadrangle();
  set();
  EXPECT_EQ(countOf<SoTextureCoordinate2>(), 0) << "the default material is not textured";
  for (const int type : {0, 2, 3, -1}) {
    textured.SetDiffuseType(type);
    group.SetMaterial(&textured);
    set();
    EXPECT_EQ(countOf<SoTextureCoordinate2>(), 0) << type;
  }
}

TEST_F(TarnOISurfaceSeparatorTest, AGroupWithoutMaterialHasTheDefaultOne) {
  const int before = tarn::Material::gDefault->GetDiffuseType();
  addPhotograph(20);
  addQuadrangle();
  tarn::Material::gDefault->SetDiffuseType(1);
  set();
  tarn::Material::gDefault->SetDiffuseType(before);
  EXPECT_EQ(countOf<SoTextureCoordinate2>(), 1);
}

TEST_F(TarnOISurfaceSeparatorTest, TextureCoordinatesComeAndGoWithTheMaterial) {
  addPhotograph(20);
  addQuadrangle();
  set();
  const std::vector<SoNode*> before = children(*node);
  node->SetTexture(brick.get(), nullptr);
  group.SetMaterial(&textured);
  set();
  EXPECT_THAT(childTypes(*node), ElementsAre("TarnOITexture", "ShapeHints", "TextureCoordinate2",
                                             "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(texturePlaces().size(), 4U);
  textured.SetDiffuseType(tarn::Material::eFixedColour);
  set();
  EXPECT_THAT(children(*node), ElementsAre(brick.get(), before[0], before[1], before[2]));
}

TEST_F(TarnOISurfaceSeparatorTest, NewTextureCoordinatesStandBeforeTheCoordinatesWhereverTheseAre) {
  addPhotograph(20);
  addQuadrangle();
  set();
  node->insertChild(new SoMaterial, 1);
  group.SetMaterial(&textured);
  set();
  EXPECT_THAT(childTypes(*node), ElementsAre("ShapeHints", "Material", "TextureCoordinate2",
                                             "Coordinate3", "IndexedFaceSet"));
}

TEST_F(TarnOISurfaceSeparatorTest, TextureCoordinatesKeepTheirTailWhenVerticesBecomeFewer) {
  group.SetMaterial(&textured);
  addPhotograph(20);
  addQuadrangle();
  set();
  tarn::SurfaceGroup& smaller = project.AddSurfaceGroup();
  smaller.SetMaterial(&textured);
  smaller.AddElement(points[1], points[3], points[0]);
  node->SetSurface(&smaller, &dictionary, &project, nullptr, nullptr);
  takeAssertions();
  EXPECT_EQ(shownVertices().size(), 3U);
  EXPECT_THAT(texturePlaces(), ElementsAre(textureOf(pixelOf(1, 20)), textureOf(pixelOf(3, 20)),
                                           textureOf(pixelOf(0, 20)), textureOf(pixelOf(2, 20))));
}

TEST_F(TarnOISurfaceSeparatorTest, WithoutPhotographOrProjectThereAreNoTextureCoordinates) {
  group.SetMaterial(&textured);
  addQuadrangle();
  set();
  EXPECT_EQ(countOf<SoTextureCoordinate2>(), 0) << "no photograph";
  addPhotograph(20);
  node->SetSurface(&group, &dictionary, nullptr, nullptr, nullptr);
  EXPECT_THAT(takeAssertions(), ElementsAre(mark()));
  EXPECT_EQ(countOf<SoTextureCoordinate2>(), 0) << "no project";
  set();
  EXPECT_EQ(countOf<SoTextureCoordinate2>(), 1);
}

TEST_F(TarnOISurfaceSeparatorTest, ATexturedGroupWithoutTrianglesHasNoPhotograph) {
  group.SetMaterial(&textured);
  addPhotograph(20);
  set();
  EXPECT_EQ(countOf<SoTextureCoordinate2>(), 0);
}

TEST_F(TarnOISurfaceSeparatorTest, ATexturedGroupWithoutCollectionOfTrianglesIsReported) {
  hostGroup({0, 1, 2});
  ofHost.triangles = nullptr;
  ofHost.SetMaterial(&textured);
  addPhotograph(20);
  setHost();
  EXPECT_THAT(takeAssertions(), ElementsAre(mark(), report("sels", 127)));
  EXPECT_THAT(childTypes(*node), ElementsAre("ShapeHints", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(shownVertices().size(), 3U);
  EXPECT_THAT(indexes(), IsEmpty());
  ofHost.SetMaterial(nullptr);
  setHost();
  EXPECT_THAT(takeAssertions(), ElementsAre(mark())) << "nobody asks where it is not textured";
}

TEST_F(TarnOISurfaceSeparatorTest, AVertexThatThePhotographDoesNotShowTakesThePlaceOfTheOneBefore) {
  group.SetMaterial(&textured);
  addPhotograph(20);
  tarn::ObjectPoint& behind = project.AddObjectPoint();
  behind.SetApproximation(tarn::Point3DRandom({3, 4, 50}));
  addTriangle(0, 1, 2);
  group.AddElement(&behind, points[3], points[0]);
  setWith(singleSided.get(), nullptr);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(mark(), report("tdp->BestProjectionOnto( bestPhoto, pt )", 226)));
  EXPECT_EQ(shownVertices()[3], shown({3, 4, 50}));
  EXPECT_EQ(texturePlaces()[3], textureOf(pixelOf(2, 20)));
  EXPECT_EQ(texturePlaces()[4], textureOf(pixelOf(3, 20)));
}

TEST_F(TarnOISurfaceSeparatorTest, PositionAndProjectionAreReportedVertexByVertex) {
  group.SetMaterial(&textured);
  addPhotograph(20);
  addTriangle(0, 1, 2);
  group.AddElement(&project.AddObjectPoint(), &project.AddObjectPoint(), points[0]);
  setWith(singleSided.get(), nullptr);
  const auto position = report("tdp->GetApproximation( pos )", 217);
  const auto projection = report("tdp->BestProjectionOnto( bestPhoto, pt )", 226);
  EXPECT_THAT(takeAssertions(), ElementsAre(mark(), position, projection, position, projection));
}

// The texture.

TEST_F(TarnOISurfaceSeparatorTest, ATextureStandsFirst) {
  addQuadrangle();
  set();
  node->SetTexture(brick.get(), nullptr);
  EXPECT_EQ(node->GetTexture(), brick.get());
  EXPECT_EQ(node->getChild(0), brick.get());
  EXPECT_EQ(node->getNumChildren(), 4);
}

TEST_F(TarnOISurfaceSeparatorTest, AnotherTextureTakesItsPlace) {
  addQuadrangle();
  set();
  node->SetTexture(brick.get(), nullptr);
  node->SetTexture(stone.get(), nullptr);
  EXPECT_EQ(node->GetTexture(), stone.get());
  EXPECT_EQ(node->getChild(0), stone.get());
  EXPECT_EQ(countOf<TarnOITexture>(), 1);
}

TEST_F(TarnOISurfaceSeparatorTest, TheSameTextureAgainChangesNothing) {
  addQuadrangle();
  set();
  node->SetTexture(brick.get(), &project);
  takeAssertions();
  const SignalCount signals(node.get());
  node->SetTexture(brick.get(), &project);
  EXPECT_THAT(takeAssertions(), IsEmpty()) << "the surface is not set again";
  EXPECT_EQ(signals.count(), 0);
}

TEST_F(TarnOISurfaceSeparatorTest, NullTakesTheTextureOut) {
  addQuadrangle();
  set();
  node->SetTexture(nullptr, &project);
  EXPECT_THAT(takeAssertions(), IsEmpty()) << "there is none already";
  node->SetTexture(brick.get(), nullptr);
  node->SetTexture(nullptr, nullptr);
  EXPECT_EQ(node->GetTexture(), nullptr);
  EXPECT_EQ(node->getChild(0), singleSided.get());
  EXPECT_THAT(takeAssertions(), IsEmpty());
}

TEST_F(TarnOISurfaceSeparatorTest, WithAProjectTheSurfaceIsSetAgain) {
  addPhotograph(20);
  addQuadrangle();
  set();
  group.SetMaterial(&textured);
  group.SetDoubleSided(1);
  node->SetTexture(brick.get(), nullptr);
  EXPECT_EQ(countOf<SoTextureCoordinate2>(), 0);
  node->SetTexture(stone.get(), &project);
  EXPECT_THAT(takeAssertions(), ElementsAre(mark()));
  EXPECT_EQ(texturePlaces().size(), 4U);
  EXPECT_EQ(node->getChild(1), singleSided.get()) << "hints are not touched";
  textured.SetDiffuseType(0);
  node->SetTexture(nullptr, &project);
  EXPECT_THAT(takeAssertions(), ElementsAre(mark()));
  EXPECT_EQ(countOf<SoTextureCoordinate2>(), 0);
}

TEST_F(TarnOISurfaceSeparatorTest, TheNewTextureIsRememberedAfterTheSurfaceWasSet) {
  struct Watch : tarn::SurfaceGroup {
    tarn::VOrdCollect* GetVertices(tarn::Project* project) override {
      during.push_back(node->GetTexture());
      return SurfaceGroup::GetVertices(project);
    }
    TarnOISurfaceSeparator* node = nullptr;
    std::vector<TarnOITexture*> during;
  } watch;
  watch.node = node.get();
  watch.AddElement(points[0], points[1], points[2]);
  node->SetSurface(&watch, &dictionary, &project, nullptr, nullptr);
  node->SetTexture(brick.get(), nullptr);
  node->SetTexture(stone.get(), &project);
  takeAssertions();
  EXPECT_THAT(watch.during, ElementsAre(nullptr, brick.get()));
  EXPECT_EQ(node->GetTexture(), stone.get());
  node->SetTarnObject(nullptr, &dictionary);
}

TEST_F(TarnOISurfaceSeparatorTest, ATextureThatTheHostTookOutIsNotTakenOutAgain) {
  addQuadrangle();
  set();
  node->SetTexture(brick.get(), nullptr);
  node->removeChild(brick.get());
  node->SetTexture(stone.get(), nullptr);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("TarnOITexture", "ShapeHints", "Coordinate3", "IndexedFaceSet"));
}

TEST_F(TarnOISurfaceSeparatorTest, ATextureOfAnUnboundNodeMarksAndBuildsNothing) {
  node->SetTexture(brick.get(), &project);
  EXPECT_THAT(takeAssertions(), ElementsAre(mark()));
  EXPECT_EQ(node->getNumChildren(), 1);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
}

// Normals.

TEST_F(TarnOISurfaceSeparatorTest, NormalsStandFirstAndHaveTheViewOffsetSubtracted) {
  addQuadrangle();
  set();
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2, 3});
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Normal", "ShapeHints", "Coordinate3", "IndexedFaceSet"));
  EXPECT_THAT(
      valuesOf(childOf<SoNormal>(*node).vector),
      ElementsAre(shown(normalOf(0)), shown(normalOf(1)), shown(normalOf(3)), shown(normalOf(2))));
  EXPECT_EQ(childOf<SoNormal>(*node).vector[0],
            SbVec3f(static_cast<float>(0.1 - 10.5), static_cast<float>(0.9 - 30.125),
                    static_cast<float>(-(0.2 + 20.25))));
}

TEST_F(TarnOISurfaceSeparatorTest, OfTextureAndNormalsTheLaterStandsFirst) {
  addQuadrangle();
  set();
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2, 3});
  node->SetTexture(brick.get(), nullptr);
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_THAT(childTypes(*node), ElementsAre("Normal", "TarnOITexture", "ShapeHints", "Coordinate3",
                                             "IndexedFaceSet"));
  node->SetTexture(stone.get(), nullptr);
  EXPECT_THAT(childTypes(*node), ElementsAre("TarnOITexture", "Normal", "ShapeHints", "Coordinate3",
                                             "IndexedFaceSet"));
}

TEST_F(TarnOISurfaceSeparatorTest, NormalsAreThoseUnderTheGroupsName) {
  tarn::ObjectName wall("wall");
  tarn::ObjectName roof("roof");
  group.SetNameObject(&wall);
  addTriangle(0, 1, 2);
  set();
  putNormals(&roof, {0, 1, 2});
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2});
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_EQ(countOf<SoNormal>(), 0) << "none of these is the group's";
  putNormals(&wall, {0, 1, 2});
  normals.back() = {7, 8, 9};
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_EQ(childOf<SoNormal>(*node).vector[2], shown({7, 8, 9}));
}

TEST_F(TarnOISurfaceSeparatorTest, NormalsOfASecondCallAreWrittenInPlace) {
  addTriangle(0, 1, 2);
  set();
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2});
  node->AddOrUpdateNormals(normalsByKey, &project);
  node->SetTexture(brick.get(), nullptr);
  const std::vector<SoNode*> before = children(*node);
  normals[1] = {4, 5, 6};
  const SignalCount signals(&childOf<SoNormal>(*node));
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_EQ(children(*node), before);
  EXPECT_EQ(signals.count(), 1);
  EXPECT_THAT(valuesOf(childOf<SoNormal>(*node).vector),
              ElementsAre(shown(normalOf(0)), shown({4, 5, 6}), shown(normalOf(2))));
}

TEST_F(TarnOISurfaceSeparatorTest, OneVertexWithoutNormalDropsThemAll) {
  addQuadrangle();
  set();
  putNormals(tarn::ObjectName::gDefault, {0, 1, 3});
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_EQ(countOf<SoNormal>(), 0);
  EXPECT_EQ(node->getNumChildren(), 3);
  putNormals(tarn::ObjectName::gDefault, {2});
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_EQ(childOf<SoNormal>(*node).vector.getNum(), 4);
  normalsByKey.removeKey(&keys[1]);
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_EQ(countOf<SoNormal>(), 0);
  EXPECT_FALSE(makeNode<OpenSurfaceNode>(*node)->normalNode);
}

TEST_F(TarnOISurfaceSeparatorTest, NormalsCanBeRemoved) {
  addTriangle(0, 1, 2);
  set();
  node->RemoveNormals();
  EXPECT_EQ(node->getNumChildren(), 3) << "there are none";
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2});
  node->AddOrUpdateNormals(normalsByKey, &project);
  node->RemoveNormals();
  EXPECT_EQ(countOf<SoNormal>(), 0);
  EXPECT_FALSE(makeNode<OpenSurfaceNode>(*node)->normalNode);
}

TEST_F(TarnOISurfaceSeparatorTest, WithoutVerticesTheNormalNodeStays) {
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_THAT(childTypes(*node), ElementsAre("Normal")) << "not bound";
  node->RemoveNormals();
  setHost();
  node->AddOrUpdateNormals(normalsByKey, &project);
  takeAssertions();
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Normal", "ShapeHints", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(childOf<SoNormal>(*node).vector.getNum(), 0);
  node->SetTarnObject(nullptr, &dictionary);
}

TEST_F(TarnOISurfaceSeparatorTest, NormalsAreThoseOfTheProjectsVertices) {
  putNormals(tarn::ObjectName::gDefault, {0});
  hostGroup({0});
  setHost();
  takeAssertions();
  ofHost.projects.clear();
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_THAT(ofHost.projects, ElementsAre(&project));
}

TEST_F(TarnOISurfaceSeparatorTest, NormalsKeepTheirTailWhenVerticesBecomeFewer) {
  addQuadrangle();
  set();
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2, 3});
  node->AddOrUpdateNormals(normalsByKey, &project);
  hostGroup({1, 2});
  setHost();
  takeAssertions();
  node->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_THAT(
      valuesOf(childOf<SoNormal>(*node).vector),
      ElementsAre(shown(normalOf(1)), shown(normalOf(2)), shown(normalOf(3)), shown(normalOf(2))));
}

TEST_F(TarnOISurfaceSeparatorTest, NormalsOfFewerVerticesThanAreShownHaveRoomForCoinsReading) {
  constexpr int many = 100000;
  hostGroup({0, 1});
  while (listed.size() < many) listed.add(points[2]);
  setHost();
  takeAssertions();
  putNormals(tarn::ObjectName::gDefault, {0, 1});
  tarn::VOrdCollect fewer;
  fewer.add(points[0]);
  fewer.add(points[1]);
  ofHost.vertices = &fewer;
  node->AddOrUpdateNormals(normalsByKey, &project);
  const SoMFVec3f& vectors = childOf<SoNormal>(*node).vector;
  EXPECT_EQ(vectors.getNum(), 2);
  EXPECT_EQ(vectors.getValues(0)[many - 1], SbVec3f(0, 0, 0));
  node.reset();  // before its group
}

TEST_F(TarnOISurfaceSeparatorTest, NormalsThatAreFewerThanTheVerticesHaveRoomForCoinsReading) {
  constexpr int many = 100000;
  addTriangle(0, 1, 2);
  set();
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2});
  node->AddOrUpdateNormals(normalsByKey, &project);
  std::vector<tarn::ObjectPoint> others(many);
  for (tarn::ObjectPoint& other : others) {
    other.SetApproximation(tarn::Point3DRandom({1, 2, 3}));
    group.AddElement(points[0], &other, points[1]);
  }
  set();
  const SoMFVec3f& vectors = childOf<SoNormal>(*node).vector;
  EXPECT_EQ(vectors.getNum(), 3);
  EXPECT_EQ(vectors.getValues(0)[many + 2], SbVec3f(0, 0, 0));
  const NodeRef<SoGroup> copy(static_cast<SoGroup*>(node->copy()));
  EXPECT_EQ(childOf<SoNormal>(*copy).vector.getValues(0)[many + 2], SbVec3f(0, 0, 0));
  const auto parent = makeNode<SoSeparator>();
  parent->addChild(node.get());
  const NodeRef<SoGroup> copyOfParent(static_cast<SoGroup*>(parent->copy()));
  const auto& nested = static_cast<const SoGroup&>(*copyOfParent->getChild(0));
  EXPECT_EQ(childOf<SoNormal>(nested).vector.getValues(0)[many + 2], SbVec3f(0, 0, 0))
      << "Coin does not ask nested nodes for their copies";
  node->SetTarnObject(nullptr, &dictionary);
}

// Copies.

TEST_F(TarnOISurfaceSeparatorTest, ACopyIsBoundAndHasChildrenOfItsOwn) {
  addQuadrangle();
  set();
  const NodeRef<TarnOISurfaceSeparator> copy(static_cast<TarnOISurfaceSeparator*>(node->copy()));
  EXPECT_EQ(copy->getTypeId(), TarnOISurfaceSeparator::getClassTypeId());
  EXPECT_EQ(copy->GetTarnObject(), &group);
  EXPECT_EQ(dictionary.atKey(&group), copy.get());
  EXPECT_EQ(childTypes(*copy), childTypes(*node));
  EXPECT_NE(copy->getChild(1), node->getChild(1));
  EXPECT_EQ(valuesOf(childOf<SoCoordinate3>(*copy).point), shownVertices());
}

TEST_F(TarnOISurfaceSeparatorTest, TheMembersOfACopyAreTheOriginalsNodes) {
  addTriangle(0, 1, 2);
  set();
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2});
  node->SetTexture(brick.get(), nullptr);
  node->AddOrUpdateNormals(normalsByKey, &project);
  const NodeRef<SoNormal> original(&childOf<SoNormal>(*node));
  NodeRef<TarnOISurfaceSeparator> copy(static_cast<TarnOISurfaceSeparator*>(node->copy()));
  EXPECT_EQ(copy->GetTexture(), brick.get());
  EXPECT_NE(copy->getChild(0), original.get());
  EXPECT_NE(copy->getChild(1), brick.get());
  EXPECT_EQ(makeNode<OpenSurfaceNode>(*copy)->normalNode.get(), original.get());

  // So a change of the copy's normals is one of the original's, and the copies stay.
  normals[0] = {4, 5, 6};
  copy->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_EQ(original->vector[0], shown({4, 5, 6}));
  EXPECT_EQ(childOf<SoNormal>(*copy).vector[0], shown(normalOf(0)));
  copy->RemoveNormals();
  copy->SetTexture(stone.get(), nullptr);
  EXPECT_THAT(childTypes(*copy), ElementsAre("TarnOITexture", "Normal", "TarnOITexture",
                                             "ShapeHints", "Coordinate3", "IndexedFaceSet"));
  EXPECT_EQ(countOf<SoNormal>(), 1) << "the original keeps its own";
  copy.reset();
  // Coin's copy of the texture was made without a dictionary.
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOITexture")));
}

TEST_F(TarnOISurfaceSeparatorTest, TheMembersOfACopyOutliveTheOriginal) {
  addTriangle(0, 1, 2);
  set();
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2});
  auto texture = makeNode<TarnOITexture>();
  tarn::VPathString file("wood.png");
  texture->SetFileName(&file, &textureDictionary);
  node->SetTexture(texture.get(), nullptr);
  node->AddOrUpdateNormals(normalsByKey, &project);
  const TarnOITexture* const given = texture.get();
  texture.reset();
  NodeRef<TarnOISurfaceSeparator> copy(static_cast<TarnOISurfaceSeparator*>(node->copy()));
  node.reset();
  EXPECT_EQ(copy->GetTexture(), given);
  EXPECT_STREQ(copy->GetTexture()->filename.getValue().getString(), "wood.png");
  copy->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_EQ(makeNode<OpenSurfaceNode>(*copy)->normalNode->vector.getNum(), 3);
  copy.reset();
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOITexture")));
}

TEST_F(TarnOISurfaceSeparatorTest, TheMembersOfACopyOfACopyAreTheFirstOriginalsNodes) {
  addTriangle(0, 1, 2);
  set();
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2});
  node->AddOrUpdateNormals(normalsByKey, &project);
  const NodeRef<SoNormal> original(&childOf<SoNormal>(*node));
  NodeRef<TarnOISurfaceSeparator> copy(static_cast<TarnOISurfaceSeparator*>(node->copy()));
  const NodeRef<TarnOISurfaceSeparator> second(static_cast<TarnOISurfaceSeparator*>(copy->copy()));
  node.reset();
  copy.reset();
  EXPECT_EQ(makeNode<OpenSurfaceNode>(*second)->normalNode.get(), original.get());
  normals[0] = {4, 5, 6};
  second->AddOrUpdateNormals(normalsByKey, &project);
  EXPECT_EQ(original->vector[0], shown({4, 5, 6}));
}

TEST_F(TarnOISurfaceSeparatorTest, CopyConstructionSharesMembersAndBinding) {
  addTriangle(0, 1, 2);
  set();
  node->SetTexture(brick.get(), nullptr);
  dictionary.takeChanges();
  const auto copy = makeNode<OpenSurfaceNode>(*node);
  EXPECT_EQ(copy->texture.get(), brick.get());
  EXPECT_EQ(copy->GetTarnObject(), &group);
  EXPECT_EQ(copy->searchDict, &dictionary);
  EXPECT_EQ(copy->getNumChildren(), 0);
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}

// Size.

TEST_F(TarnOISurfaceSeparatorTest, ALargeGroupFindsEachOfItsVertices) {
  constexpr int side = 300;
  std::vector<std::unique_ptr<tarn::ObjectPoint>> grid;
  for (int i = 0; i < side * side; ++i) {
    grid.push_back(std::make_unique<tarn::ObjectPoint>());
    grid.back()->SetApproximation(tarn::Point3DRandom({1.0 * (i % side), 1.0 * (i / side), 0.5}));
  }
  std::vector<std::array<std::size_t, 3>> corners;
  for (std::size_t i = 0; i + side + 1 < grid.size(); ++i) {
    // From everywhere, so that neighbours are not used one after the other.
    const std::size_t k = i * 7919 % (grid.size() - side - 1);
    corners.push_back({k, k + 1, k + side});
    group.AddElement(grid[k].get(), grid[k + 1].get(), grid[k + side].get());
  }
  set();
  const std::vector<std::int32_t> known = indexes();
  ofHost.triangles = group.GetSelsCollection(0);
  const std::unique_ptr<tarn::VOrdCollect> listedVertices(group.GetVertices(&project));
  ofHost.vertices = listedVertices.get();
  setHost();
  takeAssertions();
  const std::vector<SbVec3f> vertices = shownVertices();
  const std::vector<std::int32_t> index = indexes();
  ASSERT_EQ(index.size(), 4 * corners.size());
  EXPECT_EQ(index, known) << "looked up, and as the group knows them";
  for (std::size_t t = 0; t < corners.size(); ++t) {
    for (std::size_t k = 0; k < 3; ++k) {
      const auto [x, y] = std::pair(corners[t][k] % side, corners[t][k] / side);
      ASSERT_EQ(vertices[static_cast<std::size_t>(index[4 * t + k])],
                shown({static_cast<double>(x), static_cast<double>(y), 0.5}));
    }
    ASSERT_EQ(index[4 * t + 3], -1);
  }
  node->SetTarnObject(nullptr, &dictionary);
}
