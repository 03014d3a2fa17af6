#include "host/general/PathFinder.h"

#include "tests/support/TarnTest.h"

using tarn::PathFinder;

class PathFinderTest : public TarnTest {
protected:
  TemporaryFolder folder;
};

TEST_F(PathFinderTest, FindsAFileByEitherSeparator) {
  folder.write("left eye/Straße.v2.jpg", "x");
  EXPECT_TRUE(PathFinder::IsExistingFile((folder.path() + "/left eye/Straße.v2.jpg").c_str()));
  EXPECT_TRUE(PathFinder::IsExistingFile((folder.path() + "\\left eye\\Straße.v2.jpg").c_str()));
}

TEST_F(PathFinderTest, FindsNoMissingFileAndNoFolder) {
  EXPECT_FALSE(PathFinder::IsExistingFile(folder.file("missing.jpg").c_str()));
  EXPECT_FALSE(PathFinder::IsExistingFile(folder.path().c_str()));
  EXPECT_FALSE(PathFinder::IsExistingFile(""));
}

TEST_F(PathFinderTest, APathThatCannotBeAskedForIsNoFile) {
  EXPECT_FALSE(PathFinder::IsExistingFile(std::string(100000, 'x').c_str()));
  const std::string file = folder.write("a.jpg", "x");
  EXPECT_FALSE(PathFinder::IsExistingFile((file + "/b.jpg").c_str()));
}
