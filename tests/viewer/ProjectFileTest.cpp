#include "viewer/ProjectFile.h"

#include "host/model/Project.h"
#include "io/ReadError.h"
#include "tests/support/SourceTree.h"
#include "tests/support/TarnTest.h"

#include <filesystem>

class ProjectFileTest : public TarnTest {
protected:
  ProjectFileTest() {
    for (const char* name : {"left/a.jpg", "right/a.jpg", "b.jpg"}) {
      project.AddCameraStation().SetName(name);
    }
  }

  template <typename Call>
  static std::string refusal(const Call& call) {
    try {
      call();
    } catch (const std::exception& error) {
      return error.what();
    }
    return "nothing was refused";
  }

  const std::string onePoint =
      "ply\nformat ascii 1.0\nelement vertex 1\nproperty float x\nproperty float y\n"
      "property float z\nend_header\n1 2 3\n";
  const std::string expected =
      ", expected the folder of a COLMAP model, a PLY file or a file of surfaces (OBJ, STL, OFF, "
      "glTF, FBX or 3DS)";
  tarn::Project project;
  TemporaryFolder folder;
};

TEST_F(ProjectFileTest, StationIsFoundByNameAndByStem) {
  EXPECT_EQ(ProjectFile::findStation(project, "b.jpg").GetName().str(), "b.jpg");
  EXPECT_EQ(ProjectFile::findStation(project, "b").GetName().str(), "b.jpg");
  EXPECT_EQ(ProjectFile::findStation(project, "right/a.jpg").GetName().str(), "right/a.jpg");
}

TEST_F(ProjectFileTest, StemOfTwoStationsIsAmbiguous) {
  EXPECT_EQ(refusal([this] { ProjectFile::findStation(project, "a"); }),
            "\"a\" is ambiguous; the stations of that name are: left/a.jpg, right/a.jpg");
}

TEST_F(ProjectFileTest, UnknownStationIsToldWhichThereAre) {
  EXPECT_EQ(refusal([this] { ProjectFile::findStation(project, "c"); }),
            "there is no station \"c\"; the stations are: b.jpg, left/a.jpg, right/a.jpg");
}

TEST_F(ProjectFileTest, UnknownPointIsToldWhichThereAre) {
  for (const long number : {7L, 3L, 12L}) project.AddObjectPoint().SetNumber(number);
  EXPECT_EQ(&ProjectFile::findPoint(project, 3), project.FindObjectPoint(3));
  EXPECT_EQ(refusal([this] { ProjectFile::findPoint(project, 4); }),
            "there is no object point 4; the 3 object points are: 3, 7, 12");
}

TEST_F(ProjectFileTest, LongListsAreCutShort) {
  for (long number = 1; number <= 25; ++number) project.AddObjectPoint().SetNumber(number);
  EXPECT_THAT(refusal([this] { ProjectFile::findPoint(project, 99); }),
              ::testing::EndsWith(" 19, 20 and 5 more"));
}

TEST_F(ProjectFileTest, ProjectWithoutPointsSaysNone) {
  EXPECT_EQ(refusal([this] { ProjectFile::findPoint(project, 1); }),
            "there is no object point 1; the 0 object points are: none");
}

TEST_F(ProjectFileTest, PathThatIsNoModelIsNamed) {
  const std::string absent = folder.file("absent");
  EXPECT_EQ(refusal([&] { ProjectFile::open(absent, project, {}); }),
            absent + ": found nothing" + expected);
  EXPECT_THAT(refusal([&] { ProjectFile::open(folder.path(), project, {}); }),
              ::testing::StartsWith(folder.path() + ": found no COLMAP model, expected cameras"));
}

TEST_F(ProjectFileTest, FileIsWhatItsContentSaysWhateverItsName) {
  const std::string ply = folder.write("points.txt", onePoint);
  ProjectFile::open(ply, project, {});
  ASSERT_EQ(project.GetPointMeshes().size(), 1);
  EXPECT_EQ(static_cast<tarn::PointMesh*>(project.GetPointMeshes().at(0))->GetNumPoints(), 1);
  const auto refused = [&](const char* name, const std::string& content) {
    const std::string file = folder.write(name, content);
    return refusal([&] { ProjectFile::open(file, project, {}); }).substr(file.size());
  };
  EXPECT_EQ(refused("a.ply", "plywood, birch, 12 mm"),
            ": found a file that begins with \"plywood, birch, \"" + expected);
  EXPECT_EQ(refused("b.ply", "# OBJ\nx 1 2 3\n"),
            ": found a file that begins with \"# OBJ\"" + expected);
  EXPECT_EQ(refused("c.ply", "\x89PNG\r\n"), ": found a binary file" + expected);
  EXPECT_EQ(refused("d.ply", ""), ": found an empty file" + expected);
  EXPECT_EQ(project.GetPointMeshes().size(), 1);
}

