#include "viewer/HeightLegend.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoGetBoundingBoxAction.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoCube.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoText2.h>

#include "host/model/Project.h"
#include "tests/support/TarnTest.h"

#include <string>
#include <vector>

using ::testing::ElementsAre;

class HeightLegendTest : public TarnTest {
protected:
  tarn::PointMesh& addPoints(float low, float high, double shift = 0.0) {
    tarn::PointMesh& mesh = project.AddPointMesh();
    mesh.Allocate(2, 0);
    for (int i = 0; i < 2; ++i) {
      mesh.GetPoints()[i][0] = static_cast<float>(i);
      mesh.GetPoints()[i][1] = 2.0F * static_cast<float>(i);
      mesh.GetPoints()[i][2] = i == 0 ? low : high;
    }
    if (shift != 0.0) {
      tarn::BasicAffine model_from_stored;
      model_from_stored.SetTranslation({}, {0.0, 0.0, shift});
      mesh.SetLocalAffine(model_from_stored);
    }
    return mesh;
  }

  // From below.
  std::vector<std::string> numbers() {
    const HeightLegend legend(project);
    SoSearchAction search;
    search.setType(SoText2::getClassTypeId());
    search.setInterest(SoSearchAction::ALL);
    search.apply(legend.root());
    std::vector<std::string> found;
    for (int i = 0; i < search.getPaths().getLength(); ++i) {
      auto* text = static_cast<SoText2*>(search.getPaths()[i]->getTail());
      found.emplace_back(text->string[0].getString());
    }
    return found;
  }

  tarn::Project project;
};

TEST_F(HeightLegendTest, NumbersAreTheHeightsOfAllMeshes) {
  addPoints(12.5F, 14.0F);
  addPoints(11.0F, 13.0F);
  EXPECT_THAT(numbers(), ElementsAre(" 11.00", " 12.50", " 14.00"));
}

TEST_F(HeightLegendTest, NumbersOfAMeshThatIsStoredShiftedAreThoseOfItsPlace) {
  addPoints(-1.0F, 2.0F, 20000.0);
  EXPECT_THAT(numbers(), ElementsAre(" 19999.00", " 20000.50", " 20002.00"));
}

TEST_F(HeightLegendTest, NumbersAreInTheProjectsUnits) {
  tarn::Units units;
  ASSERT_TRUE(units.SetUnit("cm"));
  project.SetUnits(units);
  addPoints(1.0F, 1.5F);
  EXPECT_THAT(numbers(), ElementsAre(" 100.00", " 125.00", " 150.00"));
}

TEST_F(HeightLegendTest, MeshesWithDifferentShiftsHaveNoCommonScale) {
  EXPECT_TRUE(HeightLegend::explains(project));
  addPoints(-1.0F, 2.0F, 20000.0);
  addPoints(0.3F, 2.7F, 20000.0);
  project.AddPointMesh();
  EXPECT_TRUE(HeightLegend::explains(project));
  addPoints(-1.0F, 2.0F, 20001.0);
  EXPECT_FALSE(HeightLegend::explains(project));
}

TEST_F(HeightLegendTest, StandsInARangeFromZeroToOne) {
  addPoints(0.0F, 1.0F);
  const HeightLegend legend(project);
  SoSearchAction search;
  search.setType(SoOrthographicCamera::getClassTypeId());
  search.apply(legend.root());
  ASSERT_NE(search.getPath(), nullptr);
  auto* camera = static_cast<SoOrthographicCamera*>(search.getPath()->getTail());
  const SbViewVolume volume = camera->getViewVolume(0.0F);
  SbVec3f low(0.0F, 0.0F, 0.0F);
  SbVec3f high(1.0F, 1.0F, 0.0F);
  volume.projectToScreen(low, low);
  volume.projectToScreen(high, high);
  EXPECT_EQ(SbVec2f(low[0], low[1]), SbVec2f(0.0F, 0.0F));
  EXPECT_EQ(SbVec2f(high[0], high[1]), SbVec2f(1.0F, 1.0F));
}

TEST_F(HeightLegendTest, BoxAroundTheSceneAndPicksAreNotAwareOfIt) {
  addPoints(0.0F, 1.0F);
  const HeightLegend legend(project);
  const NodeRef<SoSeparator> scene = makeNode<SoSeparator>();
  auto* cube = new SoCube;
  cube->width = cube->height = cube->depth = 0.125F;
  scene->addChild(cube);
  scene->addChild(legend.root());
  const SbViewportRegion viewport(400, 300);
  SoGetBoundingBoxAction box(viewport);
  for (int i = 0; i < 2; ++i) {
    box.apply(scene.get());
    EXPECT_EQ(box.getBoundingBox(),
              SbBox3f(SbVec3f(-0.0625F, -0.0625F, -0.0625F), SbVec3f(0.0625F, 0.0625F, 0.0625F)));
  }
  SoRayPickAction pick(viewport);
  pick.setPoint(SbVec2s(360, 150));
  pick.setRadius(10.0F);
  pick.apply(legend.root());
  EXPECT_EQ(pick.getPickedPoint(), nullptr);
}
