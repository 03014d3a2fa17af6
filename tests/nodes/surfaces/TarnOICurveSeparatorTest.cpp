#include "nodes/surfaces/TarnOICurveSeparator.h"

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoLineSet.h>

#include "host/model/NURBSCurve.h"
#include "host/model/Project.h"
#include "nodes/framework/NodeRef.h"
#include "tests/support/Children.h"
#include "tests/support/SignalCount.h"
#include "tests/support/TarnTest.h"

#include <deque>

using ::testing::ElementsAre;
using ::testing::ElementsAreArray;
using ::testing::IsEmpty;

namespace {

/// A curve that answers with points of the test's choice and records what it was asked.
class GivenCurve : public tarn::NURBSCurve {
public:
  tarn::VOrdCollect* Tess3D(double tolerance, tarn::VOrdCollect** knotPoints) override {
    tolerances.push_back(tolerance);
    nullWasPassed = !knotPoints;
    return answers ? &all : nullptr;
  }
  void setPoints(const std::vector<tarn::Point3DDouble>& positions) {
    all.clear();
    points.clear();
    for (const auto& position : positions) {
      points.emplace_back().SetApproximation(tarn::Point3DRandom(position));
      all.add(&points.back());
    }
  }

  std::vector<double> tolerances;
  bool nullWasPassed = false;
  bool answers = true;
  std::deque<tarn::ThreeDPoint> points;
  tarn::VOrdCollect all;
};

}  // namespace

class TarnOICurveSeparatorTest : public TarnTest {
protected:
  TarnOICurveSeparatorTest() { curve.setPoints({{1, 20, 3}, {5, 4, 35}, {7, 8, 9}}); }
  void show(tarn::Project* project = nullptr) { node->SetCurve(&curve, &dictionary, project); }
  static std::vector<std::int32_t> countsOf(const SoGroup& shown) {
    const SoMFInt32& counts = childOf<SoLineSet>(shown).numVertices;
    return {counts.getValues(0), counts.getValues(0) + counts.getNum()};
  }

  const SbVec3f first{-9.5F, -27.125F, -40.25F};
  const SbVec3f second{-5.5F, 4.875F, -24.25F};
  const SbVec3f third{-3.5F, -21.125F, -28.25F};

  GivenCurve curve;
  NodeRef<TarnOICurveSeparator> node = makeNode<TarnOICurveSeparator>();
};

TEST_F(TarnOICurveSeparatorTest, IsOnePolylineThroughAllPoints) {
  show();
  ASSERT_THAT(childTypes(*node), ElementsAre("Coordinate3", "LineSet"));
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(first, second, third));
  EXPECT_THAT(countsOf(*node), ElementsAre(3));
}

TEST_F(TarnOICurveSeparatorTest, BindsTheCurve) {
  show();
  EXPECT_EQ(node->GetTarnObject(), &curve);
  EXPECT_EQ(dictionary.atKey(&curve), node.get());
}

TEST_F(TarnOICurveSeparatorTest, WithoutAProjectTheToleranceIsAPercentageOfOneUnit) {
  show();
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(PreferenceRead{PreferenceRead::eDouble, "CurveTessTolPercent",
                                         "0.029999999999999999", "Curve"}));
  preferences.Set("CurveTessTolPercent", "2.5", "Curve");
  show();
  EXPECT_THAT(curve.tolerances, ElementsAre(0.03 / 100.0, 0.025));
  EXPECT_TRUE(curve.nullWasPassed);
}

TEST_F(TarnOICurveSeparatorTest, ThePercentageDoesNotFollowTheCurvesSize) {
  curve.setPoints({{0, 0, 0}, {4000, 0, 0}});
  show();
  EXPECT_THAT(curve.tolerances, ElementsAre(0.03 / 100.0));
}

TEST_F(TarnOICurveSeparatorTest, WithAProjectItsToleranceIsTakenAndNoPreferenceRead) {
  tarn::Project project;
  project.SetCurveTesselationTolerance(0.625);
  show(&project);
  EXPECT_THAT(curve.tolerances, ElementsAre(0.625));
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOICurveSeparatorTest, ACurveWithoutPointsBuildsNothing) {
  curve.answers = false;
  show();
  EXPECT_EQ(node->getNumChildren(), 0);
  EXPECT_EQ(dictionary.atKey(&curve), node.get());
}

TEST_F(TarnOICurveSeparatorTest, ACurveThatHasNoPointsAnyMoreChangesNothing) {
  show();
  curve.answers = false;
  show();
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(first, second, third));
  EXPECT_THAT(countsOf(*node), ElementsAre(3));
}

TEST_F(TarnOICurveSeparatorTest, ShownAgainTheNodesAreKept) {
  show();
  const auto before = children(*node);
  curve.setPoints({{5, 4, 35}, {1, 20, 3}, {7, 8, 9}, {5, 4, 35}});
  show();
  EXPECT_THAT(children(*node), ElementsAreArray(before));
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(second, first, third, second));
  EXPECT_THAT(countsOf(*node), ElementsAre(4));
}

TEST_F(TarnOICurveSeparatorTest, PointsOfALongerCurveStayAndAreNotDrawn) {
  show();
  curve.setPoints({{7, 8, 9}, {1, 20, 3}});
  show();
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(third, first, third));
  EXPECT_THAT(countsOf(*node), ElementsAre(2));
}

TEST_F(TarnOICurveSeparatorTest, LinesThatAHostAddedToTheSetAreDropped) {
  show();
  static_cast<SoLineSet*>(node->getChild(1))->numVertices.set1Value(1, 2);
  show();
  EXPECT_THAT(countsOf(*node), ElementsAre(3));
}

