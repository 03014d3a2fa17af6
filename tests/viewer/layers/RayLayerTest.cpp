#include "viewer/layers/RayLayer.h"

#include <Inventor/nodes/SoLineSet.h>

#include "host/model/Project.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "tests/support/NodesBelow.h"
#include "tests/support/SyntheticScene.h"
#include "tests/support/TarnTest.h"
#include "viewer/layers/SceneContext.h"

class RayLayerTest : public TarnTest {
protected:
  RayLayerTest() { SyntheticScene().addTo(project); }

  int lines() const { return static_cast<int>(nodesBelow<SoLineSet>(layer.root()).size()); }
  tarn::ObjectPoint& point(int i) {
    return *static_cast<tarn::ObjectPoint*>(project.GetObjectPoints().at(i));
  }
  tarn::CameraStation& station(int i) {
    return *static_cast<tarn::CameraStation*>(project.GetCameraStations().at(i));
  }
  int marks(int i) { return static_cast<int>(point(i).GetMarkedPoints().size()); }

  tarn::Project project;
  SceneContext context{{}};
  RayLayer layer{context};
};

TEST_F(RayLayerTest, PointHasARayToEachStationThatSawIt) {
  EXPECT_EQ(lines(), 0);
  layer.add(point(0));
  EXPECT_EQ(lines(), marks(0));
  EXPECT_TRUE(layer.shows(point(0)));
  EXPECT_FALSE(layer.shows(point(1)));
  layer.add(point(1));
  EXPECT_EQ(lines(), marks(0) + marks(1));
}

TEST_F(RayLayerTest, StationHasARayToEachPointThatItSaw) {
  int seen = 0;
  for (int i = 0; i < project.GetObjectPoints().size(); ++i) {
    for (const tarn::MarkedPoint* mark : point(i).GetMarkedPoints()) {
      seen += mark->GetPhotograph() == station(2).GetPhotograph();
    }
  }
  ASSERT_GT(seen, 5);
  layer.add(station(2));
  EXPECT_EQ(lines(), seen);
  EXPECT_TRUE(layer.shows(station(2)));
  EXPECT_FALSE(layer.shows(station(3)));
}

TEST_F(RayLayerTest, RaysAskedForTwiceAreThereOnce) {
  layer.add(point(0));
  layer.add(station(2));
  const int before = lines();
  layer.add(point(0));
  layer.add(station(2));
  EXPECT_EQ(lines(), before);
}

TEST_F(RayLayerTest, ClearedRaysCanBeShownAgain) {
  layer.add(point(0));
  layer.clear();
  EXPECT_EQ(lines(), 0);
  EXPECT_FALSE(layer.shows(point(0)));
  layer.add(point(0));
  EXPECT_EQ(lines(), marks(0));
}

TEST_F(RayLayerTest, StationWithoutPhotographHasNoRays) {
  tarn::CameraStation bare;
  layer.add(bare);
  EXPECT_EQ(lines(), 0);
  EXPECT_FALSE(layer.shows(bare));
}
