#include "nodes/surfaces/TarnOIShapeEdgeSeparator.h"

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSphere.h>
#include <Inventor/nodes/SoTransform.h>

#include "host/model/Shape.h"
#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TarnOIShapeEdgeSeparatorTest : public TarnTest {
protected:
  static constexpr const char* className = "TarnOIShapeEdgeSeparator";
  using Marker = TarnOIShapeVertexToMarkSeparator;

  void set() { node->SetShapeEdge(&edge, &dictionary); }
  void move(tarn::ShapeVertex& vertex, const tarn::Point3DDouble& to) {
    vertex.SetApproximation(tarn::Point3DRandom(to));
  }
  static std::vector<SbVec3f> endsOf(const SoGroup& of) { return coordinates(of, 0); }

  // The markers that are shown.
  static std::vector<Marker*> markersOf(const SoGroup& of) {
    std::vector<Marker*> result;
    for (SoNode* child : children(of)) {
      if (child->isOfType(Marker::getClassTypeId())) result.push_back(static_cast<Marker*>(child));
    }
    return result;
  }
  static SbVec3f placeOf(const Marker* marker) {
    return childOf<SoTransform>(*marker).translation.getValue();
  }
  static float radiusOf(const Marker* marker) {
    return childOf<SoSphere>(*marker).radius.getValue();
  }

  const SbVec3f start{-9.5F, -27.125F, -40.25F};
  const SbVec3f end{-5.5F, 4.875F, -24.25F};
  // The model's origin, as the fixture's view offset shows it.
  const SbVec3f origin{-10.5F, -30.125F, -20.25F};

  tarn::Shape shape;
  tarn::ShapeVertex& first = shape.AddVertex({1, 20, 3});
  tarn::ShapeVertex& second = shape.AddVertex({5, 4, 35});
  tarn::ShapeEdge& edge = shape.AddEdge(&first, &second);
  tarn::ShapeEdge alone;  // of no shape
  NodeRef<TarnOIShapeEdgeSeparator> node = makeNode<TarnOIShapeEdgeSeparator>();
};

TEST_F(TarnOIShapeEdgeSeparatorTest, IsASegmentBetweenItsCorners) {
  set();
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "LineSet"));
  EXPECT_THAT(endsOf(*node), ElementsAre(start, end));
  const auto& lines = childOf<SoLineSet>(*node);
  EXPECT_EQ(lines.numVertices.getNum(), 1);
  EXPECT_EQ(lines.numVertices[0], 2);
  EXPECT_EQ(node->GetTarnObject(), &edge);
  EXPECT_EQ(dictionary.atKey(&edge), node.get());
}

TEST_F(TarnOIShapeEdgeSeparatorTest, CalledAgainItMovesEndsAndMarkersAndSignalsOnce) {
  set();
  node->ShowVertices(0, 1.5F);
  const auto before = children(*node);
  move(first, {5, 4, 35});
  SignalCount signals(node.get());
  set();
  EXPECT_EQ(children(*node), before);
  EXPECT_THAT(endsOf(*node), ElementsAre(end, end));
  EXPECT_EQ(placeOf(markersOf(*node).at(0)), end);
  EXPECT_EQ(radiusOf(markersOf(*node).at(0)), 1.5F);
  EXPECT_EQ(signals.count(), 1);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, TheFirstCoordinatesAreThoseOfTheEnds) {
  set();
  node->addChild(new SoCoordinate3);
  move(first, {5, 4, 35});
  set();
  EXPECT_THAT(endsOf(*node), ElementsAre(end, end));
}

TEST_F(TarnOIShapeEdgeSeparatorTest, ChildrenWithoutCoordinatesAreReported) {
  node->addChild(new SoCube);
  set();
  EXPECT_THAT(
      takeAssertions(),
      ElementsAre(IsAssertionAt("node->getTypeId().isDerivedFrom(SoCoordinate3::getClassTypeId() )",
                                className, 124)));
  EXPECT_EQ(node->getNumChildren(), 1);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, AMissingCornerIsReportedAndStandsAtTheModelsOrigin) {
  edge.SetVertices(nullptr, &second);
  set();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("shapeEdgeToSet->GetVertex(0)", className, 149)));
  EXPECT_THAT(endsOf(*node), ElementsAre(origin, end));
  edge.SetVertices(&first, nullptr);
  set();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("shapeEdgeToSet->GetVertex(1)", className, 150)));
  EXPECT_THAT(endsOf(*node), ElementsAre(start, origin));
}

TEST_F(TarnOIShapeEdgeSeparatorTest, ACornerWithoutPositionIsReportedAndStandsAtTheModelsOrigin) {
  tarn::ShapeVertex nowhere;
  edge.SetVertices(&nowhere, &second);
  set();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("shapeEdgeToSet->GetVertex(0)->GetApproximation( pt1 )",
                                        className, 153)));
  EXPECT_THAT(endsOf(*node), ElementsAre(origin, end));
  edge.SetVertices(&first, &nowhere);
  set();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("shapeEdgeToSet->GetVertex(1)->GetApproximation( pt2 )",
                                        className, 154)));
  EXPECT_THAT(endsOf(*node), ElementsAre(start, origin));
}

