#include "tests/support/SourceLayout.h"
#include "tests/support/SourceTree.h"
#include "tests/support/TarnTest.h"

#include <set>

using ::testing::ElementsAre;
using ::testing::IsEmpty;

class LayoutTest : public TarnTest {
protected:
  std::vector<std::string> findings(const std::string& path, const std::string& content) const {
    return SourceLayout::findings(path, content,
                                  [this](const std::string& name) { return tree.contains(name); });
  }

  std::set<std::string> tree = {
      "host/classes/VString.h",
      "host/general/Colour.h",
      "host/model/Camera.h",
      "nodes/TarnOI.h",
      "nodes/framework/NodeRef.h",
      "nodes/framework/TarnOISeparator.h",
      "nodes/cameras/TarnOICameraStationSeparator.h",
      "nodes/points/TarnOIObjectPointSeparator.h",
      "nodes/lines/ThreeDExtension.h",
      "nodes/surfaces/TarnOICylinderSeparator.h",
      "nodes/surfaces/TarnOINurbsSurfaceSeparator.h",
      "nodes/surfaces/TarnOIShapeFaceSeparator.h",
      "nodes/surfaces/TarnOIShapeVertexToMarkSeparator.h",
      "io/ColmapReader.h",
      "viewer/Picture.h",
  };
};

TEST_F(LayoutTest, TheProjectsOwnFilesKeepTheRules) {
  int files = 0;
  EXPECT_THAT(SourceLayout::findingsBelow(SourceTree::root(), &files), IsEmpty());
  EXPECT_GT(files, 100) << "the tree was not read";
}

TEST_F(LayoutTest, EveryArrowIsAllowedInItsDirection) {
  EXPECT_THAT(findings("host/general/X.h", "#include \"host/classes/VString.h\"\nclass X {};"),
              IsEmpty());
  EXPECT_THAT(findings("host/model/X.h", "#include \"host/general/Colour.h\"\nclass X {};"),
              IsEmpty());
  EXPECT_THAT(findings("nodes/points/X.h", "#include \"host/model/Camera.h\"\nclass X {};"),
              IsEmpty());
  EXPECT_THAT(findings("io/X.h", "#include \"host/model/Camera.h\"\nclass X {};"), IsEmpty());
  EXPECT_THAT(findings("viewer/X.h",
                       "#include \"io/ColmapReader.h\"\n#include \"nodes/TarnOI.h\"\n"
                       "#include \"host/model/Camera.h\"\n#include <string>\nclass X {};"),
              IsEmpty());
}

// Every wrong arrow between the folders is its own test.
struct WrongArrow {
  const char* includer;
  const char* included;
  friend void PrintTo(const WrongArrow& arrow, std::ostream* out) {
    *out << arrow.includer << " -> " << arrow.included;
  }
};
class WrongArrowTest : public LayoutTest, public ::testing::WithParamInterface<WrongArrow> {};

TEST_P(WrongArrowTest, IsFound) {
  const auto [includer, included] = GetParam();
  EXPECT_THAT(findings(includer, std::string("#include \"") + included + "\"\nclass X {};\n"),
              ElementsAre(std::string(includer) + " includes " + included +
                          ", against the arrows between the folders"));
}

INSTANTIATE_TEST_SUITE_P(
    LayoutTest, WrongArrowTest,
    ::testing::Values(
        WrongArrow{"host/classes/X.h", "host/general/Colour.h"},
        WrongArrow{"host/classes/X.h", "host/model/Camera.h"},
        WrongArrow{"host/general/X.h", "host/model/Camera.h"},
        WrongArrow{"host/model/X.h", "nodes/framework/NodeRef.h"},
        WrongArrow{"host/model/X.h", "io/ColmapReader.h"},
        WrongArrow{"host/model/X.h", "viewer/Picture.h"},
        WrongArrow{"nodes/framework/X.h", "io/ColmapReader.h"},
        WrongArrow{"nodes/framework/X.h", "viewer/Picture.h"},
        WrongArrow{"io/X.h", "nodes/TarnOI.h"}, WrongArrow{"io/X.h", "viewer/Picture.h"},
        WrongArrow{"nodes/framework/X.h", "nodes/TarnOI.h"},
        WrongArrow{"nodes/framework/X.h", "nodes/points/TarnOIObjectPointSeparator.h"},
        WrongArrow{"nodes/points/X.h", "nodes/cameras/TarnOICameraStationSeparator.h"},
        WrongArrow{"nodes/points/X.h", "nodes/TarnOI.h"},
        WrongArrow{"nodes/surfaces/X.h", "nodes/lines/ThreeDExtension.h"},
        WrongArrow{"nodes/surfaces/X.h", "nodes/surfaces/TarnOINurbsSurfaceSeparator.h"},
        WrongArrow{"nodes/surfaces/X.h", "nodes/surfaces/TarnOIShapeVertexToMarkSeparator.h"}));

