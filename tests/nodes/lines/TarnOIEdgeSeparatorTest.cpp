#include "nodes/lines/TarnOIEdgeSeparator.h"

#include "host/model/Edge.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

using tarn::Point3DDouble;
using ::testing::ElementsAre;

namespace {

// The node with its protected function open.
struct OpenNode : TarnOIEdgeSeparator {
  using TarnOIEdgeSeparator::AddExtension;
};

}  // namespace

/// What is an edge's alone; StraightFeatureTest has what lines and edges do alike.
class TarnOIEdgeSeparatorTest : public TarnTest {
protected:
  std::vector<SbVec3f> ends(int child) const { return coordinates(*node, child); }

  // The model's origin, as the fixture's view offset shows it.
  const SbVec3f origin{-10.5F, -30.125F, -20.25F};

  tarn::Edge edge;
  NodeRef<OpenNode> node = makeNode<OpenNode>();
};

TEST_F(TarnOIEdgeSeparatorTest, AnEdgeWithoutPositionsIsDrawnAtTheModelsOrigin) {
  edge.SetThreeDExtenstionFactor(2.0);
  node->SetEdge(&edge, &dictionary);
  EXPECT_THAT(ends(0), ElementsAre(origin, origin));
  EXPECT_THAT(ends(2), ElementsAre(origin, origin));
}

TEST_F(TarnOIEdgeSeparatorTest, PositionsAreTakenFromAnEdgeThatDeniesToHaveThem) {
  struct Denying : tarn::Edge {
    int GetPointsForm(Point3DDouble& p0, Point3DDouble& p1) const override {
      p0 = {10.5, 0, 30.125};
      p1 = {14.5, 0, 30.125};
      return 0;
    }
  } denying;
  denying.SetThreeDExtenstionFactor(1.5);
  node->SetEdge(&denying, &dictionary);
  EXPECT_THAT(ends(0), ElementsAre(SbVec3f(0, 0, -20.25F), SbVec3f(4, 0, -20.25F)));
  EXPECT_THAT(ends(2), ElementsAre(SbVec3f(-1, 0, -20.25F), SbVec3f(5, 0, -20.25F)));
  node.reset();
}

TEST_F(TarnOIEdgeSeparatorTest, AnEndThatTheEdgeLeavesAloneIsDrawnAtTheModelsOrigin) {
  struct HalfMeasured : tarn::Edge {
    int GetPointsForm(Point3DDouble&, Point3DDouble& p1) const override {
      p1 = {14.5, 0, 30.125};
      return 1;
    }
  } half;
  node->SetEdge(&half, &dictionary);
  EXPECT_THAT(ends(0), ElementsAre(origin, SbVec3f(4, 0, -20.25F)));
  node.reset();
}

TEST_F(TarnOIEdgeSeparatorTest, ADerivedClassMayAddTheExtensionByItself) {
  edge.SetPointsForm({1, 20, 3}, {5, 4, 35});
  edge.SetThreeDExtenstionFactor(1.5);
  node->AddExtension(&edge);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "DrawStyle", "LineSet"));
  EXPECT_THAT(ends(0),
              ElementsAre(SbVec3f(-10.5F, -35.125F, -44.25F), SbVec3f(-4.5F, 12.875F, -20.25F)));
}
