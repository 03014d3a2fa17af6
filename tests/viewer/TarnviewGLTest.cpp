#include "nodes/TarnOI.h"
#include "tests/support/PictureFiles.h"
#include "tests/support/SourceTree.h"
#include "tests/support/TarnTest.h"
#include "viewer/Picture.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iomanip>
#include <iterator>
#include <set>
#include <sstream>
#include <sys/wait.h>

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::Not;
using ::testing::StartsWith;

/// Runs the program itself, as a user does.
class TarnviewGLTest : public TarnTest {
protected:
  struct Result {
    int status = -1;
    std::string output;
    std::string errors;
  };

  Result run(const std::string& program, const std::string& arguments,
             const std::string& environment = {}) const {
    std::string command = "env -u DISPLAY -u WAYLAND_DISPLAY -u QT_QPA_PLATFORM XDG_CACHE_HOME=";
    command += quoted("cache") + " " + environment + " '" + program + "'";
    command += " >" + quoted("output") + " 2>" + quoted("errors") + " " + arguments;
    const int status = std::system(command.c_str());
    return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, content("output"), content("errors")};
  }
  Result tarnview(const std::string& arguments) const { return run(TARN_VIEW_PROGRAM, arguments); }

  // A file of the test's folder as a word of the command line.
  std::string quoted(const std::string& name) const {
    std::string word(1, '\'');
    word += folder.file(name);
    word += '\'';
    return word;
  }

  std::string content(const std::string& name) const {
    std::ifstream stream(folder.file(name));
    return std::string(std::istreambuf_iterator<char>(stream), {});
  }

  const std::string demo = "'" + SourceTree::file("examples/demo") + "'";
  TemporaryFolder folder;
};

TEST_F(TarnviewGLTest, NodesAreListedOneALineWithTheirParents) {
  const Result result = tarnview("--nodes");
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors, "");
  std::istringstream lines(result.output);
  std::string line;
  for (const TarnOI::ClassEntry& entry : TarnOI::classes()) {
    ASSERT_TRUE(std::getline(lines, line));
    std::istringstream words(line);
    std::string name;
    std::string parent;
    words >> name >> parent;
    EXPECT_EQ(name, entry.name);
    EXPECT_EQ(parent, entry.parent);
  }
  EXPECT_FALSE(std::getline(lines, line));
}

TEST_F(TarnviewGLTest, HelpAndVersionGoToStandardOutput) {
  const Result help = tarnview("--help");
  EXPECT_EQ(help.status, 0);
  EXPECT_THAT(help.output, HasSubstr("Examples:"));
  EXPECT_EQ(help.errors, "");
  EXPECT_THAT(tarnview("--version").output, StartsWith("tarnview "));
}

TEST_F(TarnviewGLTest, PictureHasTheSizeAskedFor) {
  const Result result = tarnview(demo + " --size 320x200 --render " + quoted("a.png"));
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(result.output, "");
  EXPECT_EQ(result.errors, "");
  const Picture picture = Picture::read(folder.file("a.png"));
  EXPECT_EQ(picture.width, 320);
  EXPECT_EQ(picture.height, 200);
}

TEST_F(TarnviewGLTest, BackgroundIsAGradientUnlessAnotherIsAskedFor) {
  const auto corners = [this](const std::string& options) {
    const Result result =
        tarnview(demo + " --size 120x90 --render " + quoted("a.png") + " " + options);
    EXPECT_EQ(result.status, 0) << result.errors;
    const Picture picture = Picture::read(folder.file("a.png"));
    std::vector<int> found;
    for (const int y : {0, picture.height - 1}) {
      for (const int x : {0, picture.width - 1}) {
        found.push_back(picture.at(x, y)[1]);
        found.push_back(picture.alpha.empty()
                            ? 255
                            : picture.alpha[static_cast<std::size_t>(y * picture.width + x)]);
      }
    }
    return found;
  };
  const std::vector<int> gradient = corners("");
  EXPECT_EQ(corners("--background gradient"), gradient);
  EXPECT_EQ(gradient[0], gradient[2]);
  EXPECT_EQ(gradient[4], gradient[6]);
  EXPECT_GT(gradient[0], gradient[4] + 30) << "the picture is not lighter at its top";
  EXPECT_EQ(gradient[1], 255);
  const std::vector<int> plain = corners("--background plain");
  EXPECT_EQ(plain, (std::vector<int>{92, 255, 92, 255, 92, 255, 92, 255}));
  EXPECT_EQ(corners("--background none"), std::vector<int>(8, 0));
}

