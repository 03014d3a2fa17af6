#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoDirectionalLight.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "host/model/Shape.h"
#include "nodes/surfaces/TarnOIShapeEdgeSeparator.h"
#include "nodes/surfaces/TarnOIShapeFaceSeparator.h"
#include "nodes/surfaces/TarnOIShapeVertexSeparator.h"
#include "tests/support/Baseline.h"
#include "tests/support/TarnTest.h"
#include "viewer/OffscreenRenderer.h"

#include <array>
#include <vector>

using tarn::Point3DDouble;

/// Draws a house of 8 by 10 by 9 units, 400 by 400 pixels: its front is a gable with a door
/// (a notch) and a window (a hole). Names are laid onto the faces where there is no view
/// offset, which tilts them otherwise.
class ShapeNodesGLTest : public TarnTest {
protected:
  ShapeNodesGLTest() {
    tarn::gThreeDViewOffset = {0, 0, 0};
    for (SoShapeHints* hints : {singleSided.get(), doubleSided.get()}) {
      hints->vertexOrdering = SoShapeHints::COUNTERCLOCKWISE;
    }
    singleSided->shapeType = SoShapeHints::SOLID;
    camera->height = 16.0F;
    camera->nearDistance = 1.0F;
    camera->farDistance = 100.0F;
    lookAlong({0, 1, 0});
    scene->addChild(camera);
    scene->addChild(light);
    renderer.setBackgroundColor(SbColor(0.2F, 0.2F, 0.25F));
    makeHouse();
  }
  void TearDown() override {
    scene.reset();  // its nodes end before what they show
    TarnTest::TearDown();
  }

  // Looks along a direction of the model at the middle of the house.
  void lookAlong(const Point3DDouble& d) {
    const SbVec3f towards(static_cast<float>(d.x), static_cast<float>(d.z),
                          static_cast<float>(-d.y));
    camera->position = SbVec3f(0.0F, 4.5F, 0.0F) - towards * 40.0F;
    camera->pointAt(SbVec3f(0.0F, 4.5F, 0.0F), SbVec3f(0, 1, 0));
    light->direction = towards + SbVec3f(-0.3F, -0.2F, 0.2F);
  }

  tarn::ShapeVertex* corner(double x, double y, double z) {
    corners.push_back(&shape.AddVertex({x, y, z}));
    return corners.back();
  }
  // Edges along a closed contour.
  void addEdges(const std::vector<tarn::ShapeVertex*>& contour) {
    for (std::size_t i = 0; i < contour.size(); ++i) {
      shape.AddEdge(contour[i], contour[(i + 1) % contour.size()]);
    }
  }

  void makeHouse() {
    // The gables from the lower left, as each is seen from the front: y is -5 and 5.
    std::array<std::vector<tarn::ShapeVertex*>, 2> gable;
    for (const int end : {0, 1}) {
      const double y = end ? 5 : -5;
      gable[static_cast<std::size_t>(end)] = {corner(-4, y, 0), corner(4, y, 0), corner(4, y, 5),
                                              corner(0, y, 9), corner(-4, y, 5)};
    }
    const std::vector<tarn::ShapeVertex*> door{corner(-3, -5, 0), corner(-3, -5, 3),
                                               corner(-1.5, -5, 3), corner(-1.5, -5, 0)};
    const std::vector<tarn::ShapeVertex*> window{corner(1, -5, 1), corner(3, -5, 1),
                                                 corner(3, -5, 2.5), corner(1, -5, 2.5)};
    const auto& [front, back] = gable;
    ASSERT_TRUE(gableFace.SetOutline(
        {front[0], door[0], door[1], door[2], door[3], front[1], front[2], front[3], front[4]},
        {window}));
    gableFace.SetNameUprightVectorPoints({0, -5, 4}, {0, -5, 6});
    ASSERT_TRUE(wall.SetOutline({front[1], back[1], back[2], front[2]}));
    wall.SetNameUprightVectorPoints({4, 0, 5}, {4, 0, 0});  // upside down
    ASSERT_TRUE(roof.SetOutline({front[2], back[2], back[3], front[3]}));
    roof.SetNameUprightVectorPoints({4, 0, 5}, {0, 0, 9});
    ASSERT_TRUE(leftWall.SetOutline({back[0], front[0], front[4], back[4]}));
    ASSERT_TRUE(leftRoof.SetOutline({front[4], front[3], back[3], back[4]}));
    ASSERT_TRUE(backFace.SetOutline({back[4], back[3], back[2], back[1], back[0]}));
    addEdges(front);
    addEdges(window);
    for (const std::size_t i : {1U, 2U, 3U}) shape.AddEdge(front[i], back[i]);
    shape.AddEdge(back[1], back[2]);
    shape.AddEdge(back[2], back[3]);
  }

