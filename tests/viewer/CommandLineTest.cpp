#include "viewer/CommandLine.h"

#include "tests/support/TarnTest.h"

using ::testing::HasSubstr;
using ::testing::StartsWith;

class CommandLineTest : public TarnTest {
protected:
  static CommandLine accepted(const std::vector<std::string>& arguments) {
    const CommandLine::Parsed parsed = CommandLine::parse(arguments);
    EXPECT_EQ(parsed.error, "");
    EXPECT_TRUE(parsed.commandLine.has_value());
    return parsed.commandLine.value_or(CommandLine());
  }

  static std::string refused(const std::vector<std::string>& arguments) {
    const CommandLine::Parsed parsed = CommandLine::parse(arguments);
    EXPECT_FALSE(parsed.commandLine.has_value());
    EXPECT_EQ(parsed.exitStatus, 2);
    EXPECT_EQ(parsed.output, "");
    EXPECT_THAT(parsed.error, StartsWith("tarnview: "));
    return parsed.error;
  }
};

TEST_F(CommandLineTest, ProjectAloneWantsAWindow) {
  const CommandLine line = accepted({"somewhere"});
  EXPECT_EQ(line.project, "somewhere");
  EXPECT_TRUE(line.wantsWindow());
  EXPECT_EQ(line.view, CommandLine::View::eIso);
  EXPECT_FALSE(line.size.has_value());
  EXPECT_FALSE(line.ellipsoidScale.has_value());
  EXPECT_FALSE(line.highlight.has_value());
  EXPECT_TRUE(line.rays.empty());
  EXPECT_EQ(line.surfaceStation, "");
  EXPECT_FALSE(line.axis);
  EXPECT_FALSE(line.groundPlane);
  EXPECT_EQ(line.background, CommandLine::Background::eGradient);
  EXPECT_FALSE(line.color.has_value());
  EXPECT_EQ(line.cloud, "");
  EXPECT_TRUE(line.findCloud);
  EXPECT_FALSE(line.heightScale);
  EXPECT_FALSE(line.section.has_value());
  EXPECT_FALSE(line.box.has_value());
}

TEST_F(CommandLineTest, EveryOptionIsTaken) {
  const CommandLine line = accepted({"p",           "--render",       "o.png",
                                     "--size",      "640x480",        "--view",
                                     "top",         "--image-planes", "--frusta",
                                     "--labels",    "--ellipsoids",   "2.5",
                                     "--highlight", "point:17",       "--write",
                                     "o.iv",        "--axis",         "--ground-plane",
                                     "--rays",      "point:3",        "--background",
                                     "plain",       "--surface",      "a b.jpg"});
  EXPECT_EQ(line.renderFile, "o.png");
  EXPECT_EQ(line.writeFile, "o.iv");
  ASSERT_TRUE(line.size.has_value());
  EXPECT_EQ(line.size->width, 640);
  EXPECT_EQ(line.size->height, 480);
  EXPECT_EQ(line.view, CommandLine::View::eTop);
  EXPECT_TRUE(line.imagePlanes);
  EXPECT_TRUE(line.frusta);
  EXPECT_TRUE(line.labels);
  EXPECT_EQ(line.ellipsoidScale, 2.5);
  ASSERT_TRUE(line.highlight.has_value());
  EXPECT_EQ(line.highlight->pointNumber, 17);
  EXPECT_TRUE(line.axis);
  EXPECT_TRUE(line.groundPlane);
  ASSERT_EQ(line.rays.size(), 1U);
  EXPECT_EQ(line.rays[0].pointNumber, 3);
  EXPECT_EQ(line.surfaceStation, "a b.jpg");
  EXPECT_EQ(line.background, CommandLine::Background::ePlain);
  EXPECT_FALSE(line.wantsWindow());
}

TEST_F(CommandLineTest, ViewsAreKnownByName) {
  using View = CommandLine::View;
  EXPECT_EQ(accepted({"p", "--view", "iso"}).view, View::eIso);
  EXPECT_EQ(accepted({"p", "--view", "front"}).view, View::eFront);
  EXPECT_EQ(accepted({"p", "--view", "right"}).view, View::eRight);
  const CommandLine station = accepted({"p", "--view", "station:a b.jpg"});
  EXPECT_EQ(station.view, View::eStation);
  EXPECT_EQ(station.viewStation, "a b.jpg");
}

