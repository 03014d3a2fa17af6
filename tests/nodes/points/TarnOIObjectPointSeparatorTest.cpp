#include "nodes/points/TarnOIObjectPointSeparator.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoMarkerSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPointSet.h>

#include "host/model/ObjectPoint.h"
#include "nodes/framework/ViewerFrame.h"
#include "tests/support/TarnTest.h"

using ::testing::ElementsAre;

namespace {
std::vector<std::string> childTypes(const SoGroup& node) {
  std::vector<std::string> result;
  for (int i = 0; i < node.getNumChildren(); ++i) {
    result.emplace_back(node.getChild(i)->getTypeId().getName().getString());
  }
  return result;
}
}  // namespace

class TarnOIObjectPointSeparatorTest : public TarnTest {
protected:
  TarnOIObjectPointSeparatorTest() {
    point.SetNumber(12);
    point.SetApproximation(tarn::Point3DRandom(position));
  }

  static constexpr tarn::Point3DDouble position{1.5, 2.25, -3.75};
  tarn::ObjectPoint point;
  NodeRef<TarnOIObjectPointSeparator> node = makeNode<TarnOIObjectPointSeparator>();
};

TEST_F(TarnOIObjectPointSeparatorTest, PlainPointHasACoordinateAndAPointSet) {
  node->SetObjectPoint(&point, &dictionary, 0, 0);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(TarnOIObjectPointSeparatorTest, MarkerAndColourGiveMaterialCoordinateAndMarkerSet) {
  point.SetRGBTextureColor(tarn::Colour(10, 20, 30));
  node->SetObjectPoint(&point, &dictionary, 1, 1);
  EXPECT_THAT(childTypes(*node), ElementsAre("Material", "Coordinate3", "MarkerSet"));
}
