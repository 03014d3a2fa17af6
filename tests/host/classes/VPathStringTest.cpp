#include "host/classes/VPathString.h"

#include "tests/support/TarnTest.h"

using tarn::VPathString;

class VPathStringTest : public TarnTest {};

TEST_F(VPathStringTest, EitherSeparatorBecomesThePlatforms) {
  EXPECT_STREQ(VPathString("photos\\left/a.jpg").text(), "photos/left/a.jpg");
  VPathString path;
  path.prints("%s\\%s", "photos", "a.jpg");
  EXPECT_STREQ(path.text(), "photos/a.jpg");
}

// What the copy of a photograph is called, for each kind of name.
struct PathCase {
  const char* name;
  const char* path;
  const char* directory;
  const char* prefix;
  const char* copy;
  friend void PrintTo(const PathCase& path, std::ostream* out) { *out << path.path; }
};
class PathCaseTest : public TarnTest, public ::testing::WithParamInterface<PathCase> {};

TEST_P(PathCaseTest, IsSplitAndPrintedBesideThePhotograph) {
  const VPathString photograph(GetParam().path);
  EXPECT_STREQ(photograph.directoryOf().text(), GetParam().directory);
  EXPECT_STREQ(photograph.prefixOf().text(), GetParam().prefix);
  VPathString copy;
  copy.prints("%s\\%s.sgi.3dvip", photograph.directoryOf().text(), photograph.prefixOf().text());
  EXPECT_STREQ(copy.text(), GetParam().copy);
}

INSTANTIATE_TEST_SUITE_P(
    VPathStringTest, PathCaseTest,
    ::testing::Values(
        PathCase{"Plain", "/data/photos/a.jpg", "/data/photos", "a", "/data/photos/a.sgi.3dvip"},
        PathCase{"Backslashes", "C:\\photos\\a.jpg", "C:/photos", "a", "C:/photos/a.sgi.3dvip"},
        PathCase{"Blanks", "/my photos/left eye.JPG", "/my photos", "left eye",
                 "/my photos/left eye.sgi.3dvip"},
        PathCase{"Dots", "/p.2/a.b.c.tif", "/p.2", "a.b.c", "/p.2/a.b.c.sgi.3dvip"},
        PathCase{"Utf8", "/Fotos/Straße-übér.png", "/Fotos", "Straße-übér",
                 "/Fotos/Straße-übér.sgi.3dvip"},
        PathCase{"NoExtension", "photos/a", "photos", "a", "photos/a.sgi.3dvip"},
        PathCase{"LeadingDot", "photos/.a", "photos", ".a", "photos/.a.sgi.3dvip"},
        PathCase{"NoFolder", "a.jpg", ".", "a", "./a.sgi.3dvip"},
        PathCase{"PercentSigns", "100%s/50%d.jpg", "100%s", "50%d", "100%s/50%d.sgi.3dvip"},
        // Two separators at the front of a path name the root as one does.
        PathCase{"Root", "/a.jpg", "/", "a", "//a.sgi.3dvip"}),
    [](const auto& info) { return std::string(info.param.name); });

TEST_F(VPathStringTest, TheFolderOfAFolderIsItsParent) {
  EXPECT_STREQ(VPathString("/data/photos").directoryOf().directoryOf().text(), "/");
  EXPECT_STREQ(VPathString("/").directoryOf().text(), "/");
  EXPECT_STREQ(VPathString("").directoryOf().text(), ".");
}