TEST_F(CommandLineTest, HighlightNamesAStation) {
  const CommandLine line = accepted({"p", "--highlight", "station:left01.jpg"});
  ASSERT_TRUE(line.highlight.has_value());
  EXPECT_EQ(line.highlight->kind, CommandLine::Object::Kind::eStation);
  EXPECT_EQ(line.highlight->stationName, "left01.jpg");
}

TEST_F(CommandLineTest, RaysOfSeveralObjectsAreTakenInTheirOrder) {
  const CommandLine line = accepted(
      {"--rays", "station:a b.jpg", "p", "--rays=point:17", "--rays", "point:3", "--frusta"});
  EXPECT_EQ(line.project, "p");
  ASSERT_EQ(line.rays.size(), 3U);
  EXPECT_EQ(line.rays[0].kind, CommandLine::Object::Kind::eStation);
  EXPECT_EQ(line.rays[0].stationName, "a b.jpg");
  EXPECT_EQ(line.rays[1].kind, CommandLine::Object::Kind::ePoint);
  EXPECT_EQ(line.rays[1].pointNumber, 17);
  EXPECT_EQ(line.rays[2].pointNumber, 3);
}

TEST_F(CommandLineTest, BackgroundsAreKnownByName) {
  using Background = CommandLine::Background;
  EXPECT_EQ(accepted({"p", "--background", "none"}).background, Background::eNone);
  EXPECT_EQ(accepted({"p", "--background", "plain"}).background, Background::ePlain);
  EXPECT_EQ(accepted({"p", "--background", "gradient"}).background, Background::eGradient);
  for (const char* kind : {"sky", "Plain", "black"}) {
    EXPECT_THAT(refused({"p", "--background", kind}),
                HasSubstr("--background: found \"" + std::string(kind) +
                          "\", expected none, plain or gradient"));
  }
}

TEST_F(CommandLineTest, ColoursAreKnownByName) {
  using Color = CommandLine::Color;
  EXPECT_EQ(accepted({"p", "--color", "height"}).color, Color::eHeight);
  EXPECT_EQ(accepted({"p", "--color", "rgb"}).color, Color::eRgb);
  EXPECT_EQ(accepted({"p", "--color=none"}).color, Color::eNone);
  for (const char* kind : {"red", "RGB", "z"}) {
    EXPECT_THAT(refused({"p", "--color", kind}), HasSubstr("--color: found \"" + std::string(kind) +
                                                           "\", expected height, rgb or none"));
  }
}

TEST_F(CommandLineTest, SectionsAndBoxesAreFractionsOfThePicture) {
  const CommandLine line = accepted({"p", "--thickness", "0.25", "--profile", "p.csv", "--section",
                                     "0.125,0.25,1,0", "--scale", "--box=0,0.5,0.75,1"});
  ASSERT_TRUE(line.section.has_value());
  EXPECT_EQ(line.section->x0, 0.125);
  EXPECT_EQ(line.section->y0, 0.25);
  EXPECT_EQ(line.section->x1, 1.0);
  EXPECT_EQ(line.section->y1, 0.0);
  EXPECT_EQ(line.thickness, 0.25);
  EXPECT_EQ(line.profileFile, "p.csv");
  ASSERT_TRUE(line.box.has_value());
  EXPECT_EQ(line.box->y0, 0.5);
  EXPECT_EQ(line.box->x1, 0.75);
  EXPECT_TRUE(line.heightScale);
  for (const char* option : {"--section", "--box"}) {
    for (const char* wrong : {"0,0,1", "0,0,1,1,1", "0;0;1;1", "0,0,1,1.5", "-0.1,0,1,1", "0,0,1,x",
                              "0,0,1,", "nan,0,1,1", "0 ,0,1,1", "10%,0,1,1"}) {
      EXPECT_THAT(refused({"p", std::string(option) + "=" + wrong}),
                  HasSubstr(std::string(option) + ": found \"" + wrong +
                            "\", expected x0,y0,x1,y1 from 0 to 1"));
    }
  }
}

