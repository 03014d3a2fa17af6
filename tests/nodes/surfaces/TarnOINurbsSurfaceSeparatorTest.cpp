#include "nodes/surfaces/TarnOINurbsSurfaceSeparator.h"

#include "host/model/ImportedPoint.h"
#include "nodes/surfaces/TarnOIImportedSurfaceSeparator.h"
#include "tests/nodes/surfaces/TriangleSetsFixture.h"
#include "tests/support/SignalCount.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

/// The node with its members open.
class OpenSurfaceNode : public TarnOINurbsSurfaceSeparator {
public:
  OpenSurfaceNode() = default;
  explicit OpenSurfaceNode(const TarnOINurbsSurfaceSeparator& other)
      : TarnOINurbsSurfaceSeparator(other) {}
  using TarnOINurbsSurfaceSeparator::faceSet;
  using TarnOINurbsSurfaceSeparator::neutralMaterial;
  using TarnOINurbsSurfaceSeparator::shapeHints;
};

}  // namespace

class TarnOINurbsSurfaceSeparatorTest : public TriangleSetsFixture {
protected:
  void build() {
    tarn::VOrdCollect* sets = surface.GetTriangleSets();
    node->SetNurbsSurface(&surface, &dictionary, singleSided.get(), doubleSided.get(),
                          textures.data(), &sets, surface.GetUvMatrices());
  }

  NodeRef<OpenSurfaceNode> node = makeNode<OpenSurfaceNode>();
};

