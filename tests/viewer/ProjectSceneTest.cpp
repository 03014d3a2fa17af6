#include "viewer/ProjectScene.h"

#include <Inventor/SoPickedPoint.h>
#include <Inventor/actions/SoRayPickAction.h>
#include <Inventor/nodes/SoCamera.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoMarkerSet.h>
#include <Inventor/nodes/SoSwitch.h>

#include "host/model/Project.h"
#include "nodes/cameras/TarnOICameraRaysSeparator.h"
#include "nodes/cameras/TarnOICameraStationSeparator.h"
#include "nodes/cameras/TarnOIPointRaysSeparator.h"
#include "nodes/framework/SoGradientBackground.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/TarnOISearchAction.h"
#include "nodes/framework/TarnOISwitch.h"
#include "nodes/framework/TarnOIText2.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/hud/TarnOIColorizeScaleHUD.h"
#include "nodes/points/TarnOIObjectPointSeparator.h"
#include "tests/support/NodesBelow.h"
#include "tests/support/SourceTree.h"
#include "tests/support/TarnTest.h"
#include "viewer/ProjectFile.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <stdexcept>

using View = CommandLine::View;

class ProjectSceneTest : public TarnTest {
protected:
  ProjectSceneTest() {
    ProjectFile::open(SourceTree::file("examples/demo"), project, {});
    setenv("XDG_CACHE_HOME", cacheFolder.path().c_str(), 1);
  }
  ~ProjectSceneTest() override { unsetenv("XDG_CACHE_HOME"); }

  template <typename Node>
  static int count(SoNode* root) {
    return static_cast<int>(nodesBelow<Node>(root).size());
  }
  tarn::CameraStation& station(int i) {
    return *static_cast<tarn::CameraStation*>(project.GetCameraStations().at(i));
  }

  TemporaryFolder cacheFolder;
  tarn::Project project;
};