TEST_F(TarnviewGLTest, ViewThroughAStationHasThePhotographsProportions) {
  const Result result = tarnview(demo + " --view station:station03 --render " + quoted("a.png"));
  EXPECT_EQ(result.status, 0) << result.errors;
  const Picture picture = Picture::read(folder.file("a.png"));
  EXPECT_EQ(picture.width, 1600);
  EXPECT_EQ(picture.height, 1200);
}

TEST_F(TarnviewGLTest, WrongCallsEndWithTwo) {
  for (const char* wrong : {"", "--colour", "--size 10", "--view left", "--render"}) {
    const Result result = tarnview(wrong);
    EXPECT_EQ(result.status, 2) << wrong;
    EXPECT_THAT(result.errors, StartsWith("tarnview: ")) << wrong;
    EXPECT_EQ(result.output, "") << wrong;
  }
}

TEST_F(TarnviewGLTest, UnknownNamesEndWithTwoAndAreToldWhichThereAre) {
  const std::string render = " --render " + quoted("a.png");
  for (const char* wrong : {" --view station:nobody", " --highlight station:nobody",
                            " --rays station:nobody", " --surface nobody"}) {
    const Result result = tarnview(demo + render + wrong);
    EXPECT_EQ(result.status, 2) << wrong;
    EXPECT_THAT(result.errors, HasSubstr("station01.jpg, station02.jpg")) << wrong;
  }
  for (const char* wrong : {" --highlight point:999999", " --rays point:1 --rays point:999999"}) {
    const Result result = tarnview(demo + render + wrong);
    EXPECT_EQ(result.status, 2);
    EXPECT_THAT(result.errors, HasSubstr("there is no object point 999999; the "));
  }
  EXPECT_FALSE(std::filesystem::exists(folder.file("a.png")));
}

TEST_F(TarnviewGLTest, RefusedProjectEndsWithOne) {
  const Result result = tarnview("/nowhere --render " + quoted("a.png"));
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors,
            "tarnview: /nowhere: found nothing, expected the folder of a COLMAP model, a PLY file "
            "or a file "
            "of surfaces (OBJ, STL, OFF, glTF, FBX or 3DS)\n");
}

TEST_F(TarnviewGLTest, PictureThatCannotBeWrittenEndsWithOne) {
  const Result result = tarnview(demo + " --size 40x30 --render " + quoted("no/a.png"));
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.errors, HasSubstr(folder.file("no/a.png")));
}

TEST_F(TarnviewGLTest, WindowWithoutDisplayIsToldAboutPictures) {
  const Result result = tarnview(demo);
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.errors, HasSubstr("no display"));
  EXPECT_THAT(result.errors, HasSubstr("--render"));
}

TEST_F(TarnviewGLTest, DisplayThatCannotBeReachedIsNamed) {
  for (const char* environment :
       {"DISPLAY=:77", "DISPLAY=:77 QT_QPA_PLATFORM=nonsense", "DISPLAY=junk"}) {
    const Result result = run(TARN_VIEW_PROGRAM, demo, environment);
    EXPECT_EQ(result.status, 1) << environment;
    EXPECT_THAT(result.errors, StartsWith("tarnview: there is no display to open a window on "
                                          "(DISPLAY is "))
        << environment;
    EXPECT_THAT(result.errors, HasSubstr("which cannot be reached")) << environment;
  }
}

TEST_F(TarnviewGLTest, StandardOutputThatIsFullEndsWithOne) {
  for (const char* asked : {"--nodes", "--help", "--version"}) {
    const Result result = tarnview(std::string(asked) + " >/dev/full");
    EXPECT_EQ(result.status, 1) << asked;
    EXPECT_EQ(result.errors,
              "tarnview: the standard output cannot be written: No space left on device\n")
        << asked;
  }
}

