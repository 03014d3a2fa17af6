#include "nodes/surfaces/TarnOIShapeVertexSeparator.h"

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPointSet.h>

#include "host/model/ShapeVertex.h"
#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;

class TarnOIShapeVertexSeparatorTest : public TarnTest {
protected:
  TarnOIShapeVertexSeparatorTest() {
    vertex.SetApproximation(tarn::Point3DRandom({1, 20, 3}));
    other.SetApproximation(tarn::Point3DRandom({5, 4, 35}));
  }

  const SbVec3f place{-9.5F, -27.125F, -40.25F};
  const SbVec3f othersPlace{-5.5F, 4.875F, -24.25F};
  // The model's origin, as the fixture's view offset shows it.
  const SbVec3f origin{-10.5F, -30.125F, -20.25F};

  tarn::ShapeVertex vertex;
  tarn::ShapeVertex other;
  tarn::ShapeVertex nowhere;
  NodeRef<TarnOIShapeVertexSeparator> node = makeNode<TarnOIShapeVertexSeparator>();
};

TEST_F(TarnOIShapeVertexSeparatorTest, IsOnePointInTheViewerFrame) {
  node->SetShapeVertex(&vertex, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(place));
  EXPECT_EQ(node->GetTarnObject(), &vertex);
  EXPECT_EQ(dictionary.atKey(&vertex), node.get());
}

TEST_F(TarnOIShapeVertexSeparatorTest, ACornerWithoutPositionStandsAtTheModelsOriginUnreported) {
  node->SetShapeVertex(&nowhere, &dictionary);
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(origin));
}

TEST_F(TarnOIShapeVertexSeparatorTest, CalledAgainItMovesThePointAndSignalsOnce) {
  node->SetShapeVertex(&vertex, &dictionary);
  const auto before = children(*node);
  SignalCount signals(node.get());
  node->SetShapeVertex(&other, &dictionary);
  EXPECT_EQ(children(*node), before);
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(othersPlace));
  EXPECT_EQ(signals.count(), 1);
}

TEST_F(TarnOIShapeVertexSeparatorTest, CalledAgainItKeepsTheMaterialInFront) {
  node->SetShapeVertex(&vertex, &dictionary);
  node->SetMaterial(new SoMaterial);
  node->SetShapeVertex(&other, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "Coordinate3", "PointSet"));
  EXPECT_THAT(coordinates(*node, 1), ElementsAre(othersPlace));
}

TEST_F(TarnOIShapeVertexSeparatorTest, CalledAgainItWritesIntoTheLastCoordinates) {
  node->SetShapeVertex(&vertex, &dictionary);
  node->addChild(new SoCoordinate3);
  node->SetShapeVertex(&other, &dictionary);
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(place));
  EXPECT_THAT(coordinates(*node, 2), ElementsAre(othersPlace));
}

TEST_F(TarnOIShapeVertexSeparatorTest, ChildrenWithoutCoordinatesAreReported) {
  node->addChild(new SoCube);
  node->SetShapeVertex(&vertex, &dictionary);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("pointPos", "TarnOIShapeVertexSeparator", 109)));
  EXPECT_EQ(node->getNumChildren(), 1);
}

TEST_F(TarnOIShapeVertexSeparatorTest, NullOnlyUnbinds) {
  node->SetShapeVertex(&vertex, &dictionary);
  node->SetShapeVertex(nullptr, &dictionary);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.size(), 0);
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(place));
}

TEST_F(TarnOIShapeVertexSeparatorTest, ACopyIsBoundToNothing) {
  node->SetShapeVertex(&vertex, &dictionary);
  NodeRef copy(static_cast<TarnOIShapeVertexSeparator*>(node->copy()));
  EXPECT_EQ(copy->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.atKey(&vertex), node.get());
  EXPECT_THAT(coordinates(*copy, 0), ElementsAre(place));
  copy.reset();
  EXPECT_EQ(dictionary.atKey(&vertex), node.get()) << "it removed an entry that was not its own";
}

TEST_F(TarnOIShapeVertexSeparatorTest, ACopyIsMovedByItself) {
  node->SetShapeVertex(&vertex, &dictionary);
  const NodeRef copy(static_cast<TarnOIShapeVertexSeparator*>(node->copy()));
  copy->SetShapeVertex(&other, &dictionary);
  EXPECT_THAT(childTypes(*copy), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_THAT(coordinates(*copy, 0), ElementsAre(othersPlace));
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(place));
}
