#include "nodes/surfaces/TarnOIShapeVertexToMarkSeparator.h"

#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSphere.h>
#include <Inventor/nodes/SoTransform.h>

#include "host/model/Point3DRandom.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class TarnOIShapeVertexToMarkSeparatorTest : public TarnTest {
protected:
  static float radiusOf(const SoGroup& marker) {
    return childOf<SoSphere>(marker).radius.getValue();
  }
  static SbVec3f placeOf(const SoGroup& marker) {
    return childOf<SoTransform>(marker).translation.getValue();
  }

  const tarn::Point3DRandom here{{1.5, -2.25, 30}};
  const tarn::Point3DRandom there{{4, 5, -6}};
  NodeRef<TarnOIShapeVertexToMarkSeparator> marker = makeNode<TarnOIShapeVertexToMarkSeparator>();
};

TEST_F(TarnOIShapeVertexToMarkSeparatorTest, ANewMarkerHasNoChildren) {
  EXPECT_EQ(marker->getNumChildren(), 0);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIShapeVertexToMarkSeparatorTest, ItsFirstPositionBuildsATransformAndASphere) {
  marker->SetVertexPosition(&here);
  EXPECT_THAT(childTypes(*marker), ElementsAre("Transform", "Sphere"));
}

TEST_F(TarnOIShapeVertexToMarkSeparatorTest, ThePositionIsTakenAsItIs) {
  marker->SetVertexPosition(&here);
  EXPECT_EQ(placeOf(*marker), SbVec3f(1.5F, -2.25F, 30.0F));
}

TEST_F(TarnOIShapeVertexToMarkSeparatorTest, TheFirstRadiusIsAPreference) {
  marker->SetVertexPosition(&here);
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(PreferenceRead{PreferenceRead::eDouble, "VertexRadius",
                                         "0.20000000000000001", "ShapeViewer"}));
  EXPECT_EQ(radiusOf(*marker), 0.2F);

  preferences.Set("VertexRadius", "0.75", "ShapeViewer");
  const auto other = makeNode<TarnOIShapeVertexToMarkSeparator>();
  other->SetVertexPosition(&here);
  EXPECT_EQ(radiusOf(*other), 0.75F);
}

TEST_F(TarnOIShapeVertexToMarkSeparatorTest, ALaterPositionMovesItAndKeepsTheRadius) {
  marker->SetVertexPosition(&here);
  const auto before = children(*marker);
  marker->SetRadius(3.5F);
  preferences.takeReads();
  marker->SetVertexPosition(&there);
  EXPECT_EQ(children(*marker), before);
  EXPECT_EQ(placeOf(*marker), SbVec3f(4, 5, -6));
  EXPECT_EQ(radiusOf(*marker), 3.5F);
  EXPECT_THAT(preferences.takeReads(), IsEmpty());
}

TEST_F(TarnOIShapeVertexToMarkSeparatorTest, BeforeThereIsAPositionARadiusDoesNothing) {
  marker->SetRadius(3.5F);
  EXPECT_EQ(marker->getNumChildren(), 0);
  marker->SetVertexPosition(&here);
  EXPECT_EQ(radiusOf(*marker), 0.2F);
}

TEST_F(TarnOIShapeVertexToMarkSeparatorTest, AMissingPositionIsIgnored) {
  marker->SetVertexPosition(nullptr);
  EXPECT_EQ(marker->getNumChildren(), 0);
}

TEST_F(TarnOIShapeVertexToMarkSeparatorTest, ACopyIsMovedAndSizedByItself) {
  marker->SetVertexPosition(&here);
  marker->SetMaterial(new SoMaterial);
  const NodeRef copy(static_cast<TarnOIShapeVertexToMarkSeparator*>(marker->copy()));
  copy->SetVertexPosition(&there);
  copy->SetRadius(3.5F);
  EXPECT_THAT(childTypes(*copy), ElementsAre("Material", "Transform", "Sphere"));
  EXPECT_EQ(placeOf(*copy), SbVec3f(4, 5, -6));
  EXPECT_EQ(radiusOf(*copy), 3.5F);
  EXPECT_EQ(placeOf(*marker), SbVec3f(1.5F, -2.25F, 30.0F));
  EXPECT_EQ(radiusOf(*marker), 0.2F);
}

TEST_F(TarnOIShapeVertexToMarkSeparatorTest, ACopyConstructedMarkerSharesTheNodesWithoutChildren) {
  marker->SetVertexPosition(&here);
  const auto other = makeNode<TarnOIShapeVertexToMarkSeparator>(*marker);
  EXPECT_EQ(other->getNumChildren(), 0);
  other->SetRadius(3.5F);
  EXPECT_EQ(radiusOf(*marker), 3.5F);
}
