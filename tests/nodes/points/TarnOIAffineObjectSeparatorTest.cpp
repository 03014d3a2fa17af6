// What only affine objects do; see PointShapeTest and SphereShapeTest for the rest.
#include "nodes/points/TarnOIAffineObjectSeparator.h"

#include <Inventor/nodes/SoTranslation.h>

#include "host/model/AffineObjectNPoint.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;

class TarnOIAffineObjectSeparatorTest : public TarnTest {
protected:
  const SbVec3f originsPlace{-10.5F, -30.125F, -20.25F};

  tarn::AffineObject noPoint;
  NodeRef<TarnOIAffineObjectSeparator> node = makeNode<TarnOIAffineObjectSeparator>();
};

TEST_F(TarnOIAffineObjectSeparatorTest, AnObjectThatIsNoPointIsReportedAndDrawnAtTheModelsOrigin) {
  node->SetAffineObject(&noPoint, &dictionary);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("point->isA( AffineObjectNPointCls )",
                                                        "TarnOIAffineObjectSeparator")));
  EXPECT_EQ(node->GetTarnObject(), &noPoint);
  EXPECT_EQ(childOf<SoCoordinate3>(*node).point[0], originsPlace);
}

TEST_F(TarnOIAffineObjectSeparatorTest, ASphereOfAnObjectThatIsNoPointIsReportedToo) {
  node->SetSphereSize(2.0F);
  node->SetAffineObject(&noPoint, &dictionary);
  EXPECT_THAT(takeAssertions(), ElementsAre(IsAssertion("point->isA( AffineObjectNPointCls )",
                                                        "TarnOIAffineObjectSeparator")));
  EXPECT_EQ(childOf<SoTranslation>(*node).translation.getValue(), originsPlace);
}

TEST_F(TarnOIAffineObjectSeparatorTest, ThePlaceIsThePositionAsTheHostAnswersIt) {
  struct Answering : tarn::AffineObjectNPoint {
    tarn::Point3DDouble GetPosition() const override { return {11.5, -18.25, 33.125}; }
  } answering;
  node->SetAffineObject(&answering, &dictionary);
  EXPECT_EQ(childOf<SoCoordinate3>(*node).point[0], SbVec3f(1, 3, -2));
  node.reset();
}