TEST_F(TarnOICurveSeparatorTest, TheLastCoordinatesAndLineSetAreTheCurves) {
  show();
  auto strangers = makeNode<SoCoordinate3>();
  node->insertChild(strangers.get(), 0);
  node->insertChild(new SoLineSet, 1);
  curve.setPoints({{5, 4, 35}});
  show();
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(SbVec3f(0, 0, 0)));
  EXPECT_THAT(coordinates(*node, 2), ElementsAre(second, second, third));
  EXPECT_EQ(static_cast<SoLineSet*>(node->getChild(1))->numVertices[0], -1);
  EXPECT_EQ(static_cast<SoLineSet*>(node->getChild(3))->numVertices[0], 1);
}

TEST_F(TarnOICurveSeparatorTest, ChildrenWithoutCoordinatesAreReportedAndTheCountIsSet) {
  node->addChild(new SoLineSet);
  show();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("curvePos && curveSet", "TarnOICurveSeparator", 149)));
  EXPECT_THAT(childTypes(*node), ElementsAre("LineSet"));
  EXPECT_THAT(countsOf(*node), ElementsAre(3));
}

TEST_F(TarnOICurveSeparatorTest, ChildrenWithoutALineSetAreReportedAndThePointsAreWritten) {
  node->addChild(new SoCoordinate3);
  node->addChild(new SoCube);
  show();
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertionAt("curvePos && curveSet", "TarnOICurveSeparator", 149)));
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "Cube"));
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(first, second, third));
}

TEST_F(TarnOICurveSeparatorTest, APointWithoutPositionIsDrawnAtTheOneBeforeWithoutAReport) {
  tarn::ThreeDPoint nowhere;
  curve.all.add(&nowhere);
  show();
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(first, second, third, third));
}

TEST_F(TarnOICurveSeparatorTest, FarFromTheOriginTheOffsetIsTakenOffBeforeNarrowing) {
  tarn::gThreeDViewOffset = {4512345.0, 5512345.0, 345.0};
  curve.setPoints({{4512345.125, 5512347.25, 348.5}, {4512349.125, 5512343.25, 356.5}});
  show();
  EXPECT_THAT(coordinates(*node, 0),
              ElementsAre(SbVec3f(0.125F, 3.5F, -2.25F), SbVec3f(4.125F, 11.5F, 1.75F)));
}

TEST_F(TarnOICurveSeparatorTest, ATrueCurveIsDrawnToTheTolerance) {
  tarn::NURBSCurve quarter;
  ASSERT_TRUE(quarter.SetCurve(
      2, {0, 0, 0, 1, 1, 1},
      {viewOffset + tarn::Point3DDouble(1, 0, 0), viewOffset + tarn::Point3DDouble(1, 1, 0),
       viewOffset + tarn::Point3DDouble(0, 1, 0)},
      {1, std::sqrt(0.5), 1}));
  tarn::Project project;
  project.SetCurveTesselationTolerance(0.01);
  node->SetCurve(&quarter, &dictionary, &project);
  const auto points = coordinates(*node, 0);
  ASSERT_GE(points.size(), 6U);
  EXPECT_LE(points.size(), 8U);
  for (const SbVec3f& point : points) EXPECT_NEAR(point.length(), 1.0F, 1e-6F);
  EXPECT_EQ(points.front(), SbVec3f(1, 0, 0));
  EXPECT_EQ(points.back(), SbVec3f(0, 0, -1));
  node.reset();
}

TEST_F(TarnOICurveSeparatorTest, ACopyIsTessellatedAnewAtThePreferencesTolerance) {
  tarn::Project project;
  project.SetCurveTesselationTolerance(0.625);
  show(&project);
  curve.setPoints({{7, 8, 9}, {1, 20, 3}});
  const NodeRef<SoGroup> copy(static_cast<SoGroup*>(node->copy()));
  EXPECT_THAT(curve.tolerances, ElementsAre(0.625, 0.03 / 100.0));
  EXPECT_EQ(dictionary.atKey(&curve), copy.get());
  EXPECT_THAT(coordinates(*copy, 0), ElementsAre(third, first, third));
  EXPECT_THAT(countsOf(*copy), ElementsAre(2));
  EXPECT_THAT(coordinates(*node, 0), ElementsAre(first, second, third));
}

TEST_F(TarnOICurveSeparatorTest, ACopyOfANodeThatShowsNothingIsEmpty) {
  const NodeRef<SoGroup> copy(static_cast<SoGroup*>(node->copy()));
  EXPECT_EQ(copy->getNumChildren(), 0);
  EXPECT_THAT(curve.tolerances, IsEmpty());
}

TEST_F(TarnOICurveSeparatorTest, CopyConstructionSharesTheBindingAndMakesNoEntry) {
  show();
  const auto copy = makeNode<TarnOICurveSeparator>(*node);
  EXPECT_EQ(copy->GetTarnObject(), &curve);
  EXPECT_EQ(copy->getNumChildren(), 0);
  EXPECT_EQ(dictionary.atKey(&curve), node.get());
}

TEST_F(TarnOICurveSeparatorTest, NullOnlyUnbinds) {
  show();
  node->SetCurve(nullptr, &dictionary, nullptr);
  EXPECT_EQ(node->GetTarnObject(), nullptr);
  EXPECT_EQ(node->getNumChildren(), 2);
}

TEST_F(TarnOICurveSeparatorTest, EachShowingIsSignalledOnce) {
  auto parent = makeNode<SoSeparator>();
  parent->addChild(node.get());
  SignalCount signals(parent.get());
  show();
  EXPECT_EQ(signals.count(), 1);
  curve.setPoints({{7, 8, 9}, {1, 20, 3}});
  show();
  EXPECT_EQ(signals.count(), 2);
}
