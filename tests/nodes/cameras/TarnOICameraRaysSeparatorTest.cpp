#include "nodes/cameras/TarnOICameraRaysSeparator.h"

#include <Inventor/SoPath.h>

#include "nodes/framework/TarnOISearchAction.h"
#include "tests/nodes/cameras/RaysFixture.h"
#include "tests/support/SignalCount.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class TarnOICameraRaysSeparatorTest : public RaysFixture {
protected:
  std::vector<Ray> rays() const { return raysOf(*node); }

  tarn::Photograph& photograph = photographs[0];
  NodeRef<TarnOICameraRaysSeparator> node = makeNode<TarnOICameraRaysSeparator>();
};

TEST_F(TarnOICameraRaysSeparatorTest, EachMarkedPointGivesCoordinatesAndALineInTheOrderOfTheMarks) {
  mark(points[1], photograph);
  mark(points[0], photograph);
  node->SetRays(&photograph, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "LineSet", "Coordinate3", "LineSet"));
  EXPECT_THAT(rays(), ElementsAre(Pair(stationsShown[0], pointsShown[1]),
                                  Pair(stationsShown[0], pointsShown[0])));
}

TEST_F(TarnOICameraRaysSeparatorTest, LargeCoordinatesLoseNothingBeforeTheOffsetIsTakenOff) {
  tarn::gThreeDViewOffset = {4512345.0, 512345.0, 345.0};
  place(points[0], {4512345.123, 512346.456, 347.789});
  stations[0].SetOrientation({4512346.5, 512343.25, 346.125}, tarn::MatrixDouble::Identity(3));
  mark(points[0], photograph);
  node->SetRays(&photograph, &dictionary);
  ASSERT_EQ(rays().size(), 1U);
  EXPECT_EQ(rays()[0].first, SbVec3f(1.5F, 1.125F, 1.75F));
  EXPECT_FLOAT_EQ(rays()[0].second[0], 0.123F);
  EXPECT_FLOAT_EQ(rays()[0].second[1], 2.789F);
  EXPECT_FLOAT_EQ(rays()[0].second[2], -1.456F);
}

TEST_F(TarnOICameraRaysSeparatorTest, APhotographWithoutMarksGivesANodeWithoutChildren) {
  node->SetRays(&photograph, &dictionary);
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_EQ(node->GetTarnObject(), &photograph);
}

TEST_F(TarnOICameraRaysSeparatorTest, AStationThatIsNotOrientedHasItsRays) {
  stations[0].SetOriented(0);
  mark(points[0], photograph);
  node->SetRays(&photograph, &dictionary);
  EXPECT_THAT(rays(), ElementsAre(Pair(stationsShown[0], pointsShown[0])));
}

TEST_F(TarnOICameraRaysSeparatorTest, MarksWithoutAUsablePointAreLeftOut) {
  tarn::ObjectPoint unprocessed;
  unprocessed.SetApproximation(tarn::Point3DRandom({1, 2, 3}));
  tarn::ObjectPoint nowhere;
  nowhere.SetProcessed(1);
  photograph.AddMarkedPoint({3.0, 4.0});  // not referenced
  mark(unprocessed, photograph);
  mark(nowhere, photograph);
  mark(points[1], photograph);
  node->SetRays(&photograph, &dictionary);
  EXPECT_THAT(rays(), ElementsAre(Pair(stationsShown[0], pointsShown[1])));
}

TEST_F(TarnOICameraRaysSeparatorTest, APointMarkedTwiceHasTwoRays) {
  mark(points[0], photograph);
  mark(points[0], photograph);
  node->SetRays(&photograph, &dictionary);
  EXPECT_EQ(rays().size(), 2U);
}

TEST_F(TarnOICameraRaysSeparatorTest, APhotographWithoutStationHasNoRays) {
  mark(points[0], photograph);
  photograph.SetCameraStation(nullptr);
  node->SetRays(&photograph, &dictionary);
  EXPECT_EQ(node->getNumChildren(), 0);
}

TEST_F(TarnOICameraRaysSeparatorTest, SettingTwiceDoublesEveryRay) {
  mark(points[0], photograph);
  mark(points[1], photograph);
  node->SetRays(&photograph, &dictionary);
  const auto before = children(*node);
  node->SetRays(&photograph, &dictionary);
  const Ray first(stationsShown[0], pointsShown[0]);
  const Ray second(stationsShown[0], pointsShown[1]);
  EXPECT_THAT(rays(), ElementsAre(first, second, first, second));
  EXPECT_EQ(std::vector<SoNode*>(before),
            std::vector<SoNode*>(
                {node->getChild(0), node->getChild(1), node->getChild(2), node->getChild(3)}));
}

TEST_F(TarnOICameraRaysSeparatorTest, UpdatingAppendsTheRaysAndWithZeroChangesNothing) {
  mark(points[0], photograph);
  node->SetRays(&photograph, &dictionary);
  node->UpdateRays(0);
  EXPECT_EQ(rays().size(), 1U);
  node->UpdateRays(1);
  EXPECT_EQ(rays().size(), 2U);
}