TEST_F(TarnOIShapeEdgeSeparatorTest, NullOnlyUnbinds) {
  set();
  node->SetShapeEdge(nullptr, &dictionary);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.size(), 0);
  EXPECT_THAT(endsOf(*node), ElementsAre(start, end));
}

TEST_F(TarnOIShapeEdgeSeparatorTest, ZeroShowsTheMarkersAtTheEnds) {
  set();
  EXPECT_THAT(markersOf(*node), IsEmpty());
  node->ShowVertices(0, 1.5F);
  EXPECT_EQ(node->getNumChildren(), 4);
  const auto markers = markersOf(*node);
  ASSERT_EQ(markers.size(), 2U);
  EXPECT_EQ(placeOf(markers[0]), start);
  EXPECT_EQ(placeOf(markers[1]), end);
  EXPECT_EQ(radiusOf(markers[0]), 1.5F);
  EXPECT_EQ(radiusOf(markers[1]), 1.5F);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, NonZeroHidesTheMarkersAndKeepsThem) {
  set();
  node->ShowVertices(0, 1.5F);
  const auto shown = markersOf(*node);
  node->ShowVertices(1, 9.0F);
  EXPECT_EQ(node->getNumChildren(), 2);
  EXPECT_EQ(radiusOf(shown.at(0)), 1.5F);
  node->ShowVertices(0, 2.5F);
  EXPECT_EQ(markersOf(*node), shown);
  EXPECT_EQ(radiusOf(shown.at(1)), 2.5F);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, MarkersAreShownAndHiddenOnceOnly) {
  set();
  node->ShowVertices(1, 1.5F);
  EXPECT_EQ(node->getNumChildren(), 2);
  node->ShowVertices(0, 1.5F);
  node->ShowVertices(0, 1.5F);
  EXPECT_EQ(markersOf(*node).size(), 2U);
  node->ShowVertices(1, 1.5F);
  node->ShowVertices(1, 1.5F);
  EXPECT_EQ(node->getNumChildren(), 2);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, HiddenMarkersMoveToo) {
  set();
  move(second, {1, 20, 3});
  set();
  node->ShowVertices(0, 1.5F);
  EXPECT_EQ(placeOf(markersOf(*node).at(1)), start);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, MarkersLiveAsLongAsTheNode) {
  set();
  node->ShowVertices(0, 1.5F);
  const auto before = markersOf(*node);
  node->removeAllChildren();
  set();
  EXPECT_EQ(node->getNumChildren(), 2);
  node->ShowVertices(0, 1.5F);
  EXPECT_EQ(markersOf(*node), before);
  const NodeRef held(before.at(0));
  node.reset();
  EXPECT_EQ(held->getRefCount(), 1);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, WithoutAnEdgeThereAreNoMarkersToShow) {
  node->ShowVertices(0, 1.5F);
  node->ShowVertices(1, 1.5F);
  EXPECT_EQ(node->getNumChildren(), 0);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, AMarkerGetsItsMaterialAndASizeRelativeToTheShape) {
  set();
  node->ShowVertices(0, 1.5F);
  const auto markers = markersOf(*node);
  const auto red = makeNode<SoMaterial>();
  node->SetVertexMaterialAndSize(red.get(), 0.125, 1);
  EXPECT_EQ(markers[0]->getChild(0), red.get());
  EXPECT_EQ(radiusOf(markers[0]), 4.0F) << "the shape is 32 high";
  EXPECT_EQ(markers[1]->findChild(red.get()), -1);
  EXPECT_EQ(radiusOf(markers[1]), 1.5F);
  node->SetVertexMaterialAndSize(red.get(), 0.25, 2);
  EXPECT_EQ(markers[1]->getChild(0), red.get());
  EXPECT_EQ(radiusOf(markers[1]), 8.0F);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, AHiddenMarkerIsColouredAndSizedToo) {
  set();
  const auto red = makeNode<SoMaterial>();
  node->SetVertexMaterialAndSize(red.get(), 0.125, 1);
  node->ShowVertices(0, 1.5F);
  EXPECT_EQ(markersOf(*node).at(0)->getChild(0), red.get());
}

TEST_F(TarnOIShapeEdgeSeparatorTest, AnyOtherMarkerIsReportedAndNothingChanges) {
  set();
  node->ShowVertices(0, 1.5F);
  const auto red = makeNode<SoMaterial>();
  for (const int which : {0, 3}) {
    node->SetVertexMaterialAndSize(red.get(), 0.125, which);
    EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertionAt("0", className, 232)));
  }
  for (const Marker* marker : markersOf(*node)) {
    EXPECT_EQ(marker->findChild(red.get()), -1);
    EXPECT_EQ(radiusOf(marker), 1.5F);
  }
}

