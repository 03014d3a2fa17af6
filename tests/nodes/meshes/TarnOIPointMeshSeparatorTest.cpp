#include "nodes/meshes/TarnOIPointMeshSeparator.h"

#include <Inventor/SbMatrix.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "tests/nodes/meshes/PointMeshFixture.h"
#include "tests/support/TransformMatrix.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

constexpr const char* className = "TarnOIPointMeshSeparator";
const PreferenceRead selectionColor{PreferenceRead::eInt, "SelectionColor", "7", "Colors"};

// A mesh that has no points to hand out, or an affine of its own kind.
class OddMesh : public tarn::PointMesh {
public:
  float** GetPoints() const override { return hasPoints ? tarn::PointMesh::GetPoints() : nullptr; }
  int HasLocalAffine() const override { return hasAffine; }
  tarn::BasicAffine* GetLocalAffine() const override { return nullptr; }

  bool hasPoints = true;
  int hasAffine = 0;
};

// Where the transform puts a point.
SbVec3f moved(const SoTransform& transform, const SbVec3f& point) {
  SbVec3f result;
  matrixOf(transform).multVecMatrix(point, result);
  return result;
}

}  // namespace

/// Clouds, the local transform, binding, copies.
class TarnOIPointMeshSeparatorTest : public PointMeshFixture {
protected:
  NodeRef<TarnOIPointMeshSeparator> copied() const {
    return NodeRef(static_cast<TarnOIPointMeshSeparator*>(node->copy()));
  }
};

// --- Members

TEST_F(TarnOIPointMeshSeparatorTest, AFreshNodeHasNothingButTheSelectionColour) {
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_FALSE(node->pointPos);
  EXPECT_FALSE(node->faceSet);
  EXPECT_FALSE(node->colorMaterial);
  EXPECT_FALSE(node->colorBinding);
  EXPECT_FALSE(node->localTransform);
  EXPECT_FALSE(node->triangleLookups);
  EXPECT_FALSE(node->subHighlight.material);
  EXPECT_FALSE(node->subHighlight.binding);
  EXPECT_FALSE(node->contourSeparator);
  EXPECT_EQ(node->doNotUseLocalTransform, 0);
  EXPECT_EQ(node->highlightOn, 0);
  EXPECT_EQ(node->subHighlightColor.packed(), tarn::fIniToVColor(7).packed());
  EXPECT_THAT(preferences.takeReads(), ElementsAre(selectionColor));
}

TEST_F(TarnOIPointMeshSeparatorTest, TheSelectionColourIsReadWhenANodeIsMade) {
  preferences.Set("SelectionColor", "10020030", "Colors");
  const auto later = makeNode<OpenMeshNode>();
  EXPECT_EQ(later->subHighlightColor.getRed(), 10);
  EXPECT_EQ(later->subHighlightColor.getGreen(), 20);
  EXPECT_EQ(later->subHighlightColor.getBlue(), 30);
}

// --- Point clouds

TEST_F(TarnOIPointMeshSeparatorTest, ACloudHasCoordinatesAndAPointSet) {
  EXPECT_EQ(node->SetPointCloudPointMesh(&mesh, &dictionary), 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(node->getChild(0), node->pointPos.get());
}

TEST_F(TarnOIPointMeshSeparatorTest, ACloudStandsInTheViewerFrame) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_THAT(valuesOf(node->pointPos->point),
              ElementsAre(shown(points[0]), shown(points[1]), shown(points[2]), shown(points[3])));
}

TEST_F(TarnOIPointMeshSeparatorTest, APointSetDrawsAllCoordinates) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_EQ(firstChild<SoPointSet>(*node)->numPoints.getValue(), -1);
}

TEST_F(TarnOIPointMeshSeparatorTest, SettingACloudBindsTheNode) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_EQ(node->GetTarnObject(), &mesh);
  EXPECT_EQ(dictionary.atKey(&mesh), static_cast<SoNode*>(node.get()));
}

TEST_F(TarnOIPointMeshSeparatorTest, ANullCloudUnbindsAndKeepsTheChildren) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const auto before = children(*node);
  EXPECT_EQ(node->SetPointCloudPointMesh(nullptr, &dictionary), 1);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.size(), 0);
  EXPECT_EQ(children(*node), before);
}

