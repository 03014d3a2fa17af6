#include "nodes/surfaces/TarnOISurfaceSeparator.h"

#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/details/SoFaceDetail.h>
#include <Inventor/nodes/SoBaseColor.h>

#include "host/model/ObjectName.h"
#include "tests/nodes/surfaces/SurfaceGroupFixture.h"
#include "tests/support/FrontView.h"
#include "viewer/OffscreenRenderer.h"

#include <memory>

using ::testing::ElementsAre;

/// Draws a square of 10 units out of two triangles, red, as seen from the front (along the model's
/// y): 30 by 20 units, ten pixels a unit, the view offset in the middle of the picture.
class TarnOISurfaceSeparatorGLTest : public SurfaceGroupFixture {
protected:
  TarnOISurfaceSeparatorGLTest() {
    place(0, -5.0, -5.0);
    place(1, 5.0, -5.0);
    place(2, -5.0, 5.0);
    place(3, 5.0, 5.0);
    addQuadrangle();
    auto* red = new SoBaseColor;
    red->rgb = SbColor(1, 0, 0);
    scene->addChild(red);
    scene->addChild(node.get());
  }
  void place(std::size_t i, double right, double above) {
    points[i]->SetApproximation(
        tarn::Point3DRandom(viewOffset + tarn::Point3DDouble(right, 0.0, above)));
  }
  /// Whether the picture is red so many units right of and above its middle.
  static bool isDrawn(const Picture& picture, double right, double above) {
    const std::uint8_t* pixel =
        picture.at(static_cast<int>(150 + 10 * right), static_cast<int>(100 - 10 * above));
    return pixel[0] == 255 && pixel[1] == 0 && pixel[2] == 0;
  }
  Picture draw() { return renderer.render(scene.get()); }

  NodeRef<SoSeparator> scene = frontView(20.0F);
  OffscreenRenderer renderer{300, 200};
};

TEST_F(TarnOISurfaceSeparatorGLTest, TrianglesAreDrawnWhereTheyAre) {
  set();
  const Picture picture = draw();
  for (const double x : {-4.5, 0.5, 4.5}) {
    for (const double y : {-4.5, 0.0, 4.5}) EXPECT_TRUE(isDrawn(picture, x, y)) << x << " " << y;
  }
  for (const double x : {-5.5, 5.5}) EXPECT_FALSE(isDrawn(picture, x, 0.0));
}

TEST_F(TarnOISurfaceSeparatorGLTest, TheNextPictureShowsTheSurfaceAsItWasSetLast) {
  set();
  draw();
  place(3, 12.0, 5.0);
  set();
  EXPECT_TRUE(isDrawn(draw(), 9.0, 4.5));
}

TEST_F(TarnOISurfaceSeparatorGLTest, ATriangleWithACornerThatIsNoVertexIsLeftOut) {
  group.AddElement(points[1], nullptr, points[3]);
  set();
  const Picture picture = draw();
  EXPECT_TRUE(isDrawn(picture, 4.0, 0.0));
  EXPECT_TRUE(isDrawn(picture, -4.0, 0.0));
}

TEST_F(TarnOISurfaceSeparatorGLTest, NormalsThatBecameFewerThanTheVerticesAreNoDanger) {
  set();
  putNormals(tarn::ObjectName::gDefault, {0, 1, 2, 3});
  node->AddOrUpdateNormals(normalsByKey, &project);
  draw();
  std::vector<std::unique_ptr<tarn::ObjectPoint>> others;
  for (int i = 0; i < 10000; ++i) {
    others.push_back(std::make_unique<tarn::ObjectPoint>());
    others.back()->SetApproximation(
        tarn::Point3DRandom(viewOffset + tarn::Point3DDouble(8.0, 0.0, 1e-3 * i - 5.0)));
    group.AddElement(points[1], others.back().get(), points[3]);
  }
  set();
  EXPECT_TRUE(isDrawn(draw(), 6.5, 0.0));
  node->SetTarnObject(nullptr, &dictionary);
}

TEST_F(TarnOISurfaceSeparatorGLTest, IsPickedAndMeasuredAsItStands) {
  set();
  const SbViewportRegion viewport(300, 200);
  SoRayPickAction pick(viewport);
  pick.setPoint(SbVec2s(110, 140));  // 4 units to the left and above
  pick.apply(scene.get());
  ASSERT_NE(pick.getPickedPoint(), nullptr);
  const SoDetail* detail = pick.getPickedPoint()->getDetail();
  ASSERT_TRUE(detail && detail->isOfType(SoFaceDetail::getClassTypeId()));
  EXPECT_EQ(static_cast<const SoFaceDetail*>(detail)->getFaceIndex(), 1);
  SoGetBoundingBoxAction measure(viewport);
  measure.apply(node.get());
  EXPECT_EQ(measure.getBoundingBox().getMin(), SbVec3f(-5, -5, 0));
  EXPECT_EQ(measure.getBoundingBox().getMax(), SbVec3f(5, 5, 0));
}