TEST_F(TarnviewGLTest, SceneOnAFullDiskEndsWithOne) {
  const Result result =
      run("/bin/bash", "-c 'ulimit -f 64; exec \"$0\" \"$@\"' '" TARN_VIEW_PROGRAM "' " + demo +
                           " --write " + quoted("scene.iv"));
  EXPECT_EQ(result.status, 1);
  // Coin has its say, too.
  EXPECT_THAT(result.errors, EndsWith("tarnview: " + folder.file("scene.iv") +
                                      ": the scene cannot be written: File too large\n"));
  EXPECT_FALSE(std::filesystem::exists(folder.file("scene.iv")));
}

TEST_F(TarnviewGLTest, MarkedStationThatIsLookedThroughIsSaidToBeMissing) {
  const std::string call = demo + " --view station:station01 --highlight station:station01.jpg" +
                           " --size 40x30 --render " + quoted("a.png");
  const Result result = tarnview(call);
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.errors, StartsWith("tarnview: station \"station01.jpg\" is not marked: "));
  EXPECT_EQ(tarnview(call + " --image-planes").errors, "");
}

TEST_F(TarnviewGLTest, PhotographsThatCannotBeShownAreNamedTenAtMost) {
  std::filesystem::create_directory(folder.file("project"));
  std::filesystem::copy(SourceTree::file("examples/demo/sparse"), folder.file("project/sparse"),
                        std::filesystem::copy_options::recursive);
  const Result result =
      tarnview(quoted("project") + " --image-planes --size 40x30 --render " + quoted("a.png"));
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.errors, HasSubstr("project/images/station10.jpg: No such file"));
  EXPECT_THAT(result.errors, Not(HasSubstr("station11.jpg")));
  EXPECT_THAT(result.errors, EndsWith("tarnview: and 2 more photographs that cannot be shown\n"));
}

TEST_F(TarnviewGLTest, ImagePlanesLeaveTheProjectFolderAsItWas) {
  const auto files = [] {
    int count = 0;
    for ([[maybe_unused]] const auto& entry :
         std::filesystem::recursive_directory_iterator(SourceTree::file("examples/demo"))) {
      ++count;
    }
    return count;
  };
  const int before = files();
  const Result result = tarnview(demo + " --image-planes --size 80x60 --render " + quoted("a.png"));
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_EQ(files(), before);
  EXPECT_TRUE(std::filesystem::exists(folder.file("cache/tarnview/photographs")));
}

// A bowl of triangles, 20 by 20 units, with a colour for each point; moved by the shift.
std::string bowl(double shiftX, double shiftY, double shiftZ) {
  constexpr int side = 21;
  std::ostringstream ply;
  ply << std::setprecision(17) << "ply\nformat ascii 1.0\nelement vertex " << side * side
      << "\nproperty double x\nproperty double y\nproperty double z\nproperty uchar red\n"
         "property uchar green\nproperty uchar blue\nelement face "
      << 2 * (side - 1) * (side - 1) << "\nproperty list uchar int vertex_indices\nend_header\n";
  for (int i = 0; i < side * side; ++i) {
    const int x = i % side;
    const int y = i / side;
    const double z = 0.03125 * ((x - 10) * (x - 10) + (y - 10) * (y - 10));
    ply << x + shiftX << ' ' << y + shiftY << ' ' << z + shiftZ << ' ' << 12 * x << ' ' << 12 * y
        << " 128\n";
  }
  for (int i = 0; i < side * side; ++i) {
    if (i % side == side - 1 || i / side == side - 1) continue;
    ply << "3 " << i << ' ' << i + 1 << ' ' << i + side << "\n3 " << i + 1 << ' ' << i + side + 1
        << ' ' << i + side << '\n';
  }
  return ply.str();
}

