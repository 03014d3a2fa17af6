#pragma once

#include <Inventor/nodes/SoLineSet.h>

#include "host/model/CameraStation.h"
#include "host/model/MarkedPoint.h"
#include "host/model/ObjectPoint.h"
#include "host/model/Photograph.h"
#include "nodes/framework/NodeRef.h"
#include "tests/support/Children.h"
#include "tests/support/TarnTest.h"

#include <array>
#include <utility>
#include <vector>

/// Two oriented stations with a photograph each, and two processed object points.
class RaysFixture : public TarnTest {
protected:
  RaysFixture() {
    const std::array<tarn::Point3DDouble, 2> stood = {{{1.5, 2.25, -3.75}, {-4.0, 5.5, 6.0}}};
    for (std::size_t i = 0; i < 2; ++i) {
      stations[i].SetOrientation(stood[i], tarn::MatrixDouble::Identity(3));
      stations[i].SetPhotograph(&photographs[i]);
      photographs[i].SetCameraStation(&stations[i]);
    }
    place(points[0], {11.5, -18.25, 33.125});
    place(points[1], {12.5, -16.25, 30.125});
  }

  static void place(tarn::ObjectPoint& point, const tarn::Point3DDouble& position) {
    point.SetApproximation(tarn::Point3DRandom(position));
    point.SetProcessed(1);
  }

  static void mark(tarn::ObjectPoint& point, tarn::Photograph& photograph) {
    point.AddMarkedPoint(&photograph.AddMarkedPoint({1.0, 2.0}));
  }

  using Ray = std::pair<SbVec3f, SbVec3f>;
  /// The rays of a node, whose children have to be pairs of two coordinates and a line.
  static std::vector<Ray> raysOf(const SoGroup& node) {
    std::vector<Ray> rays;
    for (int i = 0; i < node.getNumChildren(); i += 2) {
      const auto ends = coordinates(node, i);
      EXPECT_EQ(ends.size(), 2U);
      const SoNode* second = i + 1 < node.getNumChildren() ? node.getChild(i + 1) : nullptr;
      EXPECT_TRUE(second && second->getTypeId() == SoLineSet::getClassTypeId());
      if (ends.size() != 2 || !second) break;
      const SoMFInt32& vertices = static_cast<const SoLineSet*>(second)->numVertices;
      EXPECT_EQ(vertices.getNum(), 1);
      EXPECT_EQ(vertices[0], 2);
      rays.emplace_back(ends[0], ends[1]);
    }
    return rays;
  }

  // Where they are shown, with the fixture's view offset (10.5, -20.25, 30.125).
  const std::array<SbVec3f, 2> stationsShown = {SbVec3f(-9.0F, -33.875F, -22.5F),
                                                SbVec3f(-14.5F, -24.125F, -25.75F)};
  const std::array<SbVec3f, 2> pointsShown = {SbVec3f(1.0F, 3.0F, -2.0F),
                                              SbVec3f(2.0F, 0.0F, -4.0F)};

  std::array<tarn::CameraStation, 2> stations;
  std::array<tarn::Photograph, 2> photographs;
  std::array<tarn::ObjectPoint, 2> points;
};