TEST_F(LayoutTest, InsideNodesEveryFolderMayIncludeItselfAndFramework) {
  EXPECT_THAT(findings("nodes/surfaces/TarnOIShapeFaceSeparator.h",
                       "#include \"nodes/framework/TarnOISeparator.h\"\n"
                       "#include \"nodes/surfaces/TarnOINurbsSurfaceSeparator.h\"\n"
                       "class TarnOIShapeFaceSeparator : public TarnOINurbsSurfaceSeparator {};"),
              IsEmpty());
}

TEST_F(LayoutTest, TheEdgeOfAShapeMayIncludeTheMarkerOfItsCorners) {
  EXPECT_THAT(findings("nodes/surfaces/TarnOIShapeEdgeSeparator.h",
                       "#include \"nodes/surfaces/TarnOIShapeVertexToMarkSeparator.h\"\n"
                       "class TarnOIShapeEdgeSeparator : public TarnOISeparator {};"),
              IsEmpty());
}

TEST_F(LayoutTest, TheListOfAllClassesMayIncludeEveryFolderOfNodes) {
  EXPECT_THAT(findings("nodes/TarnOI.cpp",
                       "#include \"nodes/TarnOI.h\"\n"
                       "#include \"nodes/points/TarnOIObjectPointSeparator.h\"\n"
                       "#include \"nodes/surfaces/TarnOIShapeVertexToMarkSeparator.h\"\n"),
              IsEmpty());
}

TEST_F(LayoutTest, TheCylinderMayIncludeTheExtensionOfTheLine) {
  EXPECT_THAT(findings("nodes/surfaces/TarnOICylinderSeparator.cpp",
                       "#include \"nodes/surfaces/TarnOICylinderSeparator.h\"\n"
                       "#include \"nodes/lines/ThreeDExtension.h\"\n"),
              IsEmpty());
}

TEST_F(LayoutTest, ASourceThatIncludesAnotherHeaderFirstIsFound) {
  EXPECT_THAT(findings("host/model/Camera.cpp",
                       "// Why.\n#include <cmath>\n#include \"host/model/Camera.h\"\n"),
              ElementsAre("host/model/Camera.cpp does not include its own header first"));
  EXPECT_THAT(findings("host/model/Camera.cpp", "int camera;\n"),
              ElementsAre("host/model/Camera.cpp does not include its own header first"));
}

TEST_F(LayoutTest, AHeaderIncludedByALocalPathIsFound) {
  EXPECT_THAT(
      findings("host/model/Camera.cpp",
               "#include \"host/model/Camera.h\"\n#include \"../general/Colour.h\"\n"),
      ElementsAre("host/model/Camera.cpp includes ../general/Colour.h by a path that does not "
                  "begin at the root"));
}

TEST_F(LayoutTest, ASourceWithoutHeaderIsFoundUnlessItIsMainOrBeginsWithTheHeaderItServes) {
  EXPECT_THAT(findings("viewer/Helpers.cpp", "#include <cmath>\n"),
              ElementsAre("viewer/Helpers.cpp neither has a header of its name nor begins with "
                          "the one it serves"));
  EXPECT_THAT(findings("viewer/PngPicture.cpp", "#include \"viewer/Picture.h\"\n"), IsEmpty());
  EXPECT_THAT(findings("viewer/main.cpp", "#include <cmath>\n"), IsEmpty());
}

TEST_F(LayoutTest, AHeaderNamedDifferentlyFromItsClassIsFound) {
  EXPECT_THAT(findings("host/model/Kamera.h", "/// Kamera\nclass TARN_HOST_EXPORT Camera {};\n"),
              ElementsAre("host/model/Kamera.h defines the class Camera, which belongs into "
                          "Camera.h",
                          "host/model/Kamera.h is not named after the class it defines"));
  EXPECT_THAT(findings("viewer/Kamera.h", "class Camera : public Lens {};\n"),
              ElementsAre("viewer/Kamera.h is not named after the class it defines"));
}

TEST_F(LayoutTest, ASecondExportedClassInAHeaderIsFound) {
  EXPECT_THAT(findings("host/model/Point.h",
                       "class TARN_HOST_EXPORT Point {\n};\n"
                       "class TARN_HOST_EXPORT SurfacePoint : public Point {\n};\n"),
              ElementsAre("host/model/Point.h defines the class SurfacePoint, which belongs into "
                          "SurfacePoint.h"));
}

TEST_F(LayoutTest, ForwardDeclarationsAndSmallRecordsBesideAClassAreAllowed) {
  EXPECT_THAT(
      findings("host/model/Station.h",
               "class Photograph;\nstruct Mark {\n};\nclass TARN_HOST_EXPORT Station {};\n"),
      IsEmpty());
}

TEST_F(LayoutTest, AHeaderOfFunctionsHasNoClassToBeNamedAfter) {
  EXPECT_THAT(findings("io/TextFiles.h", "namespace text {\nvoid read();\n}\n"), IsEmpty());
}