TEST_F(TarnviewGLTest, SurfaceFarFromTheOriginLooksAsItDoesNearIt) {
  folder.write("near.ply", bowl(0.0, 0.0, 0.0));
  folder.write("far.ply", bowl(512000.0, 5000000.0, 0.0));
  for (const std::string name : {"near", "far"}) {
    const Result result = tarnview(quoted(name + ".ply") + " --size 160x120 --color height " +
                                   "--render " + quoted(name + ".png"));
    ASSERT_EQ(result.status, 0) << result.errors;
    EXPECT_EQ(result.errors, "");
  }
  const Picture near = Picture::read(folder.file("near.png"));
  const Picture far = Picture::read(folder.file("far.png"));
  int different = 0;
  for (std::size_t i = 0; i < near.bytes.size(); ++i) {
    different += std::abs(static_cast<int>(near.bytes[i]) - static_cast<int>(far.bytes[i])) > 8;
  }
  // The camera's own place is rounded differently, by millionths of a unit.
  EXPECT_LT(different, 100);
  std::set<std::vector<int>> colours;
  for (int y = 0; y < near.height; ++y) {
    for (int x = 0; x < near.width; ++x) {
      const std::uint8_t* pixel = near.at(x, y);
      colours.insert({pixel[0], pixel[1], pixel[2]});
    }
  }
  EXPECT_GT(colours.size(), 500U) << "the surface is not shaded";
}

TEST_F(TarnviewGLTest, CloudIsShownWithAModel) {
  folder.write("cloud.ply", bowl(0.0, 0.0, 0.0));
  const std::string render = " --size 80x60 --render ";
  ASSERT_EQ(tarnview(demo + render + quoted("without.png")).status, 0);
  const Result result =
      tarnview(demo + " --cloud " + quoted("cloud.ply") + render + quoted("a.png"));
  EXPECT_EQ(result.status, 0) << result.errors;
  EXPECT_NE(Picture::read(folder.file("a.png")).bytes,
            Picture::read(folder.file("without.png")).bytes);
  const Result refused = tarnview(demo + " --cloud " + quoted("a.png") + render + quoted("b.png"));
  EXPECT_EQ(refused.status, 1);
  EXPECT_THAT(refused.errors, HasSubstr(": found a binary file, expected a PLY file"));
}

TEST_F(TarnviewGLTest, ContoursOfABowlAreRings) {
  folder.write("bowl.ply", bowl(0.0, 0.0, 0.0));
  const std::string view = " --view top --color none --size 120x120 --render ";
  ASSERT_EQ(tarnview(quoted("bowl.ply") + view + quoted("bare.png")).status, 0);
  const Result result = tarnview(quoted("bowl.ply") + " --contours 1" + view + quoted("rings.png"));
  ASSERT_EQ(result.status, 0) << result.errors;
  const Picture bare = Picture::read(folder.file("bare.png"));
  const Picture rings = Picture::read(folder.file("rings.png"));
  // Outwards from the middle: at the heights 1, 2 and 3 within the bowl's rim at 3.125.
  int crossings = 0;
  bool onLine = false;
  for (int x = 60; x < 120; ++x) {
    const bool different = rings.at(x, 60)[1] + 40 < bare.at(x, 60)[1];
    crossings += different && !onLine;
    onLine = different;
  }
  EXPECT_EQ(crossings, 3);
  const Result none = tarnview(demo + " --contours 1" + view + quoted("a.png"));
  EXPECT_EQ(none.status, 1);
  EXPECT_THAT(none.errors, HasSubstr("there is no dense cloud or mesh to draw contours over"));
}

TEST_F(TarnviewGLTest, ColoursThatAreNotThereAreMissedButNoError) {
  folder.write("grey.ply",
               "ply\nformat ascii 1.0\nelement vertex 2\nproperty float x\nproperty float y\n"
               "property float z\nend_header\n1 2 3\n4 5 7\n");
  const Result result =
      tarnview(quoted("grey.ply") + " --color rgb --size 40x30 --render " + quoted("a.png"));
  EXPECT_EQ(result.status, 0);
  EXPECT_EQ(result.errors,
            "tarnview: \"grey\" has no colours of its own; --color height shows it by height\n");
}