TEST_F(TarnOIPointMeshSeparatorTest, ACloudOfNoPointsHasNoCoordinates) {
  mesh.Allocate(0, 0);
  node->SetTarnObject(&mesh, &dictionary);
  EXPECT_EQ(node->SetMeshData(&mesh), 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(node->pointPos->point.getNum(), 0);
}

TEST_F(TarnOIPointMeshSeparatorTest, AMeshWithoutAPointArrayAddsNothing) {
  OddMesh odd;
  odd.hasPoints = false;
  EXPECT_EQ(node->SetMeshData(&odd), 0);
  EXPECT_EQ(node->getNumChildren(), 0);
  node->SetPointCloudPointMesh(nullptr, &dictionary);
}

TEST_F(TarnOIPointMeshSeparatorTest, SettingACloudWithoutAPointArrayReturnsOneAllTheSame) {
  OddMesh odd;
  odd.hasPoints = false;
  EXPECT_EQ(node->SetPointCloudPointMesh(&odd, &dictionary), 1);
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_EQ(node->GetTarnObject(), &odd);
  node.reset();
}

TEST_F(TarnOIPointMeshSeparatorTest, ANullMeshAddsNothing) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_EQ(node->SetMeshData(nullptr), 0);
  EXPECT_EQ(node->getNumChildren(), 0);
}

TEST_F(TarnOIPointMeshSeparatorTest, BuildingACloudIsSignalledOnce) {
  EXPECT_EQ(signalsWhile([this] { node->SetPointCloudPointMesh(&mesh, &dictionary); }), 1);
  EXPECT_EQ(signalsWhile([this] { node->SetPointCloudPointMesh(&mesh, &dictionary); }), 1);
  EXPECT_TRUE(node->isNotifyEnabled());
  EXPECT_TRUE(node->pointPos->point.isNotifyEnabled());
  EXPECT_EQ(signalsWhile([this] { node->addChild(new SoCube); }), 1);
}

TEST_F(TarnOIPointMeshSeparatorTest, ALargeCoordinateLosesNothingBeforeTheOffsetIsTakenOff) {
  tarn::gThreeDViewOffset = {4512345.25, 512345.5, 345.125};
  setPoints(mesh, std::array<std::array<float, 3>, 1>{{{4512346.0F, 512347.0F, 346.0F}}});
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_EQ(node->pointPos->point[0], SbVec3f(0.75F, 0.875F, -1.5F));
}

// --- Building again

TEST_F(TarnOIPointMeshSeparatorTest, BuildingAgainDropsEveryChild) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->addChild(new SoCube);
  setPoints(mesh, std::array<std::array<float, 3>, 1>{{{7.0F, 8.0F, 9.0F}}});
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_THAT(valuesOf(node->pointPos->point), ElementsAre(SbVec3f(-3.5F, -21.125F, -28.25F)));
}

TEST_F(TarnOIPointMeshSeparatorTest, BuildingAgainMakesNewNodes) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const NodeRef<SoCoordinate3> coordinates = node->pointPos;
  const NodeRef<SoNode> pointSet(node->getChild(1));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_NE(node->pointPos.get(), coordinates.get());
  EXPECT_NE(node->getChild(1), pointSet.get());
}

TEST_F(TarnOIPointMeshSeparatorTest, CoordinatesThatAHostHoldsKeepTheirValues) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const NodeRef<SoCoordinate3> coordinates = node->pointPos;
  mesh.GetPointStorage()[0] = 100.5F;
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_EQ(coordinates->point[0], shown(points[0]));
  EXPECT_EQ(node->pointPos->point[0][0], 90.0F);
}

TEST_F(TarnOIPointMeshSeparatorTest, CoordinatesThatNobodyElseHoldsAreFilledInPlace) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const SbVec3f* memory = node->pointPos->point.getValues(0);
  mesh.GetPointStorage()[0] = 100.5F;
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_EQ(node->pointPos->point.getValues(0), memory);
  EXPECT_EQ(node->pointPos->point[0][0], 90.0F);
}

