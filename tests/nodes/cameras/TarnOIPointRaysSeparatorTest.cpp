#include "nodes/cameras/TarnOIPointRaysSeparator.h"

#include <Inventor/SoPath.h>

#include "nodes/framework/TarnOISearchAction.h"
#include "tests/nodes/cameras/RaysFixture.h"
#include "tests/support/SignalCount.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

namespace {

// A collection that says when it is deleted.
struct CountedCollection : tarn::VOrdCollect {
  explicit CountedCollection(int& deleted) : deleted(deleted) {}
  ~CountedCollection() override { ++deleted; }
  int& deleted;
};

// Answers from a model of its own, as an application may.
struct AnsweringPoint : tarn::ObjectPoint {
  std::vector<tarn::Photograph*> shown;
  mutable std::vector<int> askedForPhotographs;
  mutable std::vector<int> askedForPosition;
  mutable int deleted = 0;

  int HasUsablePosition(int processedOnly) const override {
    askedForPosition.push_back(processedOnly);
    return tarn::ObjectPoint::HasUsablePosition(processedOnly);
  }
  tarn::VOrdCollect* GetPhotographs(int selection) const override {
    askedForPhotographs.push_back(selection);
    auto* all = new CountedCollection(deleted);
    for (tarn::Photograph* photograph : shown) all->add(photograph);
    return all;
  }
};

}  // namespace

class TarnOIPointRaysSeparatorTest : public RaysFixture {
protected:
  std::vector<Ray> rays() const { return raysOf(*node); }

  tarn::ObjectPoint& point = points[0];
  AnsweringPoint answering;
  NodeRef<TarnOIPointRaysSeparator> node = makeNode<TarnOIPointRaysSeparator>();
};

TEST_F(TarnOIPointRaysSeparatorTest, EachPhotographGivesCoordinatesAndALineInTheOrderOfTheTrack) {
  mark(point, photographs[1]);
  mark(point, photographs[0]);
  node->SetRays(&point, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "LineSet", "Coordinate3", "LineSet"));
  EXPECT_THAT(rays(), ElementsAre(Pair(pointsShown[0], stationsShown[1]),
                                  Pair(pointsShown[0], stationsShown[0])));
}

TEST_F(TarnOIPointRaysSeparatorTest, TheNodeIsBoundToTheRaysAndNotToThePoint) {
  node->SetRays(&point, &dictionary);
  EXPECT_EQ(node->GetTarnObject(), point.GetRay3D());
  EXPECT_EQ(dictionary.atKey(point.GetRay3D()), static_cast<SoNode*>(node.get()));
  EXPECT_EQ(dictionary.atKey(&point), nullptr);
}

TEST_F(TarnOIPointRaysSeparatorTest, ASearchFindsItByTheRaysAndNotByThePoint) {
  node->SetRays(&point, &dictionary);
  TarnOISearchAction search;
  search.SetTarnObject(point.GetRay3D());
  search.apply(node.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), node.get());
  search.reset();
  search.SetTarnObject(&point);
  search.apply(node.get());
  EXPECT_EQ(search.getPath(), nullptr);
}

TEST_F(TarnOIPointRaysSeparatorTest, StationsThatAreNotOrientedOrMissingAreLeftOut) {
  tarn::Photograph loose;
  stations[0].SetOriented(0);
  mark(point, photographs[0]);
  mark(point, loose);
  mark(point, photographs[1]);
  node->SetRays(&point, &dictionary);
  EXPECT_THAT(rays(), ElementsAre(Pair(pointsShown[0], stationsShown[1])));
}

TEST_F(TarnOIPointRaysSeparatorTest, APointWithoutMarksHasNoRays) {
  node->SetRays(&point, &dictionary);
  EXPECT_EQ(node->getNumChildren(), 0);
}

TEST_F(TarnOIPointRaysSeparatorTest, APointMarkedTwiceOnAPhotographHasOneRayToItsStation) {
  mark(point, photographs[0]);
  mark(point, photographs[0]);
  node->SetRays(&point, &dictionary);
  EXPECT_EQ(rays().size(), 1U);
}

TEST_F(TarnOIPointRaysSeparatorTest, APointThatWasNotProcessedHasNoRaysButIsBound) {
  point.SetProcessed(0);
  mark(point, photographs[0]);
  node->SetRays(&point, &dictionary);
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_EQ(node->GetTarnObject(), point.GetRay3D());
}