TEST_F(TarnviewGLTest, SectionIsToldMarkedAndWrittenAsAProfile) {
  folder.write("bowl.ply", bowl(512000.0, 5000000.0, 100.0));
  const std::string bowlFromAbove = quoted("bowl.ply") + " --view top --size 200x200 ";
  // The bowl is 20 wide, and so is the picture with some air: the line runs through its middle.
  const Result result =
      tarnview(bowlFromAbove + "--section 0,0.5,1,0.5 --thickness 0.5 --profile " +
               quoted("p.csv") + " --render " + quoted("a.png"));
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.errors, StartsWith("tarnview: section: 21 points up to 0.5 to either side "
                                        "(--thickness), distances "));
  std::istringstream profile(content("p.csv"));
  std::string line;
  ASSERT_TRUE(std::getline(profile, line));
  EXPECT_EQ(line, "distance,height");
  double first = 0.0;
  for (int i = 0; i < 21; ++i) {
    double distance = 0.0;
    double height = 0.0;
    char comma = 0;
    ASSERT_TRUE(profile >> distance >> comma >> height);
    if (i == 0) first = distance;
    EXPECT_NEAR(distance, first + i, 1e-3);
    EXPECT_NEAR(height, 100.0 + 0.03125 * (i - 10) * (i - 10), 1e-3);
  }
  EXPECT_GT(first, 0.1);
  const auto reds = [this](const std::string& name) {
    const Picture picture = Picture::read(folder.file(name));
    int count = 0;
    for (int x = 0; x < picture.width; ++x) {
      for (int y = 90; y < 110; ++y) {
        const std::uint8_t* pixel = picture.at(x, y);
        count += pixel[0] > 180 && pixel[1] < 60;
      }
    }
    return count;
  };
  EXPECT_GE(reds("a.png"), 200);
  ASSERT_EQ(tarnview(bowlFromAbove + "--render " + quoted("b.png")).status, 0);
  EXPECT_EQ(reds("b.png"), 0);
}

TEST_F(TarnviewGLTest, OrderOfOptionsDoesNotMatter) {
  folder.write("bowl.ply", bowl(0.0, 0.0, 0.0));
  const std::string options[] = {"--color height",        "--scale",    "--box 0.2,0.2,0.7,0.8",
                                 "--section 0,0.3,1,0.6", "--view top", "--size 160x120"};
  std::string forward = quoted("bowl.ply");
  std::string backward;
  for (const std::string& option : options) {
    forward += " " + option;
    backward.insert(0, " " + option);
  }
  backward += " " + quoted("bowl.ply");
  const Result a = tarnview(forward + " --render " + quoted("a.png"));
  const Result b = tarnview(" --render " + quoted("b.png") + backward);
  EXPECT_EQ(a.status, 0);
  EXPECT_EQ(a.errors, b.errors);
  EXPECT_EQ(Picture::read(folder.file("a.png")).bytes, Picture::read(folder.file("b.png")).bytes);
}

TEST_F(TarnviewGLTest, WhatIsRefusedToBeCutLeavesNoFile) {
  folder.write("bowl.ply", bowl(0.0, 0.0, 0.0));
  const std::string files = " --profile " + quoted("p.csv") + " --render " + quoted("a.png");
  const std::string cloud = quoted("bowl.ply");
  for (const auto& [call, reason] :
       {std::pair(demo + " --section 0,0,1,1", "there is no dense cloud or mesh to cut"),
        std::pair(cloud + " --view top --section 0,0,0.01,0.01", "lies in the section"),
        std::pair(cloud + " --view front --section 0,0.3,1,0.3", "plane is horizontal"),
        std::pair(cloud + " --view top --box 0,0,0.01,0.01 --section 0,0,1,1",
                  "lies in the box")}) {
    const Result result = tarnview(call + files);
    EXPECT_EQ(result.status, 1) << call;
    EXPECT_THAT(result.errors, HasSubstr(reason));
    EXPECT_FALSE(std::filesystem::exists(folder.file("p.csv"))) << call;
    EXPECT_FALSE(std::filesystem::exists(folder.file("a.png"))) << call;
  }
}

