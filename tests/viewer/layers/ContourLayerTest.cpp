#include "viewer/layers/ContourLayer.h"

#include <Inventor/actions/SoSearchAction.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/model/Project.h"
#include "nodes/meshes/TarnOIContourSeparator.h"
#include "tests/support/TarnTest.h"
#include "viewer/layers/SceneContext.h"

#include <algorithm>
#include <map>
#include <memory>
#include <stdexcept>
#include <vector>

class ContourLayerTest : public TarnTest {
protected:
  // A ramp of 11 x 11 points that rises 1 unit along x, from `lowest` on.
  tarn::PointMesh& addRamp(float lowest, bool triangulated) {
    tarn::PointMesh& mesh = project.AddPointMesh();
    mesh.Allocate(121, 0);
    for (int i = 0; i < 121; ++i) {
      float* point = mesh.GetPoints()[i];
      point[0] = static_cast<float>(i % 11);
      point[1] = static_cast<float>(i / 11);
      point[2] = lowest + 0.1F * static_cast<float>(i % 11);
    }
    if (!triangulated) return mesh;
    std::vector<tarn::PointMesh::Corners> triangles;
    for (int i = 0; i < 110; ++i) {
      if (i % 11 == 10) continue;
      triangles.push_back({i, i + 1, i + 11});
      triangles.push_back({i + 1, i + 12, i + 11});
    }
    EXPECT_TRUE(mesh.SetTriangles(std::move(triangles)));
    return mesh;
  }

  std::unique_ptr<ContourLayer> show(double spacing) {
    return std::make_unique<ContourLayer>(project, spacing, 0.25, context);
  }

  // The widths of the lines, by their contours' heights.
  static std::map<double, float> widths(const ContourLayer& layer) {
    SoSearchAction search;
    search.setType(TarnOIContourSeparator::getClassTypeId());
    search.setInterest(SoSearchAction::ALL);
    search.apply(layer.root());
    std::map<double, float> found;
    for (int i = 0; i < search.getPaths().getLength(); ++i) {
      SoPath* path = search.getPaths()[i];
      auto* node = static_cast<TarnOIContourSeparator*>(path->getTail());
      auto* parent = static_cast<SoGroup*>(path->getNodeFromTail(1));
      auto* style = static_cast<SoDrawStyle*>(parent->getChild(0));
      auto* contour = static_cast<tarn::PointMeshContour*>(node->GetTarnObject());
      found[contour->GetHeight()] = style->lineWidth.getValue();
    }
    return found;
  }

  std::string refusal(double spacing) {
    try {
      show(spacing);
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "nothing was refused";
  }

  tarn::Project project;
  SceneContext context{{}};
};

TEST_F(ContourLayerTest, LinesRunAtTheMultiplesOfTheSpacingAndEveryFifthIsWider) {
  addRamp(10.05F, true);
  const auto layer = show(0.125);
  EXPECT_EQ(widths(*layer), (std::map<double, float>{{10.125, 1.0F},
                                                     {10.25, 1.0F},
                                                     {10.375, 1.0F},
                                                     {10.5, 1.0F},
                                                     {10.625, 2.5F},
                                                     {10.75, 1.0F},
                                                     {10.875, 1.0F},
                                                     {11.0, 1.0F}}));
}

TEST_F(ContourLayerTest, FifthLinesAreCountedFromZeroDownwardsToo) {
  addRamp(-1.05F, true);
  const auto layer = show(0.1);
  for (const auto& [height, width] : widths(*layer)) {
    const bool isFifth =
        std::abs(height) < 1e-6 || std::abs(height + 0.5) < 1e-6 || std::abs(height + 1.0) < 1e-6;
    EXPECT_EQ(width, isFifth ? 2.5F : 1.0F) << height;
  }
}

TEST_F(ContourLayerTest, CloudWithoutTrianglesIsTriangulatedInPlan) {
  tarn::PointMesh& cloud = addRamp(10.05F, false);
  const auto layer = show(0.25);
  EXPECT_EQ(widths(*layer).size(), 4U);
  EXPECT_EQ(cloud.GetNumTriangles(), 0);
  auto* contour = static_cast<tarn::PointMeshContour*>(cloud.GetContours().at(0));
  EXPECT_EQ(contour->GetHeight(), 10.25);
  for (int i = 0; i < contour->GetNumberOfPoints(); ++i) {
    EXPECT_NEAR(contour->GetPoints(1)[i][0], 2.0, 1e-4);
  }
}

TEST_F(ContourLayerTest, CloudThatIsThinnedIsNamed) {
  constexpr int side = 501;
  tarn::PointMesh& cloud = project.AddPointMesh();
  cloud.SetName("dense");
  cloud.Allocate(side * side, 0);
  for (int i = 0; i < side * side; ++i) {
    float* point = cloud.GetPoints()[i];
    point[0] = static_cast<float>(i % side);
    point[1] = static_cast<float>(i / side);
    point[2] = 0.01F * static_cast<float>(i % side);
  }
  EXPECT_THAT(show(1.0)->notes(),
              ::testing::ElementsAre("the contours of \"dense\" go by 125501 of its 251001 places "
                                     "in plan, evenly thinned"));
}

TEST_F(ContourLayerTest, CloudThatIsUsedWholeIsNotNamed) {
  addRamp(10.05F, false);
  addRamp(11.0F, true);
  EXPECT_TRUE(show(0.25)->notes().empty());
}

TEST_F(ContourLayerTest, LinesAreDrawnAboveTheirHeights) {
  addRamp(10.05F, true);
  const auto layer = show(0.25);
  SoSearchAction search;
  search.setType(SoTranslation::getClassTypeId());
  search.apply(layer->root());
  ASSERT_NE(search.getPath(), nullptr);
  EXPECT_EQ(static_cast<SoTranslation*>(search.getPath()->getTail())->translation.getValue(),
            SbVec3f(0.0F, 0.25F, 0.0F));
}

TEST_F(ContourLayerTest, LaterLayerTakesThePlaceOfTheEarlierLines) {
  tarn::PointMesh& mesh = addRamp(10.05F, true);
  show(0.25);
  const auto layer = show(0.5);
  EXPECT_EQ(mesh.GetContours().size(), 2);
  EXPECT_EQ(widths(*layer).size(), 2U);
}

TEST_F(ContourLayerTest, MeshWithoutPointsHasNoLines) {
  project.AddPointMesh().Allocate(0, 0);
  EXPECT_TRUE(widths(*show(1.0)).empty());
}

TEST_F(ContourLayerTest, ProjectWithoutMeshesIsRefused) {
  EXPECT_EQ(refusal(1.0),
            "there is no dense cloud or mesh to draw contours over; --cloud FILE names one");
}

TEST_F(ContourLayerTest, SpacingThatGivesTooManyLinesIsRefusedWithOneThatDoesNot) {
  addRamp(10.0F, true);
  EXPECT_EQ(refusal(1e-9),
            "contours every 1e-09 over heights from 10 to 11 are more than 2000; a spacing of "
            "0.0005 or more is needed");
  EXPECT_EQ(refusal(0.001), "nothing was refused");
}

TEST_F(ContourLayerTest, RefusalTellsHeightsFarFromZeroApart) {
  addRamp(5000000.0F, true);
  EXPECT_EQ(refusal(1e-9),
            "contours every 1e-09 over heights from 5000000 to 5000001 are more than 2000; a "
            "spacing of 0.0005 or more is needed");
}