TEST_F(TarnOIPointRaysSeparatorTest, SettingTwiceDoublesEveryRay) {
  mark(point, photographs[0]);
  mark(point, photographs[1]);
  node->SetRays(&point, &dictionary);
  node->SetRays(&point, &dictionary);
  const Ray first(pointsShown[0], stationsShown[0]);
  const Ray second(pointsShown[0], stationsShown[1]);
  EXPECT_THAT(rays(), ElementsAre(first, second, first, second));
}

TEST_F(TarnOIPointRaysSeparatorTest, UpdatingAppendsTheRaysAndWithZeroChangesNothing) {
  mark(point, photographs[0]);
  node->SetRays(&point, &dictionary);
  node->UpdateRays(0);
  EXPECT_EQ(rays().size(), 1U);
  node->UpdateRays(1);
  EXPECT_EQ(rays().size(), 2U);
}

TEST_F(TarnOIPointRaysSeparatorTest, NullUnbindsAndAddsNothing) {
  mark(point, photographs[0]);
  node->SetRays(&point, &dictionary);
  node->SetRays(nullptr, &dictionary);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.size(), 0);
  EXPECT_EQ(rays().size(), 1U);
}

TEST_F(TarnOIPointRaysSeparatorTest, AnUnboundNodeAndRaysWithoutAPointHaveNone) {
  const tarn::Ray3D without;
  node->UpdateRays(1);
  node->SetTarnObject(const_cast<tarn::Ray3D*>(&without), &dictionary);
  node->UpdateRays(1);
  node->SetTarnObject(&point, &dictionary);
  node->UpdateRays(1);
  EXPECT_EQ(node->getNumChildren(), 0);
  node.reset();
}

TEST_F(TarnOIPointRaysSeparatorTest, TheHostsCollectionIsAskedForWithItsCodeAndDeleted) {
  place(answering, {11.5, -18.25, 33.125});
  answering.shown = {&photographs[1], &photographs[0], &photographs[1]};
  node->SetRays(&answering, &dictionary);
  EXPECT_THAT(answering.askedForPhotographs, ElementsAre(4));
  EXPECT_THAT(answering.askedForPosition, ElementsAre(1));
  EXPECT_EQ(answering.deleted, 1);
  EXPECT_THAT(rays(), ElementsAre(Pair(pointsShown[0], stationsShown[1]),
                                  Pair(pointsShown[0], stationsShown[0]),
                                  Pair(pointsShown[0], stationsShown[1])));
}

TEST_F(TarnOIPointRaysSeparatorTest, AHostWithoutACollectionHasNoRays) {
  struct Silent : tarn::ObjectPoint {
    tarn::VOrdCollect* GetPhotographs(int) const override { return nullptr; }
  } silent;
  place(silent, {11.5, -18.25, 33.125});
  node->SetRays(&silent, &dictionary);
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_EQ(node->GetTarnObject(), silent.GetRay3D());
  node.reset();
}

TEST_F(TarnOIPointRaysSeparatorTest, AllRaysAreSignalledOnce) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(node.get());
  mark(point, photographs[0]);
  mark(point, photographs[1]);
  SignalCount signals(parent.get());
  node->SetRays(&point, &dictionary);
  EXPECT_EQ(signals.count(), 1);
}

TEST_F(TarnOIPointRaysSeparatorTest, ACopyHasRaysOfItsOwnAndIsNotBound) {
  mark(point, photographs[0]);
  node->SetRays(&point, &dictionary);
  const NodeRef<TarnOIPointRaysSeparator> copy(
      static_cast<TarnOIPointRaysSeparator*>(node->copy()));
  EXPECT_EQ(copy->GetTarnObject(), nullptr);
  EXPECT_EQ(raysOf(*copy), rays());
  EXPECT_NE(copy->getChild(0), node->getChild(0));
}

TEST_F(TarnOIPointRaysSeparatorTest, CopyConstructionAndAssignmentMakeNoEntryAndTakeNoRays) {
  mark(point, photographs[0]);
  node->SetRays(&point, &dictionary);
  dictionary.takeChanges();
  const auto constructed = makeNode<TarnOIPointRaysSeparator>(*node);
  const auto assigned = makeNode<TarnOIPointRaysSeparator>();
  *assigned = *node;
  for (const auto& copy : {constructed, assigned}) {
    EXPECT_EQ(copy->GetTarnObject(), point.GetRay3D());
    EXPECT_EQ(copy->getNumChildren(), 0);
  }
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}
