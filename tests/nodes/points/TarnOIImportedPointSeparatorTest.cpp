// What only imported points do; see PointShapeTest, SphereShapeTest and PointLabelTest for
// the rest.
#include "nodes/points/TarnOIImportedPointSeparator.h"

#include <Inventor/nodes/SoTranslation.h>

#include "host/model/ImportedPoint.h"
#include "host/model/ObjectPoint.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TarnOIImportedPointSeparatorTest : public TarnTest {
protected:
  TarnOIImportedPointSeparatorTest() {
    point.SetIDNumber(4);
    point.SetName("P4");
    point.SetStoredPosition(tarn::Point3DRandom({1.5, 2.25, -3.75}));
  }

  std::string label(int showNumber = 1) {
    return TarnOIImportedPointSeparator::GetTextLable(showNumber, 0, &point).str();
  }
  void preferLabel(const char* choice) { preferences.Set("DisplayNameAndID", choice, "Control"); }
  SbVec3f pointsPlace() const { return childOf<SoCoordinate3>(*node).point[0]; }
  SbVec3f labelsPlace() const { return childOf<SoTransform>(*node).translation.getValue(); }

  const SbVec3f storedPlace{-9.0F, -33.875F, -22.5F};
  const SbVec3f originsPlace{-10.5F, -30.125F, -20.25F};

  tarn::ImportedPoint point;
  NodeRef<TarnOIImportedPointSeparator> node = makeNode<TarnOIImportedPointSeparator>();
};

TEST_F(TarnOIImportedPointSeparatorTest, TheLabelIsNumberAndNameByDefault) {
  EXPECT_EQ(label(), "4:P4");
}

TEST_F(TarnOIImportedPointSeparatorTest, TheLabelIsNumberAndNameForZero) {
  preferLabel("0");
  EXPECT_EQ(label(), "4:P4");
}

TEST_F(TarnOIImportedPointSeparatorTest, TheLabelIsTheNameForOne) {
  preferLabel("1");
  EXPECT_EQ(label(), "P4");
}

TEST_F(TarnOIImportedPointSeparatorTest, TheLabelIsTheNumberForAnyOtherChoice) {
  for (const char* choice : {"2", "3", "-1"}) {
    preferLabel(choice);
    EXPECT_EQ(label(), "4") << choice;
  }
}

TEST_F(TarnOIImportedPointSeparatorTest, TheChoiceIsReadForEachLabel) {
  const PreferenceRead choice{PreferenceRead::eInt, "DisplayNameAndID", "0", "Control"};
  label();
  label();
  EXPECT_THAT(preferences.takeReads(), ElementsAre(choice, choice));
}

TEST_F(TarnOIImportedPointSeparatorTest, WithoutANumberToShowThereIsNoLabelNorAQuestion) {
  EXPECT_EQ(label(0), "");
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIImportedPointSeparatorTest, ANameWithFormatCharactersStandsAsItIs) {
  point.SetName("50%s%n");
  EXPECT_EQ(label(), "4:50%s%n");
}

TEST_F(TarnOIImportedPointSeparatorTest, APointWithoutNameKeepsTheColon) {
  point.SetName("");
  EXPECT_EQ(label(), "4:");
}

