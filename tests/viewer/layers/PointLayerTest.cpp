#include "viewer/layers/PointLayer.h"

#include <Inventor/SbViewportRegion.h>
#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoMaterialBinding.h>
#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/model/Project.h"
#include "nodes/framework/TarnOIText2.h"
#include "nodes/meshes/TarnOIPointMeshSeparator.h"
#include "nodes/points/TarnOIObjectPointSeparator.h"
#include "tests/support/NodesBelow.h"
#include "tests/support/SyntheticScene.h"
#include "tests/support/TarnTest.h"
#include "viewer/LabelPlaces.h"
#include "viewer/layers/SceneContext.h"

#include <memory>

class PointLayerTest : public TarnTest {
protected:
  PointLayerTest() { SyntheticScene(12, points).addTo(project); }

  PointLayer& show(const PointLayer::Options& options) {
    layer = std::make_unique<PointLayer>(project, options, context);
    return *layer;
  }
  PointLayer& showCloud() { return show({{}, points - 1}); }

  tarn::ObjectPoint& point(int i) {
    return *static_cast<tarn::ObjectPoint*>(project.GetObjectPoints().at(i));
  }

  template <typename Node>
  static int count(SoNode* root) {
    return static_cast<int>(nodesBelow<Node>(root).size());
  }

  static constexpr int points = 60;
  tarn::Project project;
  SceneContext context{{}};
  std::unique_ptr<PointLayer> layer;
};

TEST_F(PointLayerTest, PointsHaveANodeEachUpToTheLimitAndAreOneCloudBeyond) {
  show({{}, points});
  EXPECT_EQ(count<TarnOIObjectPointSeparator>(layer->root()), points);
  EXPECT_EQ(count<TarnOIPointMeshSeparator>(layer->root()), 0);
  showCloud();
  EXPECT_EQ(count<TarnOIObjectPointSeparator>(layer->root()), 0);
  EXPECT_EQ(count<TarnOIPointMeshSeparator>(layer->root()), 1);
  EXPECT_EQ(count<SoMaterialBinding>(layer->root()), 1) << "the cloud has no colours";
}

TEST_F(PointLayerTest, PointsWithoutPositionDoNotCount) {
  project.AddObjectPoint();
  show({{}, points});
  EXPECT_EQ(count<TarnOIObjectPointSeparator>(layer->root()), points);
}

TEST_F(PointLayerTest, PointsWithErrorEllipsoidsHaveANodeEachHoweverMany) {
  show({10.0, 0});
  EXPECT_EQ(count<TarnOIObjectPointSeparator>(layer->root()), points);
}

TEST_F(PointLayerTest, PointOfACloudIsMarkedAndLosesItsMarkAgain) {
  showCloud().mark(point(7));
  EXPECT_EQ(layer->markedPoint(), &point(7));
  EXPECT_EQ(count<TarnOIObjectPointSeparator>(layer->root()), 1);
  EXPECT_EQ(count<TarnOIText2>(layer->onTop()), 1);
  EXPECT_EQ(count<TarnOIMaterialWithPriority>(layer->onTop()), 1);
  layer->clearMark();
  EXPECT_EQ(layer->markedPoint(), nullptr);
  EXPECT_EQ(count<TarnOIText2>(layer->root()), 0);
  EXPECT_EQ(count<TarnOIObjectPointSeparator>(layer->onTop()), 0);
  layer->mark(point(7));
  EXPECT_EQ(count<TarnOIObjectPointSeparator>(layer->root()), 1) << "a second node was made";
}

TEST_F(PointLayerTest, PointWithoutPositionIsNotMarked) {
  tarn::ObjectPoint& lost = project.AddObjectPoint();
  showCloud().mark(lost);
  EXPECT_EQ(layer->markedPoint(), nullptr);
}

TEST_F(PointLayerTest, PointsOfACloudAreNamedWhereThereIsRoom) {
  const tarn::Extents box = project.GetProjectExtents(nullptr, 0, 0);
  tarn::gThreeDViewOffset = box.GetCentre();
  const NodeRef<SoOrthographicCamera> camera = makeNode<SoOrthographicCamera>();
  camera->height = static_cast<float>(box.GetLongestSide());
  camera->position = SbVec3f(0.0F, 0.0F, 100.0F);
  camera->nearDistance = 1.0F;
  camera->farDistance = 1000.0F;
  const SbViewportRegion viewport(800, 800);
  LabelPlaces ofNodes(*camera, viewport);
  show({}).showLabels(ofNodes);
  const int named = count<TarnOIText2>(layer->root());
  EXPECT_GT(named, 2);
  LabelPlaces ofCloud(*camera, viewport);
  showCloud().showLabels(ofCloud);
  EXPECT_EQ(count<TarnOIText2>(layer->root()), named);
  layer->hideLabels();
  EXPECT_EQ(count<TarnOIText2>(layer->root()), 0);
}

TEST_F(PointLayerTest, PointOfACloudIsFoundByItsIndex) {
  showCloud();
  SoSearchAction search;
  search.setType(TarnOIPointMeshSeparator::getClassTypeId());
  search.apply(layer->root());
  auto* node = static_cast<TarnOIPointMeshSeparator*>(search.getPath()->getTail());
  const tarn::VObject& cloud = *node->GetTarnObject();
  search.reset();  // its path would keep nodes of the layer longer than their dictionaries
  EXPECT_EQ(layer->pointOfCloud(cloud, 5), &point(5));
  EXPECT_EQ(layer->pointOfCloud(cloud, -1), nullptr);
  EXPECT_EQ(layer->pointOfCloud(cloud, points), nullptr);
  EXPECT_EQ(layer->pointOfCloud(tarn::PointMesh(), 5), nullptr);
  EXPECT_EQ(show({}).pointOfCloud(tarn::PointMesh(), 5), nullptr);
}