TEST_F(TarnOICameraRaysSeparatorTest, AnotherPhotographsRaysAreAddedToThoseThatAreThere) {
  mark(points[0], photographs[0]);
  mark(points[0], photographs[1]);
  node->SetRays(&photographs[0], &dictionary);
  node->SetRays(&photographs[1], &dictionary);
  EXPECT_THAT(rays(), ElementsAre(Pair(stationsShown[0], pointsShown[0]),
                                  Pair(stationsShown[1], pointsShown[0])));
  EXPECT_EQ(dictionary.atKey(&photographs[0]), nullptr);
  EXPECT_EQ(dictionary.atKey(&photographs[1]), static_cast<SoNode*>(node.get()));
}

TEST_F(TarnOICameraRaysSeparatorTest, NullUnbindsAndAddsNothing) {
  mark(points[0], photograph);
  node->SetRays(&photograph, &dictionary);
  node->SetRays(nullptr, &dictionary);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(dictionary.size(), 0);
  EXPECT_EQ(rays().size(), 1U);
}

TEST_F(TarnOICameraRaysSeparatorTest, AnUnboundNodeAndOneOfSomethingElseHaveNoRays) {
  mark(points[0], photograph);
  node->UpdateRays(1);
  EXPECT_EQ(node->getNumChildren(), 0);
  node->SetTarnObject(&points[0], &dictionary);
  node->UpdateRays(1);
  EXPECT_EQ(node->getNumChildren(), 0);
}

TEST_F(TarnOICameraRaysSeparatorTest, TheHostsCollectionIsAskedForWithItsSelectionCodes) {
  struct Answering : tarn::Photograph {
    mutable std::vector<std::pair<int, int>> asked;
    tarn::VOrdCollect backwards;
    const tarn::VOrdCollect& GetAllMarkedPoints(int selection, int referenced) const override {
      asked.emplace_back(selection, referenced);
      return backwards;
    }
  } answering;
  struct AskedPoint : tarn::ObjectPoint {
    mutable std::vector<int> asked;
    int HasUsablePosition(int processedOnly) const override {
      asked.push_back(processedOnly);
      return tarn::ObjectPoint::HasUsablePosition(processedOnly);
    }
  } point;
  place(point, {11.5, -18.25, 33.125});
  answering.SetCameraStation(&stations[1]);
  tarn::MarkedPoint& first = answering.AddMarkedPoint({1, 2});
  tarn::MarkedPoint& second = answering.AddMarkedPoint({3, 4});
  points[1].AddMarkedPoint(&first);
  point.AddMarkedPoint(&second);
  answering.backwards.add(&second);
  answering.backwards.add(&first);
  node->SetRays(&answering, &dictionary);
  EXPECT_THAT(answering.asked, ElementsAre(Pair(0, 1)));
  EXPECT_THAT(point.asked, ElementsAre(1));
  EXPECT_THAT(rays(), ElementsAre(Pair(stationsShown[1], pointsShown[0]),
                                  Pair(stationsShown[1], pointsShown[1])));
  node.reset();
}

TEST_F(TarnOICameraRaysSeparatorTest, AllRaysAreSignalledOnce) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(node.get());
  mark(points[0], photograph);
  mark(points[1], photograph);
  SignalCount signals(parent.get());
  node->SetRays(&photograph, &dictionary);
  EXPECT_EQ(signals.count(), 1);
  node->UpdateRays(0);
  EXPECT_EQ(signals.count(), 1);
}

TEST_F(TarnOICameraRaysSeparatorTest, ASearchForThePhotographFindsItsRays) {
  node->SetRays(&photograph, &dictionary);
  EXPECT_EQ(dictionary.atKey(&photograph), static_cast<SoNode*>(node.get()));
  TarnOISearchAction search;
  search.SetTarnObject(&photograph);
  search.apply(node.get());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), node.get());
}

TEST_F(TarnOICameraRaysSeparatorTest, ACopyHasRaysOfItsOwnAndIsNotBound) {
  mark(points[0], photograph);
  node->SetRays(&photograph, &dictionary);
  const NodeRef<TarnOICameraRaysSeparator> copy(
      static_cast<TarnOICameraRaysSeparator*>(node->copy()));
  EXPECT_EQ(copy->GetTarnObject(), nullptr);
  EXPECT_EQ(raysOf(*copy), rays());
  EXPECT_NE(copy->getChild(0), node->getChild(0));
  EXPECT_EQ(dictionary.atKey(&photograph), static_cast<SoNode*>(node.get()));
}

TEST_F(TarnOICameraRaysSeparatorTest, CopyConstructionAndAssignmentMakeNoEntryAndTakeNoRays) {
  mark(points[0], photograph);
  node->SetRays(&photograph, &dictionary);
  dictionary.takeChanges();
  const auto constructed = makeNode<TarnOICameraRaysSeparator>(*node);
  const auto assigned = makeNode<TarnOICameraRaysSeparator>();
  *assigned = *node;
  for (const auto& copy : {constructed, assigned}) {
    EXPECT_EQ(copy->GetTarnObject(), &photograph);
    EXPECT_EQ(copy->getNumChildren(), 0);
  }
  EXPECT_THAT(dictionary.takeChanges(), IsEmpty());
}