TEST_F(TarnOIImportedPointSeparatorTest, ALabelOfAnEmptyNameAloneIsNone) {
  preferLabel("1");
  point.SetName("");
  node->SetImportedPoint(&point, &dictionary);
  node->UpdateTextLable(1, 0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIImportedPointSeparatorTest, AnAdjustedPositionGoesBeforeTheStoredOne) {
  point.SetApproximation(tarn::Point3DRandom({11.5, -18.25, 33.125}));
  node->SetImportedPoint(&point, &dictionary);
  node->UpdateTextLable(1, 0);
  EXPECT_EQ(pointsPlace(), SbVec3f(1, 3, -2));
  EXPECT_EQ(labelsPlace(), SbVec3f(1, 3, -2));
}

TEST_F(TarnOIImportedPointSeparatorTest, AnInactivePointStandsWhereItWasImported) {
  point.SetActive(0);
  node->SetImportedPoint(&point, &dictionary);
  EXPECT_EQ(pointsPlace(), storedPlace);
}

TEST_F(TarnOIImportedPointSeparatorTest, TheSphereOfAnInactivePointStandsWhereItWasImported) {
  point.SetActive(0);
  node->SetSphereSize(0.5F);
  node->SetImportedPoint(&point, &dictionary);
  EXPECT_EQ(childOf<SoTranslation>(*node).translation.getValue(), storedPlace);
}

TEST_F(TarnOIImportedPointSeparatorTest, TheLabelOfAnInactivePointStandsAtTheModelsOrigin) {
  point.SetActive(0);
  node->SetImportedPoint(&point, &dictionary);
  node->UpdateTextLable(1, 0);
  EXPECT_EQ(labelsPlace(), originsPlace) << "unlike the point: hosts rely on it";
}

TEST_F(TarnOIImportedPointSeparatorTest,
       AnActivePointWithoutPositionIsReportedAndStandsAtItsStore) {
  struct Answering : tarn::ImportedPoint {
    mutable int asked = 0;
    int GetApproximation(tarn::Point3DRandom&) const override { return 0; }
    int IsActive(int orLinked) const override {
      asked = orLinked;
      return 1;
    }
  } answering;
  answering.SetStoredPosition(tarn::Point3DRandom({1.5, 2.25, -3.75}));
  node->SetImportedPoint(&answering, &dictionary);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("!point->IsActive( TRUE )", "TarnOIImportedPointSeparator")));
  EXPECT_EQ(answering.asked, 1);
  EXPECT_EQ(pointsPlace(), storedPlace);
  node->SetSphereSize(0.5F);
  node->SetImportedPoint(nullptr, &dictionary);
  node->SetImportedPoint(&answering, &dictionary);
  EXPECT_THAT(takeAssertions(),
              ElementsAre(IsAssertion("!point->IsActive( TRUE )", "TarnOIImportedPointSeparator")));
  node.reset();
}

TEST_F(TarnOIImportedPointSeparatorTest, ALabelAfterASphereKeepsThePointsPositionInItsTransform) {
  node->SetSphereSize(0.5F);
  node->SetImportedPoint(&point, &dictionary);
  node->UpdateTextLable(1, 0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Translation", "Sphere", "Transform", "TarnOIText2"));
  EXPECT_EQ(labelsPlace(), storedPlace);
}

TEST_F(TarnOIImportedPointSeparatorTest, ASphereForgetsTheLabelUntilItsNextUpdate) {
  node->SetImportedPoint(&point, &dictionary);
  node->UpdateTextLable(1, 0);
  const NodeRef<TarnOIText2> former(&childOf<TarnOIText2>(*node));
  node->SetSphereSize(0.5F);
  node->SetImportedPoint(&point, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Translation", "Sphere"));
  EXPECT_EQ(former->getRefCount(), 1);
  node->UpdateTextLable(1, 0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Translation", "Sphere", "Transform", "TarnOIText2"));
  EXPECT_NE(&childOf<TarnOIText2>(*node), former.get());
}

TEST_F(TarnOIImportedPointSeparatorTest, ASphereHandsOutNoPointSet) {
  node->SetImportedPoint(&point, &dictionary);
  node->SetSphereSize(0.5F);
  node->SetImportedPoint(&point, &dictionary);
  auto* coordinate = reinterpret_cast<SoCoordinate3*>(1);
  auto* shape = reinterpret_cast<SoPointSet*>(1);
  node->GetPointSet(&coordinate, &shape);
  EXPECT_EQ(coordinate, nullptr);
  EXPECT_EQ(shape, nullptr);
}

TEST_F(TarnOIImportedPointSeparatorTest, ANodeBoundToSomethingElseGetsNoLabel) {
  tarn::ObjectPoint objectPoint;
  node->SetTarnObject(&objectPoint, &dictionary);
  node->UpdateTextLable(1, 0);
  EXPECT_EQ(node->getNumChildren(), 0);
  node.reset();
}
