#pragma once

#include <Inventor/SbViewVolume.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"

/// One of the cameras that look through a rectangle, at the origin, with a square of side 2
/// two units ahead.
template <typename Camera>
class FrontRectangleFixture : public TarnTest {
protected:
  FrontRectangleFixture() {
    camera->SetLLF(-1, -1, 2);
    camera->SetLRF(1, -1, 2);
    camera->SetULF(-1, 1, 2);
    camera->position.setValue(0, 0, 0);
    camera->nearDistance.setValue(2);
    camera->farDistance.setValue(100);
  }

  /// Where a point is seen, 0 to 1 from the lower left.
  static SbVec3f seen(const SbViewVolume& volume, const SbVec3f& point) {
    SbVec3f result;
    volume.projectToScreen(point, result);
    return result;
  }
  static void expectNear(const SbVec3f& actual, const SbVec3f& expected) {
    for (int i = 0; i < 3; ++i) EXPECT_NEAR(actual[i], expected[i], 1e-5) << "component " << i;
  }
  static void expectCorners(const SbViewVolume& volume, const SbVec3f& llf, const SbVec3f& lrf,
                            const SbVec3f& ulf) {
    expectNear(volume.llf, llf);
    expectNear(volume.lrf, lrf);
    expectNear(volume.ulf, ulf);
  }

  NodeRef<Camera> camera = makeNode<Camera>();
};