TEST_F(TarnviewGLTest, ProfileThatCannotBeWrittenEndsWithOne) {
  folder.write("bowl.ply", bowl(0.0, 0.0, 0.0));
  const Result result = tarnview(quoted("bowl.ply") + " --view top --section 0,0.5,1,0.5 " +
                                 "--profile " + quoted("no/p.csv"));
  EXPECT_EQ(result.status, 1);
  EXPECT_THAT(result.errors, EndsWith("no/p.csv: the profile cannot be written: No such file or "
                                      "directory\n"));
}

TEST_F(TarnviewGLTest, SectionsPointsAreMarkedOverThePhotographThatIsLookedAt) {
  // Round the demo's object, which the cameras look at.
  folder.write("bowl.ply", bowl(110.0, 240.0, 25.0));
  const auto marked = [this](const std::string& options) {
    const Result result = tarnview(demo + " --view station:station03 --cloud " +
                                   quoted("bowl.ply") + " --size 400x300 --thickness 5 --section " +
                                   "0.05,0.5,0.95,0.5 --render " + quoted("a.png") + options);
    EXPECT_EQ(result.status, 0) << result.errors;
    const Picture picture = Picture::read(folder.file("a.png"));
    int count = 0;
    for (int y = 0; y < picture.height; ++y) {
      for (int x = 0; x < picture.width; ++x) {
        const std::uint8_t* pixel = picture.at(x, y);
        count += pixel[0] == 255 && pixel[1] == 41 && pixel[2] == 184;
      }
    }
    return count;
  };
  EXPECT_GT(marked(""), 100);
  EXPECT_GT(marked(" --image-planes"), 100);
}

TEST_F(TarnviewGLTest, HeightScaleWithoutHeightColoursIsMissedButNoError) {
  const Result result = tarnview(demo + " --scale --size 40x30 --render " + quoted("a.png"));
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.errors,
              StartsWith("tarnview: there is no height scale: nothing is coloured by height"));
}

TEST_F(TarnviewGLTest, WrittenSceneHasTheSectionsPointsButNothingThatLiesOnTheScreen) {
  folder.write("bowl.ply", bowl(0.0, 0.0, 0.0));
  const Result result =
      tarnview(quoted("bowl.ply") + " --color height --scale --section 0,0.5,1,0.6 --write " +
               quoted("scene.iv"));
  EXPECT_EQ(result.status, 0) << result.errors;
  const std::string scene = content("scene.iv");
  EXPECT_THAT(scene, HasSubstr("PointSet"));
  EXPECT_THAT(scene, Not(HasSubstr("OrthographicCamera")));
  EXPECT_THAT(scene, Not(HasSubstr("Text2")));
  EXPECT_THAT(scene, Not(HasSubstr("Tarn")));
}

// The written scene is read by a program that knows nothing of this library and drawn by
// the same renderer: the pictures are the same but for the point symbols, which are
// Inventor's own there.
// A box 4 wide, 3 deep and 2 high with a picture on its sides and a red lid, its middle at the
// place.
std::string box(double x, double y, double z) {
  std::ostringstream obj;
  obj << std::fixed << std::setprecision(3) << "mtllib my box.mtl\n";
  for (const double height : {-1.0, 1.0}) {
    for (const auto& [dx, dy] :
         {std::pair(-2, -1.5), std::pair(2, -1.5), std::pair(2, 1.5), std::pair(-2, 1.5)}) {
      obj << "v " << x + dx << ' ' << y + dy << ' ' << z + height << '\n';
    }
  }
  obj << "vt 0 0\nvt 1 0\nvt 1 1\nvt 0 1\n"
         "vn 0 -1 0\nvn 1 0 0\nvn 0 1 0\nvn -1 0 0\nvn 0 0 1\nvn 0 0 -1\nusemtl sides\n";
  for (int side = 0; side < 4; ++side) {
    const int next = (side + 1) % 4;
    const int n = side + 1;
    obj << "f " << side + 1 << "/1/" << n << ' ' << next + 1 << "/2/" << n << ' ' << next + 5
        << "/3/" << n << ' ' << side + 5 << "/4/" << n << '\n';
  }
  obj << "usemtl lid\nf 5//5 6//5 7//5 8//5\nf 4//6 3//6 2//6 1//6\n";
  return obj.str();
}