TEST_F(TarnOINurbsSurfaceSeparatorTest, ANewNodeKeepsANeutralMaterialThatIsNoChild) {
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_FALSE(node->faceSet);
  EXPECT_FALSE(node->shapeHints);
  ASSERT_TRUE(node->neutralMaterial);
  EXPECT_TRUE(node->neutralMaterial->fieldsAreEqual(makeNode<SoMaterial>().get()));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, BindsTheSurface) {
  build();
  EXPECT_EQ(node->GetTarnObject(), &surface);
  EXPECT_EQ(dictionary.atKey(&surface), node.get());
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ASurfaceWithoutSetsHasItsHintsOnly) {
  build();
  EXPECT_EQ(inShort(*node), "H");
  EXPECT_EQ(node->getChild(0), singleSided.get());
  EXPECT_EQ(node->shapeHints.get(), singleSided.get());
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ADoubleSidedSurfaceGetsTheOtherHints) {
  surface.SetDoubleSided(1);
  build();
  EXPECT_EQ(node->getChild(0), doubleSided.get());
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, SetsWithoutTextureStandAfterTheHintsInReverse) {
  for (int i = 0; i < 3; ++i) addSet();
  build();
  EXPECT_EQ(inShort(*node), "H 2 1 0");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, TexturedSetsFollowInTheirOrder) {
  addSet(brick.get());
  addSet();
  addSet(stone.get());
  addSet();
  surface.SetMaterial(nullptr);
  build();
  EXPECT_EQ(inShort(*node), "H 3 1 T0 T2");
  EXPECT_EQ(node->getChild(7), brick.get());
  EXPECT_EQ(node->getChild(12), stone.get());
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, CornersAreShownInTheViewerFrame) {
  addSet();
  build();
  const auto* coordinates = childAt<SoCoordinate3>(*node, 2);
  EXPECT_THAT(valuesOf(coordinates->point),
              ElementsAre(shownCorner(0, 0), shownCorner(0, 1), shownCorner(0, 2)));
  EXPECT_EQ(coordinates->point[1], SbVec3f(-8.0F, -25.625F, -19.5F));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, NoVertexIsShared) {
  const tarn::Triangle& first = addSet();
  surface.AddTriangle(0, first.GetPoint(0), first.GetPoint(1), first.GetPoint(2));
  build();
  EXPECT_EQ(childAt<SoCoordinate3>(*node, 2)->point.getNum(), 6);
  EXPECT_THAT(valuesOf(childAt<SoIndexedFaceSet>(*node, 3)->coordIndex),
              ElementsAre(0, 1, 2, -1, 3, 4, 5, -1));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, NormalsAndTexturesGoByTheIndexesOfTheCorners) {
  addSet(brick.get());
  build();
  const auto* faces = childAt<SoIndexedFaceSet>(*node, 5);
  EXPECT_EQ(faces->normalIndex.getNum(), 1);
  EXPECT_EQ(faces->normalIndex[0], -1);
  EXPECT_EQ(faces->textureCoordIndex.getNum(), 1);
  EXPECT_EQ(faces->textureCoordIndex[0], -1);
  EXPECT_EQ(node->faceSet.get(), faces);
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, NormalsAreTurnedWithoutTheViewOffset) {
  tarn::Triangle& triangle = addSet();
  for (int k = 0; k < 3; ++k) {
    triangle.SetNormal(k, &surface.AddNormal({0.1 + k, 0.2 + k, 0.3 + k}));
  }
  build();
  EXPECT_THAT(valuesOf(childAt<SoNormal>(*node, 1)->vector),
              ElementsAre(SbVec3f(0.1F, 0.3F, -0.2F), SbVec3f(1.1F, 1.3F, -1.2F),
                          SbVec3f(2.1F, 2.3F, -2.2F)));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, AMissingNormalIsLeftUnwritten) {
  tarn::Triangle& triangle = addSet();
  triangle.SetNormal(0, &surface.AddNormal({1, 2, 3}));
  build();
  EXPECT_THAT(valuesOf(childAt<SoNormal>(*node, 1)->vector), ElementsAre(SbVec3f(1, 3, -2)));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, TheSecondTextureCoordinateIsOneLessTheFloat) {
  tarn::Triangle& triangle = addSet(brick.get());
  surface.SetTextureCoordinates(triangle, {{{0.1, 0.3}, {0.7, 1e-9}, {1.0, 0.9}}});
  build();
  EXPECT_THAT(
      valuesOf(childAt<SoTextureCoordinate2>(*node, 2)->point),
      ElementsAre(SbVec2f(0.1F, 1.0F - 0.3F), SbVec2f(0.7F, 1.0F), SbVec2f(1.0F, 1.0F - 0.9F)));
  // Where the double is subtracted first, another bit comes out.
  EXPECT_NE(1.0F - 0.9F, static_cast<float>(1.0 - 0.9));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, WithoutTexturesNoMatrixIsRead) {
  addSet(brick.get());
  tarn::VOrdCollect* sets = surface.GetTriangleSets();
  node->SetNurbsSurface(&surface, &dictionary, singleSided.get(), doubleSided.get(), nullptr, &sets,
                        nullptr);
  EXPECT_EQ(inShort(*node), "H 0");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ATexturedTriangleWithoutMatrixIsReportedAtEachCorner) {
  addSet(brick.get());
  tarn::VDictionary none;
  tarn::VOrdCollect* sets = surface.GetTriangleSets();
  node->SetNurbsSurface(&surface, &dictionary, singleSided.get(), doubleSided.get(),
                        textures.data(), &sets, &none);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("uvMatrix", "TarnOINurbsSurfaceSeparator", 241),
                          IsAssertionAt("uvMatrix", "TarnOINurbsSurfaceSeparator", 241),
                          IsAssertionAt("uvMatrix", "TarnOINurbsSurfaceSeparator", 241)));
  EXPECT_EQ(inShort(*node), "H T0");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ACornerWithoutPositionIsReportedAndStaysAtTheOneBefore) {
  tarn::ThreeDPoint nowhere;
  tarn::Triangle& triangle = addSet();
  triangle.SetPoint(1, &nowhere);
  triangle.SetPoint(2, nullptr);
  build();
  const auto report = IsAssertionAt("0", "TarnOINurbsSurfaceSeparator", 213);
  EXPECT_THAT(takeAssertions(), ElementsAre(report, report));
  EXPECT_THAT(valuesOf(childAt<SoCoordinate3>(*node, 2)->point),
              ElementsAre(shownCorner(0, 0), shownCorner(0, 0), shownCorner(0, 0)));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, CornersThatComeAgainStandWhereTheyStood) {
  std::vector<tarn::ThreeDPoint*> points;
  for (int i = 0; i < 9; ++i) points.push_back(&surface.AddPoint(cornerOf(i / 3, i % 3)));
  const int set = surface.AddTriangleSet();
  textures.push_back(nullptr);
  std::vector<SbVec3f> expected;
  // A strip, then a fan around its first point, then corners from far apart.
  for (const std::array<int, 3>& corners : {std::array{0, 1, 2},
                                            {2, 1, 3},
                                            {2, 3, 4},
                                            {4, 3, 5},
                                            {0, 5, 6},
                                            {0, 6, 7},
                                            {0, 7, 8},
                                            {8, 0, 4},
                                            {1, 6, 3},
                                            {3, 3, 3},
                                            {5, 1, 0}}) {
    surface.AddTriangle(set, points[static_cast<std::size_t>(corners[0])],
                        points[static_cast<std::size_t>(corners[1])],
                        points[static_cast<std::size_t>(corners[2])]);
    for (const int corner : corners) expected.push_back(shownCorner(corner / 3, corner % 3));
  }
  build();
  EXPECT_EQ(valuesOf(childAt<SoCoordinate3>(*node, 2)->point), expected);
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ACornerWithoutPositionStaysAtOneThatCameAgain) {
  tarn::Triangle& first = addSet();
  tarn::ThreeDPoint nowhere;
  surface.AddTriangle(0, first.GetPoint(0), &nowhere, first.GetPoint(1));
  surface.AddTriangle(0, &nowhere, first.GetPoint(2), &nowhere);
  build();
  const auto report = IsAssertionAt("0", "TarnOINurbsSurfaceSeparator", 213);
  EXPECT_THAT(takeAssertions(), ElementsAre(report, report, report));
  const std::vector<SbVec3f> shown = valuesOf(childAt<SoCoordinate3>(*node, 2)->point);
  const SbVec3f a = shownCorner(0, 0);
  const SbVec3f b = shownCorner(0, 1);
  const SbVec3f c = shownCorner(0, 2);
  EXPECT_EQ(shown, (std::vector<SbVec3f>{a, b, c, a, a, b, b, c, c}));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, TheCornerBeforeMayBeOneOfTheSetBefore) {
  tarn::ThreeDPoint nowhere;
  addSet();
  addSet().SetPoint(0, &nowhere);
  build();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("0", "TarnOINurbsSurfaceSeparator", 213)));
  EXPECT_EQ(childAt<SoCoordinate3>(*node, 2)->point[0], shownCorner(0, 2));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, AnInactiveImportedCornerStandsAtItsStoredPosition) {
  tarn::ImportedPoint imported;
  imported.SetActive(0);
  imported.SetStoredPosition(tarn::Point3DRandom(cornerOf(7, 2)));
  addSet().SetPoint(1, &imported);
  build();
  EXPECT_EQ(childAt<SoCoordinate3>(*node, 2)->point[1], shownCorner(7, 2));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, AnActiveImportedCornerWithoutPositionIsReported) {
  tarn::ImportedPoint imported;
  addSet().SetPoint(1, &imported);
  build();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("0", "TarnOINurbsSurfaceSeparator", 213)));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, WithoutATexturedMaterialThereIsNoNeutralOne) {
  addSet(brick.get());
  build();
  EXPECT_EQ(inShort(*node), "H T0");
  tarn::Material plain;
  surface.SetMaterial(&plain);
  build();
  EXPECT_EQ(inShort(*node), "H T0");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, WithoutBlendingEachTexturedSetPutsTheNeutralMaterialIn) {
  addSet(brick.get());
  addSet(stone.get());
  surface.SetMaterial(&textured);
  build();
  EXPECT_EQ(inShort(*node), "H M M T0 T1");
  EXPECT_EQ(node->getChild(1), node->neutralMaterial.get());
  EXPECT_EQ(node->getChild(2), node->neutralMaterial.get());
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, AnyDiffuseTypeButZeroIsTextured) {
  addSet(brick.get());
  surface.SetMaterial(&textured);
  for (const int type : {2, -1}) {
    textured.SetDiffuseType(type);
    build();
    EXPECT_EQ(inShort(*node), "H M T0") << type;
  }
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, WithBlendingThereIsNoNeutralMaterial) {
  addSet(brick.get());
  surface.SetMaterial(&textured);
  textured.SetBlendRGBWithTexture(1);
  build();
  EXPECT_EQ(inShort(*node), "H T0");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ASetWithoutTextureTakesOneNeutralMaterialOut) {
  addSet(brick.get());
  addSet(stone.get());
  addSet();
  surface.SetMaterial(&textured);
  build();
  EXPECT_EQ(inShort(*node), "H 2 M T0 T1");
}

