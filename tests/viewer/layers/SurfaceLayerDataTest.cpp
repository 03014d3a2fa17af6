#include <Inventor/SbViewVolume.h>
#include <Inventor/nodes/SoCamera.h>

#include "host/model/ImportedSurface.h"
#include "host/model/Project.h"
#include "io/SurfaceReader.h"
#include "nodes/framework/ViewerFrame.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"
#include "viewer/Picture.h"
#include "viewer/ProjectFile.h"
#include "viewer/ProjectScene.h"

#include <array>
#include <cmath>
#include <cstdlib>
#include <vector>

using tarn::Point3DDouble;
using tarn::Triangle;
using View = CommandLine::View;

/// Real surfaces, opened and drawn as a user sees them.
class SurfaceLayerDataTest : public TarnTest {
protected:
  static constexpr int side = 600;

  /// The middle of a triangle that is seen from the front: where it is in the picture, and in the
  /// texture, to the right and down.
  struct Seen {
    int x = 0;
    int y = 0;
    double u = 0.0;
    double v = 0.0;
    double slope = 0.0;  // how far it is turned away: the normal's part along the view
  };

  static std::string file(const std::string& name) {
    return std::string(dataFolder()) + "/meshes/" + name;
  }
  tarn::ImportedSurface& surface() {
    return *static_cast<tarn::ImportedSurface*>(project.GetImportedSurfaces().at(0));
  }
  static Point3DDouble positionOf(const tarn::ThreeDPoint* point) {
    tarn::Point3DRandom position;
    EXPECT_TRUE(point->GetApproximation(position));
    return position.position();
  }

  Picture drawFrom(ProjectScene& scene, View view) {
    scene.setView(view, 1.0);
    OffscreenRenderer renderer(side, side);
    renderer.setBackgroundColor(scene.background().color());
    return renderer.render(scene.root());
  }

  Picture drawnAndMeasured(const ProjectScene::Options& options) {
    ProjectScene scene(project, options);
    return drawFrom(scene, View::eFront);
  }

  // The front looks along Y.
  std::vector<Seen> trianglesInFront(const ProjectScene& scene) {
    const SbViewVolume volume = scene.camera()->getViewVolume(1.0F);
    std::vector<Seen> all;
    const tarn::VOrdCollect& triangles = *surface().GetTriangles();
    for (int i = 0; i < triangles.size(); ++i) {
      auto* triangle = static_cast<Triangle*>(triangles.at(i));
      const auto* uv = static_cast<tarn::MatrixDouble*>(surface().GetUvMatrices()->atKey(triangle));
      Point3DDouble middle;
      Seen seen;
      for (int k = 0; k < 3; ++k) {
        middle = middle + 1.0 / 3.0 * positionOf(triangle->GetPoint(k));
        if (const Point3DDouble* normal = triangle->GetNormal(k)) seen.slope -= normal->y / 3.0;
        if (uv) seen.u += (*uv)(k + 1, 1) / 3.0;
        if (uv) seen.v += (*uv)(k + 1, 2) / 3.0;
      }
      SbVec3f place;
      volume.projectToScreen(ViewerFrame::fromModel(middle), place);
      seen.x = static_cast<int>(place[0] * side);
      seen.y = static_cast<int>((1.0F - place[1]) * side);
      if (seen.slope > 0.7) all.push_back(seen);
    }
    return all;
  }

  // The root of the mean squared difference between what is drawn and the texture there.
  static double difference(const Picture& drawn, const Picture& texture,
                           const std::vector<Seen>& seen, bool mirrorU, bool mirrorV) {
    double sum = 0.0;
    for (const Seen& one : seen) {
      const double u = mirrorU ? 1.0 - one.u : one.u;
      const double v = mirrorV ? 1.0 - one.v : one.v;
      const std::uint8_t* there =
          texture.at(static_cast<int>(u * texture.width), static_cast<int>(v * texture.height));
      for (int c = 0; c < 3; ++c) {
        const double apart = drawn.at(one.x, one.y)[c] - there[c];
        sum += apart * apart / 3.0;
      }
    }
    return std::sqrt(sum / static_cast<double>(seen.size()));
  }

  tarn::Project project;
};

TEST_F(SurfaceLayerDataTest, TheBottlesTextureIsTheRightWayUpAndRound) {
  TARN_REQUIRE_DATA();
  ProjectFile::open(file("fuze.obj"), project, {});
  ProjectScene scene(project);
  EXPECT_THAT(scene.notes(), ::testing::IsEmpty());
  const Picture drawn = drawFrom(scene, View::eFront);
  const Picture texture = Picture::read(file("fuze uv.jpg"));
  const std::vector<Seen> seen = trianglesInFront(scene);
  ASSERT_GT(seen.size(), 100U);
  // 8.7 as it is, 84 to 94 mirrored.
  EXPECT_LT(difference(drawn, texture, seen, false, false), 15.0);
  EXPECT_GT(difference(drawn, texture, seen, true, false), 60.0);
  EXPECT_GT(difference(drawn, texture, seen, false, true), 60.0);
  EXPECT_GT(difference(drawn, texture, seen, true, true), 60.0);
}

TEST_F(SurfaceLayerDataTest, TheScannedDinosaurIsLitFromBothSides) {
  TARN_REQUIRE_DATA();
  tarn::SurfaceReader::Read(file("parasaurolophus.ply"), project);
  ProjectScene::Options options;
  options.background = CommandLine::Background::eNone;
  // From the front, and from the front with all of it turned over: what was its front is its back.
  const Picture front = drawnAndMeasured(options);
  const tarn::VOrdCollect& triangles = *surface().GetTriangles();
  for (int i = 0; i < triangles.size(); ++i) {
    auto* triangle = static_cast<Triangle*>(triangles.at(i));
    tarn::ThreeDPoint* second = triangle->GetPoint(1);
    triangle->SetPoint(1, triangle->GetPoint(2));
    triangle->SetPoint(2, second);
    std::array<Point3DDouble, 3> turned;
    for (int k = 0; k < 3; ++k)
      turned[static_cast<std::size_t>(k)] = -1.0 * *triangle->GetNormal(k);
    for (int k = 0; k < 3; ++k) {
      const int from = k == 0 ? 0 : 3 - k;
      triangle->SetNormal(k, &surface().AddNormal(turned[static_cast<std::size_t>(from)]));
    }
  }
  const Picture back = drawnAndMeasured(options);
  int covered = 0;
  int different = 0;
  for (int y = 0; y < side; ++y) {
    for (int x = 0; x < side; ++x) {
      covered += front.at(x, y)[0] > 0;
      different += std::abs(front.at(x, y)[0] - back.at(x, y)[0]) > 3;
    }
  }
  EXPECT_GT(covered, side * side / 20);
  EXPECT_LT(different, covered / 200);
}
