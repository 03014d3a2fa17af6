#include "viewer/AxisCross.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoSwitch.h>

#include "host/model/Project.h"
#include "nodes/framework/ViewerFrame.h"
#include "tests/support/TarnTest.h"
#include "viewer/ViewFraming.h"

#include <memory>
#include <utility>

using tarn::Point3DDouble;

class AxisCrossTest : public TarnTest {
protected:
  // Two points, `size` apart along X, the middle at the centre.
  ViewFraming framing(const Point3DDouble& centre, double size) {
    project = std::make_unique<tarn::Project>();
    for (const double x : {-0.5 * size, 0.5 * size}) {
      project->AddObjectPoint().SetApproximation(
          tarn::Point3DRandom(centre + Point3DDouble(x, 0.0, 0.0)));
    }
    return ViewFraming(*project);
  }

  static SbBox3f box(const AxisCross& axis) {
    SoGetBoundingBoxAction action(SbViewportRegion(100, 100));
    action.apply(axis.root());
    return action.getBoundingBox();
  }

  std::unique_ptr<tarn::Project> project;
};

TEST_F(AxisCrossTest, LengthIsARoundNumberOfAtMostThreeTenthsOfTheObject) {
  for (const auto& [size, length] :
       {std::pair(10.0, 2.0), std::pair(3.3334, 1.0), std::pair(17.0, 5.0), std::pair(0.034, 0.01),
        std::pair(6666.0, 1000.0), std::pair(6667.0, 2000.0)}) {
    EXPECT_NEAR(AxisCross(framing({}, size)).length(), length, 1e-9 * length) << size;
  }
}

TEST_F(AxisCrossTest, OriginIsTheProjectsUnlessThatIsFarFromTheObject) {
  EXPECT_EQ(AxisCross(framing({3.0, 4.0, 5.0}, 10.0)).origin(), Point3DDouble());
  EXPECT_EQ(AxisCross(framing({30.0, 4.0, 5.0}, 10.0)).origin(), Point3DDouble(30.0, 4.0, 5.0));
}

TEST_F(AxisCrossTest, AxesRunFromTheOriginAlongXYAndZ) {
  AxisCross axis(framing({30.0, 4.0, 5.0}, 10.0));
  EXPECT_FALSE(axis.isShown());
  EXPECT_TRUE(box(axis).isEmpty());
  axis.show(true);
  EXPECT_TRUE(axis.isShown());
  // The letters take room, too, but beyond the ends of the axes only.
  const SbBox3f shown = box(axis);
  for (const Point3DDouble& point :
       {Point3DDouble(30.0, 4.0, 5.0), Point3DDouble(32.0, 4.0, 5.0), Point3DDouble(30.0, 6.0, 5.0),
        Point3DDouble(30.0, 4.0, 7.0)}) {
    EXPECT_TRUE(shown.intersect(ViewerFrame::fromModel(point)));
  }
  EXPECT_FALSE(shown.intersect(ViewerFrame::fromModel({29.9, 4.0, 5.0})));
  EXPECT_FALSE(shown.intersect(ViewerFrame::fromModel({30.0, 3.9, 5.0})));
  axis.show(false);
  EXPECT_TRUE(box(axis).isEmpty());
}

TEST_F(AxisCrossTest, FramingHoldsTheAxesWhileTheyAreShown) {
  AxisCross axis(framing({3.0, 4.0, 0.0}, 10.0));
  ViewFraming all = framing({3.0, 4.0, 0.0}, 10.0);
  const auto height = [&all] {
    const NodeRef<SoCamera> camera(all.makeCamera(CommandLine::View::eFront, 1.0));
    return static_cast<SoOrthographicCamera*>(camera.get())->height.getValue();
  };
  const float without = height();
  axis.includeIn(all);
  EXPECT_EQ(height(), without);
  axis.show(true);
  axis.includeIn(all);
  EXPECT_GE(height(), without);
}
