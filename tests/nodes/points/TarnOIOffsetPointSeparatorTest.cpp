// What only offset points do; see PointShapeTest and PointLabelTest for the rest.
#include "nodes/points/TarnOIOffsetPointSeparator.h"

#include "host/model/ObjectPoint.h"
#include "host/model/OffsetPoint.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TarnOIOffsetPointSeparatorTest : public TarnTest {
protected:
  TarnOIOffsetPointSeparatorTest() {
    from.SetNumber(7);
    from.SetApproximation(tarn::Point3DRandom({1.5, 2.25, -3.75}));
    point.SetOffset(&from, {10.0, 20.0, 30.0});
  }

  std::string label(int showNumber = 1) {
    return TarnOIOffsetPointSeparator::GetTextLable(showNumber, 0, &point).str();
  }

  tarn::ObjectPoint from;
  tarn::OffsetPoint point;
};

TEST_F(TarnOIOffsetPointSeparatorTest, TheNumberOfTheObjectPointFollowsThePrefix) {
  EXPECT_EQ(label(), "Offset 7");
}

TEST_F(TarnOIOffsetPointSeparatorTest, ThePrefixIsTheOnePreferredAndReadForEachLabel) {
  const PreferenceRead prefix{PreferenceRead::eText, "OffsetPrefix", "Offset ", "3DViewer"};
  label();
  EXPECT_THAT(preferences.takeReads(), ElementsAre(prefix));
  preferences.Set("OffsetPrefix", "o%d", "3DViewer");
  EXPECT_EQ(label(), "o%d7");
  EXPECT_THAT(preferences.takeReads(), ElementsAre(prefix));
}

TEST_F(TarnOIOffsetPointSeparatorTest, WithoutANumberToShowThereIsNoLabelNorAQuestion) {
  EXPECT_EQ(label(0), "");
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIOffsetPointSeparatorTest, ALargeNumberIsWrittenInFull) {
  from.SetNumber(12345678901L);
  EXPECT_EQ(label(), "Offset 12345678901");
}

TEST_F(TarnOIOffsetPointSeparatorTest, WithoutAnObjectPointThereIsNoLabel) {
  point.SetOffset(nullptr, {});
  EXPECT_EQ(label(), "");
}

TEST_F(TarnOIOffsetPointSeparatorTest, BuildingReadsNoPreference) {
  const auto node = makeNode<TarnOIOffsetPointSeparator>();
  node->SetOffsetPoint(&point, &dictionary);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIOffsetPointSeparatorTest, PointAndLabelStandAtTheOffsetFromTheObjectPoint) {
  const auto node = makeNode<TarnOIOffsetPointSeparator>();
  node->SetOffsetPoint(&point, &dictionary);
  node->UpdateTextLable(1, 0);
  const SbVec3f place(1.0F, -3.875F, -42.5F);  // (11.5, 22.25, 26.25) less the view offset
  EXPECT_EQ(childOf<SoCoordinate3>(*node).point[0], place);
  EXPECT_EQ(childOf<SoTransform>(*node).translation.getValue(), place);
}

TEST_F(TarnOIOffsetPointSeparatorTest, TheLabelOfAPointWithoutPositionStandsAtTheModelsOrigin) {
  const auto node = makeNode<TarnOIOffsetPointSeparator>();
  tarn::ObjectPoint nowhere;
  nowhere.SetNumber(8);
  point.SetOffset(&nowhere, {});
  node->SetTarnObject(&point, &dictionary);
  node->UpdateTextLable(1, 0);
  EXPECT_EQ(childOf<SoTransform>(*node).translation.getValue(), SbVec3f(-10.5F, -30.125F, -20.25F));
}

TEST_F(TarnOIOffsetPointSeparatorTest, ANodeBoundToSomethingElseGetsNoLabel) {
  const auto node = makeNode<TarnOIOffsetPointSeparator>();
  node->SetTarnObject(&from, &dictionary);
  node->UpdateTextLable(1, 0);
  EXPECT_EQ(node->getNumChildren(), 0);
}
