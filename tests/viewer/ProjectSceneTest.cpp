#include "viewer/ProjectScene.h"

#include <filesystem>

#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoMarkerSet.h>
#include <Inventor/nodes/SoSwitch.h>

#include "host/model/Project.h"
#include "nodes/cameras/TarnOICameraStationSeparator.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "nodes/framework/TarnOISwitch.h"
#include "nodes/framework/TarnOIText2.h"
#include "nodes/points/TarnOIObjectPointSeparator.h"
#include "tests/support/TarnTest.h"
#include "viewer/ProjectFile.h"

using View = CommandLine::View;

class ProjectSceneTest : public TarnTest {
protected:
  ProjectSceneTest() { ProjectFile::open(TARN_SOURCE_DIR "/examples/demo", project, {}); }

  static int count(SoNode* root, SoType type) {
    SoSearchAction search;
    search.setType(type);
    search.setInterest(SoSearchAction::ALL);
    search.setSearchingAll(TRUE);
    search.apply(root);
    return search.getPaths().getLength();
  }
  tarn::CameraStation& station(int i) {
    return *static_cast<tarn::CameraStation*>(project.GetCameraStations().at(i));
  }

  tarn::Project project;
};

TEST_F(ProjectSceneTest, EveryLayerIsASwitchOverALayerSeparator) {
  ProjectScene scene(project);
  EXPECT_EQ(count(scene.root(), TarnOISwitch::getClassTypeId()), 2);
  EXPECT_EQ(count(scene.root(), TarnOILayerSeparator::getClassTypeId()), 2);
  EXPECT_EQ(count(scene.root(), TarnOICameraStationSeparator::getClassTypeId()), 12);
  EXPECT_EQ(count(scene.root(), TarnOIObjectPointSeparator::getClassTypeId()),
            project.GetObjectPoints().size());
}

TEST_F(ProjectSceneTest, ObjectsAreFoundInDictionaryAndBySearch) {
  ProjectScene scene(project);
  tarn::ObjectPoint& point = ProjectFile::findPoint(project, 30);
  auto* node = static_cast<SoNode*>(scene.dictionary().atKey(&point));
  ASSERT_NE(node, nullptr);
  TarnOISearchAction search;
  search.SetTarnObject(&point);
  search.apply(scene.root());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(search.getPath()->getTail(), node);
}

TEST_F(ProjectSceneTest, ViewOffsetIsTheMiddleOfTheProject) {
  ProjectScene scene(project);
  const tarn::Point3DDouble offset = tarn::gThreeDViewOffset;
  EXPECT_EQ(offset, scene.framing().objectExtents().GetCentre());
  EXPECT_NEAR(offset.x, 120.0, 1.0);
  EXPECT_NEAR(offset.y, 250.0, 1.0);
  EXPECT_NEAR(offset.z, 32.0, 1.0);
}

TEST_F(ProjectSceneTest, NewViewReplacesTheCamera) {
  ProjectScene scene(project);
  scene.setView(View::eIso, 1.5);
  scene.setView(View::eTop, 1.5);
  EXPECT_EQ(count(scene.root(), SoCamera::getClassTypeId()), 1);
  EXPECT_EQ(scene.root()->findChild(scene.camera()) >= 0, true);
}

TEST_F(ProjectSceneTest, HighlightedPointGetsMarkerLabelAndMaterialAndLosesThemAgain) {
  ProjectScene scene(project);
  tarn::ObjectPoint& point = ProjectFile::findPoint(project, 30);
  auto* node = static_cast<TarnOIObjectPointSeparator*>(
      static_cast<SoNode*>(scene.dictionary().atKey(&point)));
  const int before = node->getNumChildren();
  const int layers = scene.root()->getNumChildren();
  scene.highlight(point);
  EXPECT_EQ(count(node, TarnOIMaterialWithPriority::getClassTypeId()), 1);
  EXPECT_EQ(count(node, SoMarkerSet::getClassTypeId()), 1);
  EXPECT_EQ(count(node, TarnOIText2::getClassTypeId()), 1);
  auto* onTop = static_cast<SoGroup*>(scene.root()->getChild(layers - 1));
  EXPECT_NE(onTop->findChild(node), -1);
  scene.clearHighlight();
  EXPECT_EQ(node->getNumChildren(), before);
  EXPECT_EQ(count(node, TarnOIMaterialWithPriority::getClassTypeId()), 0);
  EXPECT_EQ(onTop->findChild(node), -1);
}

TEST_F(ProjectSceneTest, HighlightMovesFromOneObjectToTheNext) {
  ProjectScene scene(project);
  scene.highlight(ProjectFile::findPoint(project, 30));
  scene.highlight(station(2));
  scene.highlight(station(3));
  auto* last = static_cast<SoGroup*>(scene.dictionary().atKey(&station(3)));
  EXPECT_EQ(last->getNumChildren() > 7 &&
                last->getChild(7)->isOfType(TarnOIMaterialWithPriority::getClassTypeId()),
            true);
  SoSearchAction search;
  search.setType(TarnOIMaterialWithPriority::getClassTypeId());
  search.setInterest(SoSearchAction::ALL);
  search.apply(scene.root());
  // In front of the symbol and in front of the frustum's lines.
  EXPECT_EQ(search.getPaths().getLength(), 2);
}

TEST_F(ProjectSceneTest, LabelsNameEveryStationAndAsManyPointsAsThereIsRoomFor) {
  ProjectScene scene(project);
  scene.setView(View::eIso, 4.0 / 3.0);
  scene.showLabels(SbViewportRegion(800, 600));
  const int shown = count(scene.root(), TarnOIText2::getClassTypeId());
  EXPECT_GT(shown, 12 + 10);
  EXPECT_LT(shown, 12 + 300);
  scene.hideLabels();
  EXPECT_EQ(count(scene.root(), TarnOIText2::getClassTypeId()), 0);
}

TEST_F(ProjectSceneTest, LookingThroughAStationLeavesItsSymbolOut) {
  ProjectScene scene(project);
  ASSERT_TRUE(scene.setView(station(4)));
  EXPECT_EQ(count(scene.root(), TarnOICameraStationSeparator::getClassTypeId()), 11);
}

TEST_F(ProjectSceneTest, LookingThroughTheMarkedStationTakesTheMarkOff) {
  ProjectScene scene(project);
  scene.highlight(station(4));
  ASSERT_TRUE(scene.setView(station(4)));
  EXPECT_EQ(count(scene.root(), TarnOIMaterialWithPriority::getClassTypeId()), 0);
  // What came after it worked on the node that was gone.
  scene.setImagePlanes(true);
  scene.clearHighlight();
  scene.highlight(station(4));
  scene.highlight(station(5));
  EXPECT_GT(count(scene.root(), TarnOIMaterialWithPriority::getClassTypeId()), 0);
}

TEST_F(ProjectSceneTest, StationThatIsNotOrientedCannotBeLookedThrough) {
  tarn::CameraStation& lost = project.AddCameraStation();
  ProjectScene scene(project);
  scene.setView(View::eIso, 1.0);
  SoCamera* camera = scene.camera();
  EXPECT_FALSE(scene.setView(lost));
  EXPECT_EQ(scene.camera(), camera);
}

TEST_F(ProjectSceneTest, EmptyProjectMakesAScene) {
  tarn::Project empty;
  ProjectScene scene(empty);
  scene.setView(View::eIso, 1.0);
  scene.showLabels(SbViewportRegion(80, 60));
  EXPECT_EQ(count(scene.root(), SoCamera::getClassTypeId()), 1);
}
