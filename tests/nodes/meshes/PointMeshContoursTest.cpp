#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoSeparator.h>

#include "tests/nodes/meshes/PointMeshFixture.h"

#include <vector>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

namespace {

class OpenContoursNode : public OpenMeshNode {
public:
  using TarnOIPointMeshSeparator::AddContours;
};

}  // namespace

/// Contours under a mesh node. What one contour's nodes hold is tested with MeshContours.
class PointMeshContoursTest : public PointMeshFixture {
protected:
  void SetUp() override {
    for (const double height : {1.0, 2.0}) {
      mesh.AddContour().SetPoints(std::vector<tarn::Point3DDouble>{{10.5, -20.25, height}});
    }
  }

  /// The height of the first vertex of the contour whose coordinates are that child.
  double heightAt(int child) const {
    const auto* coordinates =
        static_cast<const SoCoordinate3*>(node->contourSeparator->getChild(child));
    return static_cast<double>(coordinates->point[0][1]) + viewOffset.z;
  }

  tarn::PointMeshContour& contour(int i) const {
    return *static_cast<tarn::PointMeshContour*>(mesh.GetContours().at(i));
  }

  NodeRef<OpenContoursNode> node = makeNode<OpenContoursNode>();
};

TEST_F(PointMeshContoursTest, ABuiltMeshHasNoContours) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_FALSE(node->contourSeparator);
}

TEST_F(PointMeshContoursTest, TheFirstContourBringsTheSeparatorBehindTheChildren) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->AddContour(&contour(1));
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet", "Separator"));
  EXPECT_EQ(node->getChild(2), node->contourSeparator.get());
  EXPECT_THAT(childTypes(*node->contourSeparator),
              ElementsAre("Material", "Coordinate3", "LineSet"));
  EXPECT_DOUBLE_EQ(heightAt(1), 2.0);
}

TEST_F(PointMeshContoursTest, LaterContoursJoinThemUnderTheOneMaterial) {
  node->AddContour(&contour(0));
  preferences.takeReads();
  node->AddContour(&contour(1));
  EXPECT_THAT(childTypes(*node), ElementsAre("Separator"));
  EXPECT_THAT(childTypes(*node->contourSeparator),
              ElementsAre("Material", "Coordinate3", "LineSet", "Coordinate3", "LineSet"));
  EXPECT_THAT(preferences.takeReads(),
              ElementsAre(PreferenceRead{PreferenceRead::eBool, "IncludePointsInContours", "0",
                                         "DenseStereo"}));
}

TEST_F(PointMeshContoursTest, AllContoursOfTheMeshAreAddedInTheirOrder) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->AddContours();
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet", "Separator"));
  EXPECT_THAT(childTypes(*node->contourSeparator),
              ElementsAre("Material", "Coordinate3", "LineSet", "Coordinate3", "LineSet"));
  EXPECT_DOUBLE_EQ(heightAt(1), 1.0);
  EXPECT_DOUBLE_EQ(heightAt(3), 2.0);
}

TEST_F(PointMeshContoursTest, WithoutContoursThereIsNoSeparator) {
  mesh.ClearContours();
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->AddContours();
  node->AddContour(nullptr);
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
}

TEST_F(PointMeshContoursTest, AnUnboundNodeAndOneOfASurfaceHaveNoContoursToAdd) {
  node->AddContours();
  tarn::Surface surface;
  node->SetTriangulatedPointMeshAndTextures(&surface, &dictionary, nullptr, nullptr, nullptr,
                                            nullptr, nullptr);
  node->AddContours();
  EXPECT_FALSE(node->contourSeparator);
  node.reset();
}

TEST_F(PointMeshContoursTest, ACloudBuiltAnewKeepsTheSeparatorOutsideItsChildren) {
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->AddContour(&contour(0));
  const SoSeparator* const before = node->contourSeparator.get();
  node->SetPointCloudPointMesh(&mesh, &dictionary);
  node->AddContour(&contour(1));
  EXPECT_THAT(childTypes(*node), ElementsAre("Coordinate3", "PointSet"));
  EXPECT_EQ(node->contourSeparator.get(), before);
  EXPECT_EQ(before->getNumChildren(), 5);
}

TEST_F(PointMeshContoursTest, AMeshBuiltAnewStartsWithoutContours) {
  setTriangles();
  node->SetTriMeshData(&mesh);
  node->AddContour(&contour(0));
  node->SetTriMeshData(&mesh);
  EXPECT_FALSE(node->contourSeparator);
  node->AddContour(&contour(1));
  EXPECT_THAT(childTypes(*node),
              ElementsAre("Normal", "Coordinate3", "IndexedFaceSet", "Separator"));
  EXPECT_THAT(childTypes(*node->contourSeparator),
              ElementsAre("Material", "Coordinate3", "LineSet"));
}