  TarnOIShapeFaceSeparator* addFace(tarn::ShapeFace& face, const SbColor& color) {
    auto* material = new SoMaterial;
    material->diffuseColor.setValue(color);
    scene->addChild(material);
    auto* node = new TarnOIShapeFaceSeparator;
    tarn::VOrdCollect* sets = face.GetTriangleSets();
    node->SetNurbsSurface(&face, &dictionary, singleSided.get(), doubleSided.get(), nullptr, &sets,
                          face.GetUvMatrices(), 1, 1, 1.6F);
    scene->addChild(node);
    return node;
  }
  void addAllFaces() {
    preferences.Set("ShapeLabelColor", "040000100", "Colors");
    addFace(backFace, {0.9F, 0.9F, 0.8F});
    addFace(leftWall, {0.8F, 0.9F, 0.8F});
    addFace(leftRoof, {0.8F, 0.4F, 0.3F});
    addFace(gableFace, {0.9F, 0.8F, 0.5F});
    wallNode = addFace(wall, {0.6F, 0.8F, 0.9F});
    addFace(roof, {0.9F, 0.5F, 0.4F});
  }

  Picture draw() { return renderer.render(scene.get()); }

  // The gable alone, black, with its name in white.
  Picture drawNameOfGable(const Point3DDouble& from, const Point3DDouble& to) {
    preferences.Set("ShapeLabelColor", "255255255", "Colors");
    gableFace.SetNameUprightVectorPoints(from, to);
    SoNode* node = addFace(gableFace, {0, 0, 0});
    Picture picture = draw();
    scene->removeChild(node);
    return picture;
  }
  static bool isLetter(const Picture& picture, int x, int y) { return picture.at(x, y)[0] > 128; }

  tarn::Shape shape;
  std::vector<tarn::ShapeVertex*> corners;
  tarn::ShapeFace& gableFace = shape.AddFace("Gable");
  tarn::ShapeFace& wall = shape.AddFace("Wall");
  tarn::ShapeFace& roof = shape.AddFace("Roof");
  tarn::ShapeFace& leftWall = shape.AddFace("Left wall");
  tarn::ShapeFace& leftRoof = shape.AddFace("Left roof");
  tarn::ShapeFace& backFace = shape.AddFace("Back");
  NodeRef<SoShapeHints> singleSided = makeNode<SoShapeHints>();
  NodeRef<SoShapeHints> doubleSided = makeNode<SoShapeHints>();
  TarnOIShapeFaceSeparator* wallNode = nullptr;
  OffscreenRenderer renderer{400, 400};
  SoOrthographicCamera* camera = new SoOrthographicCamera;
  SoDirectionalLight* light = new SoDirectionalLight;
  NodeRef<SoSeparator> scene = makeNode<SoSeparator>();
};

// The names lie on their faces, that of the wall upside down. Door and window are open; the back
// of a single-sided face is not drawn, so that the background is seen through them.
TEST_F(ShapeNodesGLTest, ASolidWithItsNames) {
  lookAlong({-0.5, 0.7, -0.5});
  addAllFaces();
  // Another renderer draws edges of faces and letters one pixel further.
  Baseline::expectMatch(draw(), "solid_with_names", {255, 0.5});
}