class TarnviewSurfaceGLTest : public TarnviewGLTest {
protected:
  TarnviewSurfaceGLTest() {
    folder.write("my box.mtl",
                 "newmtl sides\nKd 1 1 1\nmap_Kd my side.png\nnewmtl lid\nKd 1 0 0\n");
    // Blue above, green below.
    Pixels picture(64, 64, 3);
    for (int y = 0; y < 64; ++y) {
      for (int x = 0; x < 64; ++x) picture.at(x, y, y < 32 ? 2 : 1) = 255;
    }
    folder.write("my side.png", pngOf(picture));
    folder.write("box.obj", box(0.0, 0.0, 0.0));
  }

  // Of the colours red, green and blue the strongest at a place of the picture, in fractions of it
  // to the right and down; -1 for grey.
  int strongest(const std::string& name, double x, double y) const {
    const Picture picture = Picture::read(folder.file(name));
    const std::uint8_t* pixel =
        picture.at(static_cast<int>(x * picture.width), static_cast<int>(y * picture.height));
    for (int c = 0; c < 3; ++c) {
      if (pixel[c] > 2 * pixel[(c + 1) % 3] && pixel[c] > 2 * pixel[(c + 2) % 3]) return c;
    }
    return -1;
  }

  // How many bytes differ by more than so much.
  int different(const std::string& one, const std::string& other, int most) const {
    const Picture a = Picture::read(folder.file(one));
    const Picture b = Picture::read(folder.file(other));
    EXPECT_EQ(a.bytes.size(), b.bytes.size());
    int count = 0;
    for (std::size_t i = 0; i < a.bytes.size(); ++i) {
      count += std::abs(static_cast<int>(a.bytes[i]) - static_cast<int>(b.bytes[i])) > most;
    }
    return count;
  }
};

TEST_F(TarnviewSurfaceGLTest, ABoxHasItsPictureOnItsSidesAndItsLid) {
  for (const std::string view : {"front", "right", "top"}) {
    const Result result = tarnview(quoted("box.obj") + " --size 200x200 --view " + view +
                                   " --render " + quoted(view + ".png"));
    EXPECT_EQ(result.status, 0);
    EXPECT_EQ(result.errors, "");
  }
  for (const std::string view : {"front.png", "right.png"}) {
    EXPECT_EQ(strongest(view, 0.5, 0.4), 2) << view;
    EXPECT_EQ(strongest(view, 0.5, 0.6), 1) << view;
    EXPECT_EQ(strongest(view, 0.5, 0.02), -1) << view;
  }
  EXPECT_EQ(strongest("top.png", 0.5, 0.5), 0);
}

TEST_F(TarnviewSurfaceGLTest, ABoxFarFromTheOriginLooksAsItDoesNearIt) {
  folder.write("far.obj", box(500000.123, 4000000.456, 100.789));
  for (const std::string name : {"box", "far"}) {
    const Result result =
        tarnview(quoted(name + ".obj") + " --size 200x150 --render " + quoted(name + ".png"));
    ASSERT_EQ(result.status, 0) << result.errors;
  }
  EXPECT_LT(different("box.png", "far.png", 8), 200);
}

TEST_F(TarnviewSurfaceGLTest, AWrittenSceneFindsItsTexturesFromAnotherFolder) {
  std::filesystem::create_directory(folder.file("elsewhere"));
  // The file is named from where the program runs.
  const Result written = run(TARN_VIEW_PROGRAM,
                             "box.obj --size 400x300 --background plain --render " +
                                 quoted("ours.png") + " --write " + quoted("elsewhere/scene.iv"),
                             "env -C " + quoted(""));
  ASSERT_EQ(written.status, 0) << written.errors;
  EXPECT_THAT(content("elsewhere/scene.iv"), Not(HasSubstr("Tarn")));
  EXPECT_THAT(content("elsewhere/scene.iv"), HasSubstr("DEF Surface_box Separator"));
  const Result read = run(TARN_DRAW_PROGRAM,
                          quoted("elsewhere/scene.iv") + " " + quoted("theirs.png") + " 400 300");
  ASSERT_EQ(read.status, 0) << read.errors;
  EXPECT_EQ(read.errors, "");
  EXPECT_LT(different("ours.png", "theirs.png", 2), 200);
}