TEST_F(CommandLineTest, SectionsAndBoxesHaveAnExtent) {
  EXPECT_THAT(refused({"p", "--section", "0.5,0.5,0.5,0.5"}), HasSubstr("expected two places"));
  accepted({"p", "--section", "0.5,0.5,0.5,0.75"});
  for (const char* flat : {"0.5,0.25,0.5,0.75", "0.25,0.5,0.75,0.5"}) {
    EXPECT_THAT(refused({"p", "--box", flat}),
                HasSubstr("expected a box of some width and height"));
  }
}

TEST_F(CommandLineTest, ThicknessAndProfileAreThoseOfASection) {
  EXPECT_THAT(refused({"p", "--profile", "a.csv"}),
              HasSubstr("--profile: found without --section, expected both"));
  EXPECT_THAT(refused({"p", "--thickness", "1"}),
              HasSubstr("--thickness: found without --section, expected both"));
  for (const char* thickness : {"0", "-1", "nan", "1m"}) {
    EXPECT_THAT(
        refused({"p", "--section", "0,0,1,1", std::string("--thickness=") + thickness}),
        HasSubstr("--thickness: found \"" + std::string(thickness) + "\", expected a number"));
  }
}

TEST_F(CommandLineTest, ProfileAloneNeedsNoWindowButAProject) {
  EXPECT_FALSE(accepted({"p", "--section", "0,0,1,1", "--profile", "a.csv"}).wantsWindow());
  EXPECT_TRUE(accepted({"p", "--section", "0,0,1,1"}).wantsWindow());
  EXPECT_THAT(refused({"--nodes", "--section", "0,0,1,1", "--profile", "a.csv"}),
              HasSubstr("PROJECT"));
}

TEST_F(CommandLineTest, ProfileIsAFileOfItsOwn) {
  const std::vector<std::string> call = {"p", "--section", "0,0,1,1", "--profile", "b/../a.png"};
  for (const char* option : {"--render", "--write"}) {
    std::vector<std::string> both = call;
    both.insert(both.end(), {option, "a.png"});
    EXPECT_THAT(refused(both), HasSubstr("--profile: found \"b/../a.png\", expected another file "
                                         "than that of " +
                                         std::string(option)));
  }
}

TEST_F(CommandLineTest, CloudIsNamedOrLeftOutButNotBoth) {
  EXPECT_EQ(accepted({"p", "--cloud", "a b.ply"}).cloud, "a b.ply");
  EXPECT_FALSE(accepted({"p", "--no-cloud"}).findCloud);
  EXPECT_THAT(refused({"p", "--no-cloud", "--cloud", "c.ply"}),
              HasSubstr("--no-cloud: found together with --cloud, expected one of them"));
}

TEST_F(CommandLineTest, PointNodesAreAWholeNumber) {
  EXPECT_EQ(accepted({"p"}).mostPointNodes, 50000);
  EXPECT_EQ(accepted({"p", "--point-nodes", "0"}).mostPointNodes, 0);
  EXPECT_EQ(accepted({"p", "--point-nodes", "1000000"}).mostPointNodes, 1000000);
  for (const char* count : {"-1", "1e5", "10.5", "many", "99999999999"}) {
    EXPECT_THAT(refused({"p", std::string("--point-nodes=") + count}),
                HasSubstr("--point-nodes: found \"" + std::string(count) +
                          "\", expected a whole number from 0 on"));
  }
}

TEST_F(CommandLineTest, NodesNeedNoProject) {
  const CommandLine line = accepted({"--nodes"});
  EXPECT_TRUE(line.listNodes);
  EXPECT_FALSE(line.wantsWindow());
}

TEST_F(CommandLineTest, CallWithoutProjectIsRefused) {
  EXPECT_THAT(refused({}), HasSubstr("PROJECT"));
  EXPECT_THAT(refused({"--render", "a.png"}), HasSubstr("PROJECT"));
}

TEST_F(CommandLineTest, NodesAloneDoNotMakeAPictureOfNothing) {
  EXPECT_THAT(refused({"--nodes", "--render", "a.png"}), HasSubstr("PROJECT"));
  EXPECT_THAT(refused({"--nodes", "--write", "a.iv"}), HasSubstr("PROJECT"));
}

TEST_F(CommandLineTest, EmptyValuesAreRefused) {
  for (const char* option :
       {"--size", "--view", "--highlight", "--render", "--write", "--ellipsoids", "--rays",
        "--background", "--color", "--cloud", "--contours", "--section", "--box", "--thickness",
        "--profile", "--point-nodes", "--surface"}) {
    EXPECT_THAT(refused({"p", option, ""}), HasSubstr(option));
    EXPECT_THAT(refused({"p", std::string(option) + "="}), HasSubstr(option));
  }
}