TEST_F(TarnOIPointMeshSeparatorTest, ACloudDropsColoursSubHighlightAndTransformOfEarlierChildren) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->colorMaterial = makeNode<SoMaterial>();
  node->colorBinding = makeNode<SoMaterialBinding>();
  node->subHighlight.place(*node, 0);
  node->localTransform = makeNode<SoTransform>();
  node->SetMeshData(&mesh);
  EXPECT_FALSE(node->colorMaterial);
  EXPECT_FALSE(node->colorBinding);
  EXPECT_FALSE(node->subHighlight.material);
  EXPECT_FALSE(node->subHighlight.binding);
  EXPECT_FALSE(node->localTransform);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIPointMeshSeparatorTest, ACloudKeepsFaceSetContoursAndTheHighlightsFlag) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const auto faces = makeNode<SoIndexedFaceSet>();
  const auto contours = makeNode<SoSeparator>();
  node->faceSet = faces;
  node->contourSeparator = contours;
  node->Highlight(nullptr, 1);
  node->SetMeshData(&mesh);
  EXPECT_EQ(node->faceSet.get(), faces.get());
  EXPECT_EQ(node->contourSeparator.get(), contours.get());
  EXPECT_EQ(node->highlightOn, 1);
}

TEST_F(TarnOIPointMeshSeparatorTest, ANodeWithoutChildrenKeepsItsMembersAndReportsItsCoordinates) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const auto colours = makeNode<SoMaterial>();
  node->colorMaterial = colours;
  const NodeRef<SoCoordinate3> before = node->pointPos;
  node->removeAllChildren();
  EXPECT_EQ(node->SetMeshData(&mesh), 1);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertionAt("!pointPos", className, 218)));
  EXPECT_EQ(node->colorMaterial.get(), colours.get());
  EXPECT_NE(node->pointPos.get(), before.get());
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIPointMeshSeparatorTest, ATransformThatANodeWithoutChildrenKeptIsUsedAgain) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const SoTransform* const before = node->localTransform.get();
  node->removeAllChildren();
  node->pointPos.reset();
  mesh.ClearLocalAffine();
  node->SetDoNotUseLocalTransform(1);
  node->SetMeshData(&mesh);
  EXPECT_THAT(childTypes(*node), ElementsAre("Transform", "Coordinate3", "PointSet"));
  EXPECT_EQ(node->getChild(0), before);
  EXPECT_EQ(node->pointPos->point[0], shownAsStored(points[0]));
}

TEST_F(TarnOIPointMeshSeparatorTest, CoordinatesOfACloudThatHadNoPointsAreReportedAtTheNextBuild) {
  OddMesh odd;
  odd.hasPoints = false;
  node->SetMeshData(&odd);
  EXPECT_TRUE(node->pointPos);
  EXPECT_THAT(takeAssertions(), IsEmpty());
  node->SetMeshData(&mesh);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertionAt("!pointPos", className, 218)));
}

TEST_F(TarnOIPointMeshSeparatorTest, BuildingTwiceReportsNothing) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_THAT(takeAssertions(), IsEmpty());
}

// --- The local transform

TEST_F(TarnOIPointMeshSeparatorTest, AMeshWithALocalAffineIsDrawnThroughATransform) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Transform", "Coordinate3", "PointSet"));
  EXPECT_EQ(node->getChild(0), node->localTransform.get());
  EXPECT_THAT(valuesOf(node->pointPos->point),
              ElementsAre(shownAsStored(points[0]), shownAsStored(points[1]),
                          shownAsStored(points[2]), shownAsStored(points[3])));
}

TEST_F(TarnOIPointMeshSeparatorTest, TheTransformHoldsTheAffineAndTheViewOffset) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  // (1.5, 2.25, -3.75) is (101.5, 202.25, 296.25) in the model.
  EXPECT_EQ(moved(*node->localTransform, node->pointPos->point[0]),
            SbVec3f(91.0F, 266.125F, -222.5F));
}

TEST_F(TarnOIPointMeshSeparatorTest, AnInvertedAffineIsTakenAsItsInverse) {
  tarn::BasicAffine affine = shift(100, 200, 300);
  affine.DoInversion(1);
  mesh.SetLocalAffine(affine);
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_EQ(moved(*node->localTransform, node->pointPos->point[0]),
            SbVec3f(-109.0F, -333.875F, 177.5F));
}