TEST_F(ProjectSceneTest, EveryLayerIsASwitchOverALayerSeparator) {
  ProjectScene scene(project);
  EXPECT_EQ(count<TarnOISwitch>(scene.root()), 5);
  EXPECT_EQ(count<TarnOILayerSeparator>(scene.root()), 5);
  EXPECT_EQ(count<TarnOICameraStationSeparator>(scene.root()), 12);
  EXPECT_EQ(count<TarnOIObjectPointSeparator>(scene.root()), project.GetObjectPoints().size());
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

TEST_F(ProjectSceneTest, ViewOffsetFarFromTheOriginIsWhole) {
  tarn::Project far;
  for (int i = 0; i < 2; ++i) {
    far.AddObjectPoint().SetApproximation(
        tarn::Point3DRandom({500000.25 + i, -4600000.125 + i, 12.5 + i}));
  }
  ProjectScene scene(far);
  EXPECT_EQ(tarn::gThreeDViewOffset, tarn::Point3DDouble(500001.0, -4600000.0, 13.0));
}

TEST_F(ProjectSceneTest, NewViewReplacesTheCamera) {
  ProjectScene scene(project);
  scene.setView(View::eIso, 1.5);
  scene.setView(View::eTop, 1.5);
  EXPECT_EQ(count<SoCamera>(scene.root()), 1);
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
  EXPECT_EQ(count<TarnOIMaterialWithPriority>(node), 1);
  EXPECT_EQ(count<SoMarkerSet>(node), 1);
  EXPECT_EQ(count<TarnOIText2>(node), 1);
  auto* onTop = static_cast<SoGroup*>(scene.root()->getChild(layers - 1));
  EXPECT_NE(onTop->findChild(node), -1);
  scene.clearHighlight();
  EXPECT_EQ(node->getNumChildren(), before);
  EXPECT_EQ(count<TarnOIMaterialWithPriority>(node), 0);
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

TEST_F(ProjectSceneTest, LabelsNameAsManyStationsAndPointsAsThereIsRoomFor) {
  ProjectScene scene(project);
  scene.setView(View::eIso, 4.0 / 3.0);
  scene.showLabels(SbViewportRegion(800, 600));
  const int shown = count<TarnOIText2>(scene.root());
  EXPECT_GT(shown, 12 + 10);
  EXPECT_LT(shown, 12 + 300);
  scene.showLabels(SbViewportRegion(120, 90));
  int stations = 0;
  for (int i = 0; i < 12; ++i) {
    stations += count<TarnOIText2>(static_cast<SoNode*>(scene.dictionary().atKey(&station(i))));
  }
  EXPECT_GT(stations, 0);
  EXPECT_LT(stations, 6);
  scene.hideLabels();
  EXPECT_EQ(count<TarnOIText2>(scene.root()), 0);
}

TEST_F(ProjectSceneTest, StationsWithoutRoomForTheirNamesStayUnnamedWhenTheyAreShownAnew) {
  ProjectScene scene(project);
  scene.setView(View::eIso, 4.0 / 3.0);
  scene.showLabels(SbViewportRegion(120, 90));
  const int shown = count<TarnOIText2>(scene.root());
  scene.setImagePlanes(true);
  EXPECT_EQ(count<TarnOIText2>(scene.root()), shown);
}

TEST_F(ProjectSceneTest, MarkedStationIsNamedBeforeTheOthers) {
  ProjectScene scene(project);
  scene.setView(View::eIso, 4.0 / 3.0);
  // So small that there is room for few of them.
  const SbViewportRegion small(160, 120);
  const auto isNamed = [&](int i) {
    return count<TarnOIText2>(static_cast<SoNode*>(scene.dictionary().atKey(&station(i))));
  };
  int namedTogether = 0;
  scene.showLabels(small);
  for (int i = 0; i < 12; ++i) namedTogether += isNamed(i);
  int namedWhenMarked = 0;
  for (int i = 0; i < 12; ++i) {
    scene.highlight(station(i));
    scene.showLabels(small);
    namedWhenMarked += isNamed(i);
  }
  EXPECT_GT(namedTogether, 0);
  EXPECT_GT(namedWhenMarked, namedTogether);
}

TEST_F(ProjectSceneTest, MarkStaysWhenPhotographsAreShown) {
  ProjectScene scene(project);
  scene.highlight(station(4));
  for (const bool show : {true, false}) {
    scene.setImagePlanes(show);
    EXPECT_GT(count<TarnOIMaterialWithPriority>(scene.root()), 0);
    EXPECT_GT(count<TarnOIMaterialWithPriority>(
                  static_cast<SoNode*>(scene.dictionary().atKey(&station(4)))),
              0);
  }
  scene.clearHighlight();
  EXPECT_EQ(count<TarnOIMaterialWithPriority>(scene.root()), 0);
}

TEST_F(ProjectSceneTest, LookingThroughAStationLeavesItsSymbolOut) {
  ProjectScene scene(project);
  ASSERT_TRUE(scene.setView(station(4)));
  EXPECT_EQ(count<TarnOICameraStationSeparator>(scene.root()), 11);
}

TEST_F(ProjectSceneTest, LookingThroughTheMarkedStationTakesTheMarkOff) {
  ProjectScene scene(project);
  scene.highlight(station(4));
  ASSERT_TRUE(scene.setView(station(4)));
  EXPECT_EQ(count<TarnOIMaterialWithPriority>(scene.root()), 0);
  // What came after it worked on the node that was gone.
  scene.setImagePlanes(true);
  scene.clearHighlight();
  scene.highlight(station(4));
  scene.highlight(station(5));
  EXPECT_GT(count<TarnOIMaterialWithPriority>(scene.root()), 0);
}

TEST_F(ProjectSceneTest, PhotographThatCannotBeShownIsNamedOnce) {
  TemporaryFolder photographs;
  const std::string whole = SourceTree::file("examples/demo/images/station03.jpg");
  const auto half = std::filesystem::file_size(whole) / 2;
  std::filesystem::copy_file(whole, photographs.file("cut.jpg"));
  std::filesystem::resize_file(photographs.file("cut.jpg"), half);
  const std::string junk = photographs.write("junk.jpg", "no photograph");
  station(0).GetPhotograph()->SetImageFile(tarn::VPathString(junk));
  station(1).GetPhotograph()->SetImageFile(tarn::VPathString(photographs.file("cut.jpg")));
  station(2).GetPhotograph()->SetImageFile(tarn::VPathString(photographs.file("absent.jpg")));
  ProjectScene::Options options;
  options.imagePlanes = true;
  ProjectScene scene(project, options);
  scene.setImagePlanes(false);
  scene.setImagePlanes(true);
  ASSERT_EQ(scene.problems().size(), 3U);
  EXPECT_THAT(scene.problems()[0], ::testing::HasSubstr("/junk.jpg: "));
  EXPECT_THAT(scene.problems()[1], ::testing::HasSubstr("/cut.jpg: "));
  EXPECT_THAT(scene.problems()[2], ::testing::HasSubstr("/absent.jpg: "));
}

TEST_F(ProjectSceneTest, StationThatIsNotOrientedCannotBeLookedThrough) {
  tarn::CameraStation& lost = project.AddCameraStation();
  ProjectScene scene(project);
  scene.setView(View::eIso, 1.0);
  SoCamera* camera = scene.camera();
  EXPECT_FALSE(scene.setView(lost));
  EXPECT_EQ(scene.camera(), camera);
}

TEST_F(ProjectSceneTest, PickedObjectIsFoundBehindItsNodeItsCloudAndItsRays) {
  const SbViewportRegion viewport(800, 600);
  const auto pick = [&](ProjectScene& scene, const tarn::Point3DDouble& at) -> tarn::VObject* {
    SbVec3f screen;
    scene.camera()->getViewVolume(4.0F / 3.0F).projectToScreen(ViewerFrame::fromModel(at), screen);
    SoRayPickAction action(viewport);
    action.setNormalizedPoint(SbVec2f(screen[0], screen[1]));
    action.setRadius(3.0F);
    action.apply(scene.root());
    const SoPickedPoint* picked = action.getPickedPoint();
    return picked ? scene.objectAt(*picked) : nullptr;
  };
  tarn::ObjectPoint& corner = ProjectFile::findPoint(project, 1);
  tarn::Point3DRandom position;
  ASSERT_TRUE(corner.GetApproximation(position));
  for (const int mostNodes : {50'000, 0}) {
    ProjectScene::Options options;
    options.mostPointNodes = mostNodes;
    ProjectScene scene(project, options);
    scene.setView(View::eTop, 4.0 / 3.0);
    EXPECT_EQ(pick(scene, position.position()), &corner) << mostNodes;
    EXPECT_EQ(pick(scene, station(3).GetPosition()), &station(3));
    EXPECT_EQ(pick(scene, {-200.0, 600.0, 0.0}), nullptr);
    const tarn::Point3DDouble onRay =
        position.position() + 0.6 * (station(6).GetPosition() - position.position());
    EXPECT_EQ(pick(scene, onRay), nullptr);
    scene.showRays(corner);
    EXPECT_EQ(pick(scene, onRay), &corner);
  }
}

TEST_F(ProjectSceneTest, RaysOfTheMarkedObjectAreShownAndHidden) {
  ProjectScene scene(project);
  const auto ofPoint = [&] { return count<TarnOIPointRaysSeparator>(scene.root()); };
  const auto ofStation = [&] { return count<TarnOICameraRaysSeparator>(scene.root()); };
  scene.toggleRaysOfHighlighted();
  EXPECT_EQ(ofPoint() + ofStation(), 0);
  scene.highlight(ProjectFile::findPoint(project, 30));
  scene.toggleRaysOfHighlighted();
  EXPECT_EQ(ofPoint(), 1);
  scene.highlight(station(3));
  scene.toggleRaysOfHighlighted();
  EXPECT_EQ(ofPoint(), 0);
  EXPECT_EQ(ofStation(), 1);
  scene.toggleRaysOfHighlighted();
  EXPECT_EQ(ofStation(), 0);
  scene.toggleRaysOfHighlighted();
  scene.clearHighlight();
  scene.toggleRaysOfHighlighted();
  EXPECT_EQ(ofStation(), 0);
}

TEST_F(ProjectSceneTest, RaysOfSeveralObjectsAreShownTogether) {
  ProjectScene scene(project);
  scene.showRays(ProjectFile::findPoint(project, 30));
  scene.showRays(ProjectFile::findPoint(project, 31));
  scene.showRays(station(3));
  EXPECT_EQ(count<TarnOIPointRaysSeparator>(scene.root()), 2);
  EXPECT_EQ(count<TarnOICameraRaysSeparator>(scene.root()), 1);
}

TEST_F(ProjectSceneTest, AxisAndGroundPlaneAreShownWhenTheyAreAskedFor) {
  ProjectScene bare(project);
  EXPECT_FALSE(bare.showsAxis());
  EXPECT_FALSE(bare.showsGroundPlane());
  ProjectScene::Options options;
  options.axis = true;
  options.groundPlane = true;
  ProjectScene scene(project, options);
  EXPECT_TRUE(scene.showsAxis());
  EXPECT_TRUE(scene.showsGroundPlane());
  scene.setView(View::eIso, 1.0);
  scene.setAxis(false);
  scene.setGroundPlane(false);
  EXPECT_FALSE(scene.showsAxis());
  EXPECT_FALSE(scene.showsGroundPlane());
}

TEST_F(ProjectSceneTest, MeshesAreHiddenAndShownAgain) {
  ProjectScene scene(project);
  EXPECT_TRUE(scene.areMeshesVisible());
  scene.setMeshesVisible(false);
  EXPECT_FALSE(scene.areMeshesVisible());
  scene.setMeshesVisible(true);
  EXPECT_TRUE(scene.areMeshesVisible());
}

TEST_F(ProjectSceneTest, GradientIsDrawnBeforeAllElseUnlessAnotherBackgroundIsAskedFor) {
  using Kind = SceneBackground::Kind;
  ProjectScene scene(project);
  EXPECT_EQ(scene.background().kind(), Kind::eGradient);
  EXPECT_TRUE(scene.root()->getChild(0)->isOfType(SoGradientBackground::getClassTypeId()));
  for (const Kind kind : {Kind::ePlain, Kind::eNone}) {
    scene.setBackground(kind);
    EXPECT_EQ(scene.background().kind(), kind);
    EXPECT_EQ(count<SoBackground>(scene.root()), 0);
  }
  scene.setBackground(Kind::eGradient);
  scene.setBackground(Kind::eGradient);
  EXPECT_TRUE(scene.root()->getChild(0)->isOfType(SoGradientBackground::getClassTypeId()));
  EXPECT_EQ(count<SoBackground>(scene.root()), 1);
}

TEST_F(ProjectSceneTest, PictureWithoutBackgroundIsClearedInBlack) {
  ProjectScene::Options options;
  options.background = SceneBackground::Kind::eNone;
  ProjectScene scene(project, options);
  EXPECT_EQ(scene.background().color(), SbColor(0.0F, 0.0F, 0.0F));
  scene.setBackground(SceneBackground::Kind::ePlain);
  EXPECT_NE(scene.background().color(), SbColor(0.0F, 0.0F, 0.0F));
}

/// A project whose cameras stand upright about another direction than Z.
class ProjectSceneNotLevelledTest : public TarnTest {
protected:
  ProjectSceneNotLevelledTest() {
    tarn::MatrixDouble rotation = tarn::MatrixDouble::Identity(3);
    rotation(2, 2) = -1.0;
    rotation(3, 3) = -1.0;
    project.AddCameraStation().SetOrientation({1.0, 2.0, 3.0}, rotation);
  }

  tarn::Project project;
  ProjectScene::Options options;
};

TEST_F(ProjectSceneNotLevelledTest, ContoursAreRefused) {
  project.AddPointMesh().Allocate(0, 0);
  options.contourSpacing = 1.0;
  try {
    ProjectScene scene(project, options);
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_THAT(error.what(), ::testing::StartsWith("contours need heights along Z, "));
  }
}

TEST_F(ProjectSceneNotLevelledTest, GroundPlaneIsShownWithANote) {
  EXPECT_TRUE(ProjectScene(project, options).notes().empty());
  options.groundPlane = true;
  const ProjectScene scene(project, options);
  EXPECT_TRUE(scene.showsGroundPlane());
  EXPECT_THAT(
      scene.notes(),
      ::testing::ElementsAre(::testing::StartsWith("the ground plane lies along X and Y, and ")));
}

TEST_F(ProjectSceneTest, EmptyProjectMakesAScene) {
  tarn::Project empty;
  ProjectScene scene(empty);
  scene.setView(View::eIso, 1.0);
  scene.showLabels(SbViewportRegion(80, 60));
  EXPECT_EQ(count<SoCamera>(scene.root()), 1);
}

class ProjectSceneOfACloudTest : public TarnTest {
protected:
  ProjectSceneOfACloudTest() : cloud(project.AddPointMesh()) {
    cloud.Allocate(100, 1);
    for (int i = 0; i < 100; ++i) {
      cloud.GetPoints()[i][0] = static_cast<float>(i % 10);
      cloud.GetPoints()[i][1] = static_cast<float>(i / 10);
      cloud.GetPoints()[i][2] = 0.1F * static_cast<float>(i % 7);
    }
  }
  bool showsScale(ProjectScene& scene) const {
    SoSearchAction search;
    search.setType(TarnOIColorizeScaleHUD::getClassTypeId());
    search.apply(scene.root());
    return search.getPath() != nullptr;
  }

  tarn::Project project;
  tarn::PointMesh& cloud;
  ProjectScene::Options options;
};

TEST_F(ProjectSceneOfACloudTest, HeightScaleGoesWithTheHeightColoursAndComesAgain) {
  using Color = CommandLine::Color;
  options.color = Color::eHeight;
  ProjectScene scene(project, options);
  scene.setColor(Color::eNone);
  EXPECT_FALSE(showsScale(scene));
  scene.setColor(Color::eHeight);
  ASSERT_EQ(scene.showHeightScale(), "");
  for (const Color color : {Color::eNone, Color::eHeight, Color::eHeight, Color::eNone}) {
    scene.setColor(color);
    EXPECT_EQ(showsScale(scene), color == Color::eHeight);
    EXPECT_EQ(scene.color(), color);
  }
}

TEST_F(ProjectSceneOfACloudTest, HeightScaleIsShownForHeightColours) {
  options.color = CommandLine::Color::eHeight;
  ProjectScene scene(project, options);
  EXPECT_FALSE(showsScale(scene));
  EXPECT_EQ(scene.showHeightScale(), "");
  EXPECT_TRUE(showsScale(scene));
}

TEST_F(ProjectSceneOfACloudTest, WithoutHeightColoursThereIsNoScaleAndTheReasonIsTold) {
  ProjectScene scene(project, options);
  EXPECT_THAT(scene.showHeightScale(), ::testing::HasSubstr("nothing is coloured by height"));
  EXPECT_FALSE(showsScale(scene));
}

TEST_F(ProjectSceneOfACloudTest, ScaleOfCloudsWithDifferentShiftsIsNotShown) {
  options.color = CommandLine::Color::eHeight;
  tarn::PointMesh& shifted = project.AddPointMesh();
  shifted.Allocate(1, 0);
  std::ranges::fill(shifted.GetPointStorage(), 1.0F);
  tarn::BasicAffine model_from_stored;
  model_from_stored.SetTranslation({}, {0.0, 0.0, 20000.0});
  shifted.SetLocalAffine(model_from_stored);
  ProjectScene scene(project, options);
  EXPECT_THAT(scene.showHeightScale(), ::testing::HasSubstr("different shifts"));
  EXPECT_FALSE(showsScale(scene));
}

TEST_F(ProjectSceneOfACloudTest, MeshesThatAreShownLaterAreShownAsTheyAreThenInTheViewOfTheWhole) {
  ProjectScene whole(project, options);
  whole.setView(View::eIso, 1.5);
  options.meshes = false;
  ProjectScene scene(project, options);
  scene.setView(View::eIso, 1.5);
  EXPECT_EQ(scene.dictionary().atKey(&cloud), nullptr);
  std::vector<bool> kept(100);
  kept[7] = kept[70] = true;
  cloud.KeepPoints(kept);
  scene.showMeshes();
  SoSearchAction search;
  search.setType(SoCoordinate3::getClassTypeId());
  search.apply(static_cast<SoNode*>(scene.dictionary().atKey(&cloud)));
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(static_cast<SoCoordinate3*>(search.getPath()->getTail())->point.getNum(), 2);
  EXPECT_EQ(scene.camera()->position.getValue(), whole.camera()->position.getValue());
}