TEST_F(CommandLineTest, PictureIsAPngFile) {
  for (const char* file : {"a.jpg", "a", "a.png/b", ".png", "a.png.part"}) {
    const std::string error = refused({"p", "--render", file});
    EXPECT_THAT(error, HasSubstr("--render: found \"" + std::string(file) + "\", expected"));
  }
  EXPECT_EQ(accepted({"p", "--render", "A.PNG"}).renderFile, "A.PNG");
}

TEST_F(CommandLineTest, PictureAndSceneAreTwoFiles) {
  for (const char* scene : {"a.png", "./a.png", "b/../a.png"}) {
    EXPECT_THAT(refused({"p", "--render", "a.png", "--write", scene}),
                HasSubstr("--write: found \"" + std::string(scene) + "\""));
  }
  accepted({"p", "--render", "a.png", "--write", "b/a.png"});
}

TEST_F(CommandLineTest, UnknownOptionIsNamed) {
  EXPECT_THAT(refused({"p", "--colour"}), HasSubstr("--colour"));
}

TEST_F(CommandLineTest, SecondProjectIsRefused) {
  EXPECT_THAT(refused({"p", "second"}), HasSubstr("second"));
}

TEST_F(CommandLineTest, SizesThatMakeNoPictureAreRefused) {
  for (const char* size : {"", "800", "800x", "x600", "800x600x3", "800 x 600", "0x600", "800x0",
                           "-1x5", "16385x1", "1x16385", "99999999999x1", "8e2x600"}) {
    EXPECT_THAT(refused({"p", std::string("--size=") + size}), HasSubstr("--size")) << size;
  }
  EXPECT_EQ(accepted({"p", "--size", "16384x1"}).size->width, 16384);
}

TEST_F(CommandLineTest, UnknownViewIsToldWhichThereAre) {
  for (const char* view : {"left", "ISO", "station:", "station"}) {
    const std::string error = refused({"p", "--view", view});
    EXPECT_THAT(error, HasSubstr("expected iso, top, front, right or station:NAME")) << view;
  }
}

TEST_F(CommandLineTest, HighlightAndRaysOfNothingKnownAreRefused) {
  for (const std::string option : {"--highlight", "--rays"}) {
    for (const std::string what : {"17", "point:", "point:1x", "point:1.5", "station:", "line:3"}) {
      EXPECT_THAT(
          refused({"p", option, what}),
          HasSubstr(option + ": found \"" + what + "\", expected point:NUMBER or station:NAME"));
    }
  }
}

TEST_F(CommandLineTest, EllipsoidScaleAndSpacingOfContoursMustBeNumbersThatCanBeDrawn) {
  for (const std::string option : {"--ellipsoids", "--contours"}) {
    for (const std::string size : {"0", "-1", "nan", "inf", "big", "1e300", "1e-300", "2x"}) {
      EXPECT_THAT(
          refused({"p", option + "=" + size}),
          HasSubstr(option + ": found \"" + size + "\", expected a number from 1e-9 to 1e9"));
    }
  }
  EXPECT_EQ(accepted({"p", "--ellipsoids", "1e9"}).ellipsoidScale, 1e9);
  EXPECT_EQ(accepted({"p", "--contours", "0.5"}).contourSpacing, 0.5);
  EXPECT_FALSE(accepted({"p"}).contourSpacing.has_value());
}

TEST_F(CommandLineTest, HelpTeachesByExamples) {
  const CommandLine::Parsed parsed = CommandLine::parse({"--help"});
  EXPECT_EQ(parsed.exitStatus, 0);
  EXPECT_EQ(parsed.error, "");
  for (const char* told : {"COLMAP", "--render", "--view", "station:NAME", "tarnview examples/demo",
                           "Exit status", "XDG_CACHE_HOME"}) {
    EXPECT_THAT(parsed.output, HasSubstr(told));
  }
}

TEST_F(CommandLineTest, VersionIsPrinted) {
  const CommandLine::Parsed parsed = CommandLine::parse({"--version"});
  EXPECT_EQ(parsed.exitStatus, 0);
  EXPECT_THAT(parsed.output, ::testing::MatchesRegex("tarnview [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}