TEST_F(TarnOIShapeEdgeSeparatorTest, ColouringWithoutAnEdgeIsReported) {
  const auto red = makeNode<SoMaterial>();
  node->SetVertexMaterialAndSize(red.get(), 0.125, 1);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertionAt("tarnObject", className, 217)));
}

TEST_F(TarnOIShapeEdgeSeparatorTest, AfterThatReportTheMaterialIsSetAndTheSizeStays) {
  set();
  node->ShowVertices(0, 1.5F);
  node->SetShapeEdge(nullptr, &dictionary);
  const auto red = makeNode<SoMaterial>();
  node->SetVertexMaterialAndSize(red.get(), 0.125, 2);
  node->SetVertexMaterialAndSize(red.get(), 0.125, 3);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertionAt("tarnObject", className, 217),
                                            IsAssertionAt("tarnObject", className, 217),
                                            IsAssertionAt("0", className, 232)));
  const Marker* marker = markersOf(*node).at(1);
  EXPECT_EQ(marker->getChild(0), red.get());
  EXPECT_EQ(radiusOf(marker), 1.5F);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, TheSizeIsAskedForAsKindZeroAndNarrowedAfterTheFactor) {
  struct HostShape : tarn::Shape {
    double GetMaxSize(int kind) const override { return kind == 0 ? 0.1 : 1000.0; }
  } ofHost;
  node->SetShapeEdge(&ofHost.AddEdge(&first, &second), &dictionary);
  node->ShowVertices(0, 1.5F);
  ASSERT_NE(static_cast<float>(0.1 * 0.3), 0.1F * 0.3F);
  node->SetVertexMaterialAndSize(nullptr, 0.3, 1);
  EXPECT_EQ(radiusOf(markersOf(*node).at(0)), static_cast<float>(0.1 * 0.3));
  node.reset();  // before its edge
}

TEST_F(TarnOIShapeEdgeSeparatorTest, OfAnEdgeWithoutAShapeTheSizeStays) {
  alone.SetVertices(&first, &second);
  node->SetShapeEdge(&alone, &dictionary);
  node->ShowVertices(0, 1.5F);
  const auto red = makeNode<SoMaterial>();
  node->SetVertexMaterialAndSize(red.get(), 0.125, 1);
  const Marker* marker = markersOf(*node).at(0);
  EXPECT_EQ(marker->getChild(0), red.get());
  EXPECT_EQ(radiusOf(marker), 1.5F);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, ACopyIsSetFromTheModelAnew) {
  set();
  move(first, {5, 4, 35});
  const NodeRef copy(static_cast<TarnOIShapeEdgeSeparator*>(node->copy()));
  EXPECT_EQ(copy->GetTarnObject(), &edge);
  EXPECT_EQ(dictionary.atKey(&edge), copy.get());
  EXPECT_THAT(endsOf(*copy), ElementsAre(end, end));
  EXPECT_THAT(endsOf(*node), ElementsAre(start, end));
}

TEST_F(TarnOIShapeEdgeSeparatorTest, ACopyHasNoMarkers) {
  set();
  const NodeRef copy(static_cast<TarnOIShapeEdgeSeparator*>(node->copy()));
  copy->ShowVertices(0, 1.5F);
  copy->SetVertexMaterialAndSize(makeNode<SoMaterial>().get(), 0.125, 1);
  copy->SetShapeEdge(&edge, &dictionary);
  EXPECT_EQ(copy->getNumChildren(), 2);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, ACopyOfShownMarkersIsAPictureOfThem) {
  set();
  node->ShowVertices(0, 1.5F);
  const NodeRef copy(static_cast<TarnOIShapeEdgeSeparator*>(node->copy()));
  const auto pictures = markersOf(*copy);
  ASSERT_EQ(pictures.size(), 2U);
  move(first, {5, 4, 35});
  copy->SetShapeEdge(&edge, &dictionary);
  copy->ShowVertices(1, 1.5F);
  EXPECT_EQ(markersOf(*copy), pictures);
  EXPECT_EQ(placeOf(pictures[0]), start);
  EXPECT_EQ(placeOf(markersOf(*node).at(0)), start) << "the original's marker was moved";
}

TEST_F(TarnOIShapeEdgeSeparatorTest, CopyConstructionSharesTheMarkersAndMakesNoEntry) {
  set();
  node->ShowVertices(0, 1.5F);
  const auto markers = markersOf(*node);
  const auto other = makeNode<TarnOIShapeEdgeSeparator>(*node);
  EXPECT_EQ(other->GetTarnObject(), &edge);
  EXPECT_EQ(dictionary.atKey(&edge), node.get());
  EXPECT_EQ(other->getNumChildren(), 0);
  other->ShowVertices(0, 2.5F);
  EXPECT_EQ(markersOf(*other), markers);
  EXPECT_EQ(radiusOf(markers.at(0)), 2.5F);
}

TEST_F(TarnOIShapeEdgeSeparatorTest, ACopyOfANodeThatShowsNothingIsEmpty) {
  const NodeRef<SoGroup> copy(static_cast<SoGroup*>(node->copy()));
  EXPECT_EQ(copy->getNumChildren(), 0);
}
