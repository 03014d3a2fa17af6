#include "viewer/ProjectFile.h"

#include "host/model/Project.h"
#include "io/ReadError.h"
#include "tests/support/SourceTree.h"
#include "tests/support/TarnTest.h"

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
            absent + ": found nothing, expected a folder with a COLMAP model");
  const std::string file = folder.write("file.txt", "text");
  EXPECT_EQ(refusal([&] { ProjectFile::open(file, project, {}); }),
            file + ": found a file, expected a folder with a COLMAP model");
  EXPECT_THAT(refusal([&] { ProjectFile::open(folder.path(), project, {}); }),
              ::testing::StartsWith(folder.path() + ": found no COLMAP model, expected cameras"));
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
