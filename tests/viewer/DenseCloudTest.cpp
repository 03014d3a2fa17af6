#include "viewer/DenseCloud.h"

#include "tests/support/TarnTest.h"

#include <filesystem>

class DenseCloudTest : public TarnTest {
protected:
  std::string found(const std::string& from) const {
    const std::string file = DenseCloud::find(from);
    return file.empty() ? "" : std::filesystem::relative(file, folder.path()).string();
  }

  TemporaryFolder folder;
};

TEST_F(DenseCloudTest, NothingIsFoundWhereThereIsNone) {
  folder.write("sparse/cameras.txt", "");
  folder.write("scan.ply", "");
  EXPECT_EQ(found(folder.path()), "");
  EXPECT_EQ(found(folder.file("absent")), "");
}

TEST_F(DenseCloudTest, WorkspaceHoldsItsCloudInDenseOrBesideTheModel) {
  for (const char* place :
       {"fused.ply", "dense/fused.ply", "dense/0/fused.ply", "sparse/0/fused.ply", "cloud.ply",
        "dense/meshed-poisson.ply", "meshed-delaunay.ply"}) {
    TemporaryFolder workspace;
    const std::string file = workspace.write(place, "");
    EXPECT_EQ(DenseCloud::find(workspace.path()), file);
    EXPECT_EQ(DenseCloud::find(workspace.path() + "/"), file);
  }
}

TEST_F(DenseCloudTest, CloudBesideTheModelsOwnFolderIsFound) {
  folder.write("cloud.ply", "");
  folder.write("sparse/cameras.txt", "");
  EXPECT_EQ(found(folder.file("sparse")), "cloud.ply");
  EXPECT_EQ(found(folder.file("sparse/")), "cloud.ply");
  folder.write("more/sparse/0/cameras.bin", "");
  folder.write("more/dense/fused.ply", "");
  EXPECT_EQ(found(folder.file("more/sparse/0")), "more/dense/fused.ply");
}

TEST_F(DenseCloudTest, FoldersAboveAWorkspaceAreNotLookedInto) {
  folder.write("cloud.ply", "");
  folder.write("project/sparse/cameras.bin", "");
  EXPECT_EQ(found(folder.file("project")), "");
}

TEST_F(DenseCloudTest, CloudComesBeforeMesh) {
  folder.write("dense/meshed-poisson.ply", "");
  folder.write("dense/meshed-delaunay.ply", "");
  EXPECT_EQ(found(folder.path()), "dense/meshed-poisson.ply");
  folder.write("cloud.ply", "");
  EXPECT_EQ(found(folder.path()), "cloud.ply");
  folder.write("dense/fused.ply", "");
  EXPECT_EQ(found(folder.path()), "dense/fused.ply");
}

TEST_F(DenseCloudTest, FolderOfACloudsNameIsNoCloud) {
  std::filesystem::create_directories(folder.file("fused.ply"));
  EXPECT_EQ(found(folder.path()), "");
}
