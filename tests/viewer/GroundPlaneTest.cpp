#include "viewer/GroundPlane.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/model/Project.h"
#include "nodes/framework/ViewerFrame.h"
#include "tests/support/TarnTest.h"
#include "viewer/ViewFraming.h"

class GroundPlaneTest : public TarnTest {
protected:
  void add(double x, double y, double z) {
    tarn::ObjectPoint& point = project.AddObjectPoint();
    point.SetApproximation(tarn::Point3DRandom({x, y, z}));
    point.SetProcessed(1);
  }

  // The middle of the block is at (5, 5, 100.5).
  void addBlock() {
    for (int i = 0; i < 121; ++i) add(i % 11, i / 11, 100.0 + (i % 3) * 0.5);
  }

  static SbBox3f box(const GroundPlane& plane) {
    SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
    action.apply(plane.root());
    return action.getBoundingBox();
  }

  tarn::Project project;
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
};

TEST_F(GroundPlaneTest, LiesUnderTheObjectWhateverOneOutlierSays) {
  addBlock();
  add(5.0, 5.0, -1e5);
  GroundPlane plane(*root, project, ViewFraming(project));
  const double diagonal = ViewFraming(project).objectDiagonal();
  EXPECT_EQ(project.GetVolumeAboveXY_ZLevel(), 100.0 - 0.01 * diagonal);
  plane.show(true);
  const tarn::Point3DDouble low = ViewerFrame::toModel(box(plane).getMin());
  const tarn::Point3DDouble high = ViewerFrame::toModel(box(plane).getMax());
  EXPECT_NEAR(low.z, 100.0 - 0.01 * diagonal, 1e-4);
  EXPECT_NEAR(high.z, low.z, 1e-6);
  EXPECT_NEAR(low.x, -5.0, 1e-4);
  EXPECT_NEAR(high.x, 17.5, 1e-4);
}

TEST_F(GroundPlaneTest, IsHiddenUntilItIsShownAndHiddenAgain) {
  addBlock();
  GroundPlane plane(*root, project, ViewFraming(project));
  EXPECT_FALSE(plane.isShown());
  EXPECT_TRUE(box(plane).isEmpty());
  plane.show(false);
  EXPECT_TRUE(box(plane).isEmpty());
  plane.show(true);
  EXPECT_TRUE(plane.isShown());
  EXPECT_FALSE(box(plane).isEmpty());
  plane.show(false);
  EXPECT_FALSE(plane.isShown());
  EXPECT_TRUE(box(plane).isEmpty());
}

TEST_F(GroundPlaneTest, ColourIsCalmerThanTheNodesOwn) {
  addBlock();
  const GroundPlane plane(*root, project, ViewFraming(project));
  tarn::Colour colour(0, 200, 0);
  EXPECT_EQ(preferences.GetPreference("GroundPlaneColor", colour, "Colors"),
            tarn::Colour(55, 85, 65));
}

TEST_F(GroundPlaneTest, EmptyProjectHasNoPlaneToBeSeen) {
  GroundPlane plane(*root, project, ViewFraming(project));
  plane.show(true);
  ViewFraming all(project);
  plane.includeIn(all);
  EXPECT_EQ(project.GetVolumeAboveXY_ZLevel(), 0.0);
}