TEST_F(TarnOIPointMeshSeparatorTest, TheAffinesScaleIsTaken) {
  tarn::BasicAffine affine;
  affine.SetScale(2.0);
  mesh.SetLocalAffine(affine);
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const SbVec3f place = moved(*node->localTransform, node->pointPos->point[0]);
  EXPECT_TRUE(place.equals(SbVec3f(-7.5F, -37.625F, -24.75F), 1e-10F)) << place[0];
}

TEST_F(TarnOIPointMeshSeparatorTest, AnAffineThatCannotBeSetUpLeavesNoTransform) {
  tarn::BasicAffine affine;
  affine.SetScale(-1.0);
  mesh.SetLocalAffine(affine);
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_FALSE(node->localTransform);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(node->pointPos->point[0], shown(points[0]));
}

TEST_F(TarnOIPointMeshSeparatorTest,
       AnAffineThatFailsLaterIsForgottenAndItsTransformLeftWhereItIs) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  tarn::BasicAffine affine;
  affine.SetScale(-1.0);
  mesh.SetLocalAffine(affine);
  node->UpdateLocalTransform(1);
  EXPECT_FALSE(node->localTransform);
  EXPECT_THAT(childTypes(*node), ElementsAre("Transform", "Coordinate3", "PointSet"));
}

TEST_F(TarnOIPointMeshSeparatorTest, AnAffineThatIsNotHandedOutLeavesTheViewOffset) {
  OddMesh odd;
  setPoints(odd, points);
  odd.hasAffine = 1;
  node->SetPointCloudPointMesh(&odd, &dictionary);
  ASSERT_TRUE(node->localTransform);
  EXPECT_EQ(moved(*node->localTransform, node->pointPos->point[0]), shown(points[0]));
  node.reset();
}

TEST_F(TarnOIPointMeshSeparatorTest, WithoutUseOfTheAffineACloudIsDrawnAsStored) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetDoNotUseLocalTransform(1);
  EXPECT_EQ(node->doNotUseLocalTransform, 1);
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(node->pointPos->point[0], shown(points[0]));
}

TEST_F(TarnOIPointMeshSeparatorTest, ATransformThatIsThereStaysUntilTheNextBuild) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->SetDoNotUseLocalTransform(1);
  node->UpdateLocalTransform(1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Transform", "Coordinate3", "PointSet"));
  node->SetMeshData(&mesh);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIPointMeshSeparatorTest, AnUpdateOfTheTransformFollowsTheAffine) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const SoTransform* transform = node->localTransform.get();
  mesh.SetLocalAffine(shift(10, 20, 30));
  node->UpdateLocalTransform(1);
  EXPECT_EQ(node->localTransform.get(), transform);
  EXPECT_THAT(childTypes(*node), ElementsAre("Transform", "Coordinate3", "PointSet"));
  EXPECT_EQ(moved(*transform, node->pointPos->point[0]), SbVec3f(1.0F, -3.875F, -42.5F));
}

TEST_F(TarnOIPointMeshSeparatorTest, AnUpdateInsertsTheTransformOnlyWhenAsked) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->UpdateLocalTransform(0);
  EXPECT_TRUE(node->localTransform);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  node->UpdateLocalTransform(1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Transform", "Coordinate3", "PointSet"));
}

TEST_F(TarnOIPointMeshSeparatorTest, AnUpdateWithoutAffineKeepsATransformThatIsThere) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const SbMatrix before = matrixOf(*node->localTransform);
  mesh.ClearLocalAffine();
  node->UpdateLocalTransform(1);
  EXPECT_TRUE(node->localTransform);
  EXPECT_EQ(matrixOf(*node->localTransform), before);
}

TEST_F(TarnOIPointMeshSeparatorTest, AnUpdateOfAnUnboundNodeDoesNothing) {
  node->UpdateLocalTransform(1);
  EXPECT_FALSE(node->localTransform);
  EXPECT_EQ(node->getNumChildren(), 0);
}

// --- The number of triangles

TEST_F(TarnOIPointMeshSeparatorTest, TheNumberOfTrianglesIsTheMeshs) {
  setTriangles();
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_EQ(node->GetNumTriangles(), 2);
}

TEST_F(TarnOIPointMeshSeparatorTest, TheTrianglesOfAnUnboundNodeAreReported) {
  EXPECT_EQ(node->GetNumTriangles(), 0);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("tarnObject", className, 1254),
                          IsAssertionAt("tarnObject->isA( PointMeshCls )", className, 1255)));
}

