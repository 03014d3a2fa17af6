#include "host/model/SurfaceGroup.h"

#include "host/model/Material.h"
#include "host/model/ObjectName.h"
#include "host/model/ObjectPoint.h"
#include "host/model/Project.h"
#include "tests/support/TarnTest.h"

#include <memory>
#include <vector>

using tarn::SurfaceElement;
using tarn::SurfaceGroup;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class SurfaceGroupTest : public TarnTest {
protected:
  std::vector<const tarn::VObject*> vertices() {
    const std::unique_ptr<tarn::VOrdCollect> found(group.GetVertices(&project));
    std::vector<const tarn::VObject*> result;
    for (int i = 0; i < found->size(); ++i) result.push_back(found->at(i));
    return result;
  }

  tarn::Project project;
  SurfaceGroup group;
  tarn::ObjectPoint a, b, c, d;
};

TEST_F(SurfaceGroupTest, AnElementGivesItsThreePoints) {
  const SurfaceElement element(&a, &b, &c);
  const tarn::Feature& feature = element;
  EXPECT_EQ(feature.GetThreeDPoint(0), &a);
  EXPECT_EQ(feature.GetThreeDPoint(1), &b);
  EXPECT_EQ(feature.GetThreeDPoint(2), &c);
}

TEST_F(SurfaceGroupTest, AnElementHasNoOtherPoints) {
  const SurfaceElement element(&a, &b, &c);
  EXPECT_EQ(element.GetThreeDPoint(-1), nullptr);
  EXPECT_EQ(element.GetThreeDPoint(3), nullptr);
  EXPECT_EQ(SurfaceElement().GetThreeDPoint(0), nullptr);
}

TEST_F(SurfaceGroupTest, AnElementIsAFeature) {
  const SurfaceElement element(&a, &b, &c);
  EXPECT_TRUE(element.isA(tarn::FeatureCls));
  EXPECT_EQ(tarn::VClass::find("SurfaceElement"), &tarn::SurfaceElementCls);
}

TEST_F(SurfaceGroupTest, AGroupIsASurface) {
  EXPECT_TRUE(group.isA(tarn::SurfaceCls));
  EXPECT_EQ(tarn::VClass::find("SurfaceGroup"), &tarn::SurfaceGroupCls);
}

TEST_F(SurfaceGroupTest, ANewGroupIsEmptyAndHasNeitherNameNorMaterial) {
  ASSERT_NE(group.GetSelsCollection(0), nullptr);
  EXPECT_EQ(group.GetSelsCollection(0)->size(), 0);
  EXPECT_THAT(vertices(), IsEmpty());
  EXPECT_EQ(group.GetNameObject(), nullptr);
  EXPECT_EQ(group.GetMaterial(), nullptr);
  EXPECT_FALSE(group.IsDoubleSided());
}

TEST_F(SurfaceGroupTest, ListsItsElementsInTheOrderOfAdding) {
  const SurfaceElement& first = group.AddElement(&a, &b, &c);
  const SurfaceElement& second = group.AddElement(&c, &b, &d);
  ASSERT_EQ(group.GetSelsCollection(0)->size(), 2);
  EXPECT_EQ(group.GetSelsCollection(0)->at(0), &first);
  EXPECT_EQ(group.GetSelsCollection(0)->at(1), &second);
  EXPECT_EQ(second.GetThreeDPoint(2), &d);
}

TEST_F(SurfaceGroupTest, ElementsStayWhereTheyAreWhileMoreAreAdded) {
  const SurfaceElement& first = group.AddElement(&a, &b, &c);
  for (int i = 0; i < 10000; ++i) group.AddElement(&c, &b, &d);
  EXPECT_EQ(group.GetSelsCollection(0)->at(0), &first);
  EXPECT_EQ(first.GetThreeDPoint(0), &a);
}

TEST_F(SurfaceGroupTest, ItsVerticesAreDistinctInTheOrderOfTheirFirstUse) {
  group.AddElement(&c, &a, &b);
  group.AddElement(&b, &a, &d);
  group.AddElement(&d, &c, &c);
  EXPECT_THAT(vertices(), ElementsAre(&c, &a, &b, &d));
}

TEST_F(SurfaceGroupTest, AMissingCornerIsNoVertex) {
  group.AddElement(nullptr, &a, &b);
  EXPECT_THAT(vertices(), ElementsAre(&a, &b));
}

TEST_F(SurfaceGroupTest, TheVerticesAreANewCollectionEachTime) {
  group.AddElement(&a, &b, &c);
  const std::unique_ptr<tarn::VOrdCollect> first(group.GetVertices(nullptr));
  group.AddElement(&b, &c, &d);
  const std::unique_ptr<tarn::VOrdCollect> second(group.GetVertices(nullptr));
  EXPECT_EQ(first->size(), 3);
  EXPECT_EQ(second->size(), 4);
}

TEST_F(SurfaceGroupTest, KnowsThePositionsOfTheCornersAmongItsVertices) {
  group.AddElement(&c, &a, &b);
  group.AddElement(&b, nullptr, &d);
  using Corners = SurfaceGroup::Corners;
  ASSERT_NE(group.cornerPositions(), nullptr);
  EXPECT_THAT(*group.cornerPositions(), ElementsAre(Corners{0, 1, 2}, Corners{2, -1, 3}));
}

TEST_F(SurfaceGroupTest, AClassThatDerivesFromItMayAnswerOtherwise) {
  struct Derived : SurfaceGroup {
  } derived;
  derived.AddElement(&a, &b, &c);
  EXPECT_EQ(derived.cornerPositions(), nullptr);
}

TEST_F(SurfaceGroupTest, GivesItsName) {
  tarn::ObjectName wall("wall");
  group.SetNameObject(&wall);
  EXPECT_EQ(group.GetNameObject(), &wall);
}

TEST_F(SurfaceGroupTest, AProjectListsItsGroups) {
  SurfaceGroup& first = project.AddSurfaceGroup();
  SurfaceGroup& second = project.AddSurfaceGroup();
  ASSERT_EQ(project.GetSurfaceGroups().size(), 2);
  EXPECT_EQ(project.GetSurfaceGroups().at(0), &first);
  EXPECT_EQ(project.GetSurfaceGroups().at(1), &second);
}