// Corners are blue. The front's lower edge and the gable's at the right have markers, red where
// they start and green and larger where they end.
TEST_F(ShapeNodesGLTest, ASolidWithItsEdgesAndCorners) {
  lookAlong({-0.5, 0.7, -0.5});
  addAllFaces();
  auto* black = new SoBaseColor;
  black->rgb.setValue(0, 0, 0);
  scene->addChild(black);
  auto* style = new SoDrawStyle;
  style->lineWidth = 2.0F;
  style->pointSize = 9.0F;
  scene->addChild(style);
  auto* red = new SoMaterial;
  red->diffuseColor.setValue(1, 0, 0);
  auto* green = new SoMaterial;
  green->diffuseColor.setValue(0, 0.7F, 0);
  auto* blue = new SoMaterial;
  blue->diffuseColor.setValue(0, 0, 1);
  blue->emissiveColor.setValue(0, 0, 1);
  for (int i = 0; i < shape.GetEdges().size(); ++i) {
    auto* node = new TarnOIShapeEdgeSeparator;
    node->SetShapeEdge(static_cast<tarn::ShapeEdge*>(shape.GetEdges().at(i)), &dictionary);
    if (i == 0 || i == 2) {
      node->ShowVertices(0, 0.5F);
      node->SetVertexMaterialAndSize(red, 0.04, 1);
      node->SetVertexMaterialAndSize(green, 0.06, 2);
    }
    scene->addChild(node);
  }
  for (tarn::ShapeVertex* vertex : corners) {
    auto* node = new TarnOIShapeVertexSeparator;
    node->SetShapeVertex(vertex, &dictionary);
    node->SetMaterial(blue);
    scene->addChild(node);
  }
  Baseline::expectMatch(draw(), "solid_with_edges_and_corners", {255, 0.5});
}

// The wall turned over is seen from within only: one looks through it, and reads its note.
TEST_F(ShapeNodesGLTest, ASolidWithAWallTurnedOver) {
  lookAlong({-0.5, 0.7, -0.5});
  wall.SetNameUprightVectorPoints({4, 0, 0}, {4, 0, 5});
  addAllFaces();
  wallNode->ShowInside(1);
  Baseline::expectMatch(draw(), "solid_with_wall_turned_over", {255, 0.5});
}

TEST_F(ShapeNodesGLTest, AnUpsideDownNameIsTheUprightOneTurnedAboutItsPlace) {
  // Between both points is the picture's middle.
  const Picture upright = drawNameOfGable({0, -5, 4}, {0, -5, 5});
  const Picture upsideDown = drawNameOfGable({0, -5, 5}, {0, -5, 4});
  int letters = 0;
  int different = 0;
  for (int y = 0; y < 400; ++y) {
    for (int x = 0; x < 400; ++x) {
      letters += isLetter(upright, x, y);
      different += isLetter(upright, x, y) != isLetter(upsideDown, 399 - x, 399 - y);
    }
  }
  EXPECT_GT(letters, 500);
  EXPECT_LT(different, letters / 20) << "pixels along the edges of letters";
}

TEST_F(ShapeNodesGLTest, AViewOffsetAlongTheNormalLeavesANameFlatAndAnyOtherTiltsIt) {
  const auto lettersAt = [this](const Point3DDouble& offset) {
    tarn::gThreeDViewOffset = offset;
    // The camera keeps looking at the same place of the model.
    camera->position = SbVec3f(static_cast<float>(-offset.x), 4.5F, 40.0F);
    const Picture picture = drawNameOfGable({0, -5, 4}, {0, -5, 5});
    int letters = 0;
    for (int y = 0; y < 400; ++y) {
      for (int x = 0; x < 400; ++x) letters += isLetter(picture, x, y);
    }
    return letters;
  };
  const int flat = lettersAt({0, 0, 0});
  EXPECT_NEAR(lettersAt({0, 7, 0}), flat, flat / 20);
  EXPECT_LT(lettersAt({2, 0, 0}), flat / 2);
}
