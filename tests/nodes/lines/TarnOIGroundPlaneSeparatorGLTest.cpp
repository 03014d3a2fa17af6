#include "nodes/lines/TarnOIGroundPlaneSeparator.h"

#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoShapeHints.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/model/Project.h"
#include "tests/support/Baseline.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

/// Draws the ground of a project 4 wide and 6 deep with a red cube in it, half above and half
/// below, as seen obliquely from above under a white sky.
class TarnOIGroundPlaneSeparatorGLTest : public TarnTest {
protected:
  TarnOIGroundPlaneSeparatorGLTest() {
    renderer.setBackgroundColor(SbColor(1, 1, 1));
    addPoint({-2, -3, 1});
    addPoint({2, 3, 5});
    project.SetVolumeAboveXY_ZLevel(viewOffset.z - 1);
    root->addChild(camera);
    lookFrom(SbVec3f(8, 9, 14));
    auto* light = new SoDirectionalLight;
    light->direction.setValue(-0.3F, -1, -0.5F);
    root->addChild(light);
    auto* hints = new SoShapeHints;  // lights both sides
    hints->vertexOrdering.setValue(SoShapeHints::COUNTERCLOCKWISE);
    root->addChild(hints);
    root->addChild(node);
    node->SetRoot(root.get(), &project);
    node->UpdatePosition();
    root->addChild(cube());
  }
  void addPoint(const tarn::Point3DDouble& place) {
    tarn::ObjectPoint& point = project.AddObjectPoint();
    point.SetApproximation(tarn::Point3DRandom(viewOffset + place));
    point.SetProcessed(1);
  }
  void lookFrom(const SbVec3f& place) {
    camera->position.setValue(place);
    camera->pointAt(SbVec3f(0, -1, 0), SbVec3f(0, 1, 0));
    camera->farDistance.setValue(100);
  }
  static SoSeparator* cube() {
    auto* group = new SoSeparator;
    auto* place = new SoTranslation;
    place->translation.setValue(0, -1, 0);
    group->addChild(place);
    auto* red = new SoMaterial;
    red->diffuseColor.setValue(1, 0, 0);
    group->addChild(red);
    group->addChild(new SoCube);
    return group;
  }
  Picture render() { return renderer.render(root.get()); }

  tarn::Project project;
  OffscreenRenderer renderer{240, 180};
  NodeRef<SoSeparator> root = makeNode<SoSeparator>();
  SoPerspectiveCamera* camera = new SoPerspectiveCamera;              // the scene's, as is
  TarnOIGroundPlaneSeparator* node = new TarnOIGroundPlaneSeparator;  // this one
};

TEST_F(TarnOIGroundPlaneSeparatorGLTest, ThingsBelowTheGroundAreSeenThroughIt) {
  // Another renderer may draw an edge one pixel further.
  Baseline::expectMatch(render(), "ground_plane", {255, 0.5});
}

TEST_F(TarnOIGroundPlaneSeparatorGLTest, ThingsAboveTheGroundAreSeenThroughItFromBelow) {
  lookFrom(SbVec3f(8, -11, 14));
  Baseline::expectMatch(render(), "ground_plane_from_below", {255, 0.5});
}

TEST_F(TarnOIGroundPlaneSeparatorGLTest, AHiddenGroundIsNotDrawn) {
  const Picture shown = render();
  node->Hide(1);
  const Picture hidden = render();
  root->removeChild(node);
  const Picture without = render();
  EXPECT_EQ(hidden.bytes, without.bytes);
  EXPECT_NE(shown.bytes, without.bytes);
}

TEST_F(TarnOIGroundPlaneSeparatorGLTest, AGroundThatWasNeverPlacedDrawsNothing) {
  const NodeRef<TarnOIGroundPlaneSeparator> kept(node);
  root->removeChild(node);
  const Picture without = render();
  auto* unplaced = new TarnOIGroundPlaneSeparator;
  root->addChild(unplaced);
  unplaced->Hide(0);
  EXPECT_EQ(render().bytes, without.bytes);
}