TEST_F(ProjectFileTest, FileOfSurfacesIsOpened) {
  const std::string corners = "v 1 2 3\nv 4 2 3\nv 1 7 3\nvn 0 0 1\nf 1//1 2//1 3//1\n";
  for (const char* name : {"house.obj", "house.txt", "house.ply"}) {
    ProjectFile::open(folder.write(name, corners), project, {});
  }
  EXPECT_EQ(project.GetImportedSurfaces().size(), 3);
  EXPECT_EQ(project.GetPointMeshes().size(), 0);
}

TEST_F(ProjectFileTest, PlyFileIsAMeshAndNoSurface) {
  ProjectFile::open(folder.write("mesh.ply", onePoint), project, {});
  EXPECT_EQ(project.GetImportedSurfaces().size(), 0);
  EXPECT_EQ(project.GetPointMeshes().size(), 1);
}

TEST_F(ProjectFileTest, DamagedFileOfSurfacesIsRefusedWithItsLine) {
  const std::string file = folder.write("house.obj", "v 1 2 3\nf 1 2 3\n");
  EXPECT_EQ(refusal([&] { ProjectFile::open(file, project, {}); }),
            file + ":2: found the point 3, expected one of the 1 that the file has");
}

TEST_F(ProjectFileTest, CloudOfAModelIsFoundOrNamedOrLeftOut) {
  std::filesystem::copy(SourceTree::file("examples/demo/sparse"), folder.file("sparse"));
  folder.write("dense/fused.ply", onePoint);
  const std::string other = folder.write("other", onePoint + "1 2 3\n");
  const auto points = [&](const ProjectFile::Options& options) {
    tarn::Project opened;
    EXPECT_EQ(ProjectFile::open(folder.path(), opened, options), "");
    int all = 0;
    for (int i = 0; i < opened.GetPointMeshes().size(); ++i) {
      all += static_cast<tarn::PointMesh*>(opened.GetPointMeshes().at(i))->GetNumPoints();
    }
    return all;
  };
  EXPECT_EQ(points({}), 1);
  EXPECT_EQ(points({other, true, {}}), 1);
  EXPECT_EQ(points({"", false, {}}), 0);
  EXPECT_EQ(takeWarnings().size(), 1U) << "the second file has more than it says";
}

TEST_F(ProjectFileTest, NamedCloudThatIsNoneIsRefusedAndOneThatWasFoundIsLeftOut) {
  std::filesystem::copy(SourceTree::file("examples/demo/sparse"), folder.file("sparse"));
  const std::string bad = folder.write("fused.ply", "ply\nnonsense\n");
  tarn::Project demo;
  const std::string problem = ProjectFile::open(folder.path(), demo, {});
  EXPECT_THAT(problem, ::testing::StartsWith(bad + ":2: found "));
  EXPECT_THAT(problem, ::testing::EndsWith("; the dense cloud is left out"));
  EXPECT_EQ(demo.GetCameraStations().size(), 12);
  for (const std::string& named : {bad, folder.file("sparse"), folder.file("absent")}) {
    ProjectFile::Options options;
    options.cloud = named;
    EXPECT_THAT(refusal([&] { ProjectFile::open(folder.path(), project, options); }),
                ::testing::StartsWith(named + ":"));
  }
}

TEST_F(ProjectFileTest, FileThatAModelLacksIsNamed) {
  folder.write("sparse/cameras.bin", "c");
  folder.write("sparse/images.bin", "i");
  EXPECT_EQ(refusal([&] { ProjectFile::open(folder.path(), project, {}); }),
            folder.file("sparse/points3D.bin") +
                ": found no such file, expected it beside the other files of the model");
}

TEST_F(ProjectFileTest, DemoProjectOpens) {
  tarn::Project demo;
  ProjectFile::open(SourceTree::file("examples/demo"), demo, {});
  EXPECT_EQ(demo.GetCameraStations().size(), 12);
  EXPECT_GT(demo.GetObjectPoints().size(), 1000);
}