// The textured set puts its material in at the front of the sets that are there already.
TEST_F(TarnOINurbsSurfaceSeparatorTest, ANeutralMaterialStandsBeforeTheSetsThatWereThere) {
  addSet();
  addSet(brick.get());
  surface.SetMaterial(&textured);
  build();
  EXPECT_EQ(inShort(*node), "H M 0 T1");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, TheNeutralMaterialPutInLastIsTakenOutFirst) {
  addSet(brick.get());
  addSet();
  addSet(brick.get());
  addSet(brick.get());
  addSet();
  addSet(brick.get());
  surface.SetMaterial(&textured);
  build();
  EXPECT_EQ(inShort(*node), "H M 4 M 1 T0 T2 T3 T5");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ASecondBuildDropsAllThatWasThere) {
  addSet(brick.get());
  surface.SetMaterial(&textured);
  build();
  surface.SetDoubleSided(1);
  surface.SetMaterial(nullptr);
  build();
  EXPECT_EQ(inShort(*node), "H T0");
  EXPECT_EQ(node->getChild(0), doubleSided.get());
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, EachBuildIsSignalledOnce) {
  addSet();
  addSet(brick.get());
  const SignalCount signals(node.get());
  build();
  EXPECT_EQ(signals.count(), 1);
  build();
  EXPECT_EQ(signals.count(), 2);
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, HintsLeftFromBeforeAreUsedAgainByANodeWithoutChildren) {
  build();
  node->removeAllChildren();
  surface.SetDoubleSided(1);
  build();
  EXPECT_EQ(node->getChild(0), singleSided.get());
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, WithoutHintsSetsAreBuiltAlike) {
  addSet();
  addSet(brick.get());
  tarn::VOrdCollect* sets = surface.GetTriangleSets();
  node->SetNurbsSurface(&surface, &dictionary, nullptr, nullptr, textures.data(), &sets,
                        surface.GetUvMatrices());
  EXPECT_EQ(inShort(*node), "0 T1");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ASetWithoutTrianglesHasEmptyNodes) {
  surface.AddTriangleSet();
  textures.push_back(nullptr);
  build();
  EXPECT_EQ(childAt<SoCoordinate3>(*node, 2)->point.getNum(), 0);
  EXPECT_EQ(childAt<SoIndexedFaceSet>(*node, 3)->coordIndex.getNum(), 0);
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, NullsOnlyUnbindOrBuildNothing) {
  addSet();
  node->SetNurbsSurface(&surface, nullptr, singleSided.get(), doubleSided.get(), nullptr, nullptr,
                        nullptr);
  EXPECT_EQ(inShort(*node), "H");
  node->SetNurbsSurface(nullptr, &dictionary, nullptr, nullptr, nullptr, nullptr, nullptr);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(inShort(*node), "H");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, UpdatingTheBlendPutsTheNeutralMaterialInEachTime) {
  addSet(brick.get());
  surface.SetMaterial(&textured);
  textured.SetBlendRGBWithTexture(1);
  build();
  textured.SetBlendRGBWithTexture(0);
  node->UpdateTextureBlend(1);
  EXPECT_EQ(inShort(*node), "H M T0");
  node->UpdateTextureBlend(1);
  EXPECT_EQ(inShort(*node), "H M M T0");
  node->UpdateTextureBlend(0);
  EXPECT_EQ(inShort(*node), "H M T0");
  textured.SetBlendRGBWithTexture(1);
  node->UpdateTextureBlend(1);
  EXPECT_EQ(inShort(*node), "H T0");
  node->UpdateTextureBlend(0);
  EXPECT_EQ(inShort(*node), "H T0");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, TheBlendOfANodeWithoutChildrenOrSurfaceCanBeUpdated) {
  node->UpdateTextureBlend(1);
  EXPECT_EQ(node->getNumChildren(), 0);
  surface.SetMaterial(&textured);
  node->SetTarnObject(&surface, &dictionary);
  node->UpdateTextureBlend(1);
  EXPECT_EQ(inShort(*node), "M");
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ManySetsWithoutTextureKeepTheirOrder) {
  for (int i = 0; i < 2000; ++i) surface.AddTriangleSet();
  tarn::VOrdCollect* sets = surface.GetTriangleSets();
  node->SetNurbsSurface(&surface, &dictionary, singleSided.get(), doubleSided.get(), nullptr, &sets,
                        nullptr);
  ASSERT_EQ(node->getNumChildren(), 6001);
  EXPECT_EQ(node->faceSet.get(), node->getChild(3));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ACopyIsBoundToTheSurfaceAndHasMembersOfItsOwn) {
  addSet(brick.get());
  surface.SetMaterial(&textured);
  build();
  NodeRef<TarnOINurbsSurfaceSeparator> copy(
      static_cast<TarnOINurbsSurfaceSeparator*>(node->copy()));
  EXPECT_EQ(copy->GetTarnObject(), &surface);
  EXPECT_EQ(dictionary.atKey(&surface), copy.get());
  auto members = makeNode<OpenSurfaceNode>(*copy);
  EXPECT_EQ(members->faceSet.get(), copy->getChild(6));
  EXPECT_EQ(members->neutralMaterial.get(), copy->getChild(1));
  EXPECT_EQ(members->shapeHints.get(), copy->getChild(0));
  copy->UpdateTextureBlend(0);
  EXPECT_EQ(copy->getNumChildren(), 6);
  members.reset();
  copy.reset();
  // Coin's copy of the texture was made without a dictionary.
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("tarnoi_searchDict", "TarnOITexture")));
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ACopyHasRoomForTheNormalsThatItLacks) {
  constexpr int many = 100000;
  tarn::Triangle& first = addSet();
  tarn::Triangle other(first.GetPoint(0), first.GetPoint(1), first.GetPoint(2));
  const tarn::Point3DDouble up{0, 0, 1};
  for (int k = 0; k < 3; ++k) first.SetNormal(k, &up);
  tarn::VOrdCollect set;
  set.add(&first);
  while (set.size() < many) set.add(&other);
  tarn::VOrdCollect sets;
  sets.add(&set);
  tarn::VOrdCollect* all = &sets;
  node->SetNurbsSurface(&surface, &dictionary, nullptr, nullptr, nullptr, &all, nullptr);
  const NodeRef<SoGroup> copy(static_cast<SoGroup*>(node->copy()));
  int place = 0;
  while (place < copy->getNumChildren() &&
         !copy->getChild(place)->isOfType(SoNormal::getClassTypeId()))
    ++place;
  const SoMFVec3f& normals = childAt<SoNormal>(*copy, place)->vector;
  EXPECT_EQ(normals.getNum(), 3);
  EXPECT_EQ(normals.getValues(0)[3 * many - 1], SbVec3f(0, 0, 0)) << "which Coin reads";
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, CopyConstructionSharesMembersAndBinding) {
  addSet();
  build();
  const auto copy = makeNode<OpenSurfaceNode>(*node);
  EXPECT_EQ(copy->faceSet.get(), node->faceSet.get());
  EXPECT_EQ(copy->shapeHints.get(), node->shapeHints.get());
  EXPECT_EQ(copy->neutralMaterial.get(), node->neutralMaterial.get());
  EXPECT_EQ(copy->GetTarnObject(), &surface);
  EXPECT_EQ(copy->getNumChildren(), 0);
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, AnImportedSurfaceIsBuiltAlike) {
  addSet();
  addSet();
  addSet(brick.get());
  surface.SetMaterial(&textured);
  const auto imported = makeNode<TarnOIImportedSurfaceSeparator>();
  tarn::VOrdCollect* sets = surface.GetTriangleSets();
  imported->SetImportedSurface(&surface, &dictionary, singleSided.get(), doubleSided.get(),
                               textures.data(), &sets, surface.GetUvMatrices());
  EXPECT_EQ(inShort(*imported), "H M 1 0 T2");
  EXPECT_EQ(dictionary.atKey(&surface), imported.get());
}

TEST_F(TarnOINurbsSurfaceSeparatorTest, ACopiedImportedSurfaceIsBoundToItsSurface) {
  addSet();
  const auto imported = makeNode<TarnOIImportedSurfaceSeparator>();
  tarn::VOrdCollect* sets = surface.GetTriangleSets();
  imported->SetImportedSurface(&surface, &dictionary, singleSided.get(), doubleSided.get(),
                               textures.data(), &sets, surface.GetUvMatrices());
  const NodeRef<SoNode> copy(imported->copy());
  EXPECT_EQ(copy->getTypeId(), TarnOIImportedSurfaceSeparator::getClassTypeId());
  EXPECT_EQ(dictionary.atKey(&surface), copy.get());
}