TEST_F(TarnOIPointMeshSeparatorTest, TheTrianglesOfAnotherObjectAreReported) {
  tarn::Surface surface;
  node->SetTarnObject(&surface, &dictionary);
  EXPECT_EQ(node->GetNumTriangles(), 0);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("tarnObject->isA( PointMeshCls )", className, 1255)));
  node.reset();
}

// --- Copies

TEST_F(TarnOIPointMeshSeparatorTest, ACopyShowsTheSameMeshAndTakesTheEntryOver) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  const auto copy = copied();
  EXPECT_EQ(copy->GetTarnObject(), &mesh);
  EXPECT_EQ(dictionary.atKey(&mesh), static_cast<SoNode*>(copy.get()));
  EXPECT_THAT(childTypes(*copy), ElementsAre("Transform", "Coordinate3", "PointSet"));
}

TEST_F(TarnOIPointMeshSeparatorTest, TheMembersOfACopyAreItsOwnChildren) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->subHighlight.place(*node, 0);
  node->SetDoNotUseLocalTransform(1);
  const auto copy = copied();
  const auto members = makeNode<OpenMeshNode>(*copy);
  EXPECT_EQ(members->subHighlight.material.get(), copy->getChild(0));
  EXPECT_EQ(members->subHighlight.binding.get(), copy->getChild(1));
  EXPECT_EQ(members->localTransform.get(), copy->getChild(2));
  EXPECT_EQ(members->pointPos.get(), copy->getChild(3));
  EXPECT_NE(members->pointPos.get(), node->pointPos.get());
  EXPECT_EQ(members->doNotUseLocalTransform, 1);
}

TEST_F(TarnOIPointMeshSeparatorTest, CopyConstructionAndAssignmentShareTheMembers) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->subHighlight.place(*node, 0);
  node->colorMaterial = makeNode<SoMaterial>();
  node->colorBinding = makeNode<SoMaterialBinding>();
  node->faceSet = makeNode<SoIndexedFaceSet>();
  node->contourSeparator = makeNode<SoSeparator>();
  node->triangleLookups = std::make_shared<TriangleLookups>();
  node->highlightOn = 1;
  node->doNotUseLocalTransform = 2;
  node->subHighlightColor = tarn::VColor(1, 2, 3);
  const auto constructed = makeNode<OpenMeshNode>(*node);
  const auto assigned = makeNode<OpenMeshNode>();
  *assigned = *node;
  for (const auto& copy : {constructed, assigned}) {
    EXPECT_EQ(copy->GetTarnObject(), &mesh);
    EXPECT_EQ(copy->getNumChildren(), 0);
    EXPECT_EQ(copy->pointPos.get(), node->pointPos.get());
    EXPECT_EQ(copy->faceSet.get(), node->faceSet.get());
    EXPECT_EQ(copy->colorMaterial.get(), node->colorMaterial.get());
    EXPECT_EQ(copy->colorBinding.get(), node->colorBinding.get());
    EXPECT_EQ(copy->localTransform.get(), node->localTransform.get());
    EXPECT_EQ(copy->subHighlight.material.get(), node->subHighlight.material.get());
    EXPECT_EQ(copy->subHighlight.binding.get(), node->subHighlight.binding.get());
    EXPECT_EQ(copy->contourSeparator.get(), node->contourSeparator.get());
    EXPECT_EQ(copy->triangleLookups, node->triangleLookups);
    EXPECT_EQ(copy->highlightOn, 1);
    EXPECT_EQ(copy->doNotUseLocalTransform, 2);
    EXPECT_EQ(copy->subHighlightColor.packed(), node->subHighlightColor.packed());
  }
  EXPECT_EQ(dictionary.atKey(&mesh), static_cast<SoNode*>(node.get()));
}

TEST_F(TarnOIPointMeshSeparatorTest, MembersOutliveChildrenThatAHostTakesOut) {
  mesh.SetLocalAffine(shift(100, 200, 300));
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->removeAllChildren();
  EXPECT_EQ(node->pointPos->point.getNum(), 4);
  node->UpdateLocalTransform(1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Transform"));
}
