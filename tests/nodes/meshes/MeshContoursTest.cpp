#include "nodes/meshes/MeshContours.h"

#include <Inventor/SbColor.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/model/PointMeshContour.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

const PreferenceRead fixedColor{PreferenceRead::eBool, "ContoursUseFixedColor", "1", "DenseStereo"};
const PreferenceRead contourColor{PreferenceRead::eColour, "ContourColor(RRRGGGBBB_0-255)",
                                  "000128128", "DenseStereo"};
const PreferenceRead includePoints{PreferenceRead::eBool, "IncludePointsInContours", "0",
                                   "DenseStereo"};

}  // namespace

class MeshContoursTest : public TarnTest {
protected:
  MeshContoursTest() {
    contour.SetPoints(std::vector<tarn::Point3DDouble>{{1.5, 2.25, -3.75}, {4, 5, 6}, {7, -8, 9}});
  }

  const SoMFVec3f& vertices(int child = 0) const {
    return static_cast<SoCoordinate3*>(separator->getChild(child))->point;
  }

  tarn::PointMeshContour contour;
  NodeRef<SoSeparator> separator = makeNode<SoSeparator>();
};

TEST_F(MeshContoursTest, TheSeparatorHasAMaterialOfTheContourColour) {
  const NodeRef<SoSeparator> made = MeshContours::makeSeparator();
  ASSERT_THAT(childTypes(*made), ElementsAre("Material"));
  const auto* material = static_cast<SoMaterial*>(made->getChild(0));
  EXPECT_EQ(material->diffuseColor[0], SbColor(0, 128 / 255.0F, 128 / 255.0F));
  EXPECT_TRUE(material->ambientColor.isDefault());
  EXPECT_THAT(preferences.takeReads(), ElementsAre(fixedColor, contourColor));
}

TEST_F(MeshContoursTest, TheColoursThirdStoredByteIsRed) {
  preferences.Set("ContourColor(RRRGGGBBB_0-255)", "051102255", "DenseStereo");
  EXPECT_EQ(MeshContours::preferredColor(), SbColor(0.2F, 0.4F, 1.0F));
}

TEST_F(MeshContoursTest, WithoutAFixedColourTheSeparatorIsEmpty) {
  preferences.Set("ContoursUseFixedColor", "0", "DenseStereo");
  EXPECT_THAT(childTypes(*MeshContours::makeSeparator()), IsEmpty());
  EXPECT_THAT(preferences.takeReads(), ElementsAre(fixedColor));
}

TEST_F(MeshContoursTest, EachContourAppendsItsOwnNodes) {
  MeshContours::append(*separator, contour);
  EXPECT_THAT(preferences.takeReads(), ElementsAre(includePoints));
  preferences.Set("IncludePointsInContours", "1", "DenseStereo");
  MeshContours::append(*separator, contour);
  EXPECT_THAT(childTypes(*separator),
              ElementsAre("Coordinate3", "LineSet", "Coordinate3", "PointSet", "LineSet"));
}

TEST_F(MeshContoursTest, TheLineSetHasItsDefaultFields) {
  MeshContours::append(*separator, contour);
  EXPECT_TRUE(static_cast<SoLineSet*>(separator->getChild(1))->numVertices.isDefault());
}

TEST_F(MeshContoursTest, PointsStandInTheViewerFrame) {
  MeshContours::append(*separator, contour);
  ASSERT_EQ(vertices().getNum(), 4);
  EXPECT_EQ(vertices()[0], SbVec3f(-9.0F, -33.875F, -22.5F));
  EXPECT_EQ(vertices()[1], SbVec3f(-6.5F, -24.125F, -25.25F));
  EXPECT_EQ(vertices()[2], SbVec3f(-3.5F, -21.125F, -12.25F));
}

TEST_F(MeshContoursTest, TheClosingVertexIsTheFirstPointWithoutTheOffset) {
  MeshContours::append(*separator, contour);
  EXPECT_EQ(vertices()[3], SbVec3f(1.5F, -3.75F, -2.25F));
}

TEST_F(MeshContoursTest, XAndZAreNarrowedBeforeTheOffsetIsTakenOffAndYIsNot) {
  tarn::gThreeDViewOffset = {4512345.0, 4512345.0, 4512345.0};
  const double far = 4512345.123;  // floats are 0.5 apart there
  // Many points: the narrowing must outlast vectorised loops.
  contour.SetPoints(std::vector<tarn::Point3DDouble>(100, {far, far, far}));
  MeshContours::append(*separator, contour);
  for (int i = 0; i < 100; ++i) {
    EXPECT_EQ(vertices()[i][0], 0.0F) << i;
    EXPECT_EQ(vertices()[i][1], 0.0F) << i;
    EXPECT_FLOAT_EQ(vertices()[i][2], -0.123F) << i;
  }
}

TEST_F(MeshContoursTest, AContourWithoutPointsHasNoCoordinates) {
  MeshContours::append(*separator, tarn::PointMeshContour());
  EXPECT_THAT(childTypes(*separator), ElementsAre("Coordinate3", "LineSet"));
  EXPECT_EQ(vertices().getNum(), 0);
}

TEST_F(MeshContoursTest, OnePointIsClosedToo) {
  contour.SetPoints(std::vector<tarn::Point3DDouble>{{1.5, 2.25, -3.75}});
  MeshContours::append(*separator, contour);
  ASSERT_EQ(vertices().getNum(), 2);
  EXPECT_EQ(vertices()[1], SbVec3f(1.5F, -3.75F, -2.25F));
}