TEST_F(TarnviewSurfaceGLTest, WhatIsMissingIsToldAndTheRestIsDrawn) {
  std::filesystem::remove(folder.file("my side.png"));
  const Result result =
      tarnview(quoted("box.obj") + " --size 100x100 --view top --render " + quoted("a.png"));
  EXPECT_EQ(result.status, 0);
  EXPECT_THAT(result.errors, HasSubstr("box.obj: the texture \"my side.png\" of the material "
                                       "\"sides\" is not there"));
  EXPECT_EQ(strongest("a.png", 0.5, 0.5), 0);
}

TEST_F(TarnviewSurfaceGLTest, WhatIsReadIsNotWrittenOver) {
  const std::string picture = content("my side.png");
  const std::string text = content("box.obj");
  std::filesystem::create_symlink(folder.file("my side.png"), folder.file("link.png"));
  for (const std::string& options :
       {"--render " + quoted("my side.png"), "--render " + quoted("link.png"),
        "--write " + quoted("box.obj"), "--write " + quoted("./box.obj")}) {
    const Result result = tarnview(quoted("box.obj") + " --size 100x100 " + options);
    EXPECT_EQ(result.status, 1) << options;
    EXPECT_THAT(result.errors, HasSubstr(": found a file of the project's own, expected another "
                                         "name for what is written"));
  }
  EXPECT_EQ(content("my side.png"), picture);
  EXPECT_EQ(content("box.obj"), text);
}

TEST_F(TarnviewSurfaceGLTest, ADamagedFileEndsWithOne) {
  folder.write("bad.obj", "v 1 2 3\nf 1 2 3\n");
  const Result result = tarnview(quoted("bad.obj") + " --render " + quoted("a.png"));
  EXPECT_EQ(result.status, 1);
  EXPECT_EQ(result.errors, "tarnview: " + folder.file("bad.obj") +
                               ":2: found the point 3, expected one of the 1 that the file has\n");
  EXPECT_FALSE(std::filesystem::exists(folder.file("a.png")));
}

TEST_F(TarnviewGLTest, WrittenSceneLooksTheSameInAProgramThatHasOnlyCoin) {
  folder.write("bowl.ply", bowl(0.0, 0.0, 0.0));
  for (const std::string& options :
       {std::string("--image-planes --frusta"),
        std::string("--labels --highlight station:station08"), std::string("--surface station08"),
        std::string("--ellipsoids 30 --view top"), std::string("--rays point:30 --ground-plane"),
        "--cloud " + quoted("bowl.ply") + " --contours 1"}) {
    const Result written =
        tarnview(demo + " --size 400x300 --background plain --render " + quoted("ours.png") +
                 " --write " + quoted("scene.iv") + " " + options);
    ASSERT_EQ(written.status, 0) << written.errors;
    EXPECT_THAT(content("scene.iv"), Not(HasSubstr("Tarn")));
    EXPECT_THAT(content("scene.iv"), HasSubstr("DEF Station_station08_jpg Separator"));
    const Result read =
        run(TARN_DRAW_PROGRAM, quoted("scene.iv") + " " + quoted("theirs.png") + " 400 300");
    ASSERT_EQ(read.status, 0) << read.errors;
    EXPECT_EQ(read.errors, "");
    const Picture ours = Picture::read(folder.file("ours.png"));
    const Picture theirs = Picture::read(folder.file("theirs.png"));
    ASSERT_EQ(ours.bytes.size(), theirs.bytes.size());
    int different = 0;
    for (std::size_t i = 0; i < ours.bytes.size(); ++i) {
      different +=
          std::abs(static_cast<int>(ours.bytes[i]) - static_cast<int>(theirs.bytes[i])) > 2;
    }
    EXPECT_LT(different, static_cast<int>(ours.bytes.size()) / 2000) << options;
  }
}
