#include "viewer/WholeFile.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/NodeRef.h"
#include "tests/support/TarnTest.h"
#include "tests/viewer/FileSizeLimit.h"
#include "viewer/Picture.h"
#include "viewer/SceneWriter.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace fs = std::filesystem;

class WholeFileTest : public TarnTest {
protected:
  static std::string content(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
  }
  std::vector<std::string> names() const {
    std::vector<std::string> all;
    for (const auto& entry : fs::directory_iterator(folder.path())) {
      all.push_back(entry.path().filename().string());
    }
    return all;
  }
  static bool put(std::FILE* file, const std::string& text) {
    return std::fwrite(text.data(), 1, text.size(), file) == text.size();
  }
  static void write(const std::string& file, const std::string& text) {
    WholeFile::write(file, "text", [&](std::FILE* stream) { return put(stream, text); });
  }
  template <typename Call>
  static std::string refusal(const Call& call) {
    try {
      call();
    } catch (const std::runtime_error& error) {
      return error.what();
    }
    return "nothing was refused";
  }

  TemporaryFolder folder;
};

TEST_F(WholeFileTest, ContentStandsUnderTheNameAlone) {
  write(folder.file("a"), "text");
  EXPECT_EQ(content(folder.file("a")), "text");
  EXPECT_THAT(names(), ::testing::ElementsAre("a"));
}

TEST_F(WholeFileTest, EarlierFileIsReplaced) {
  const std::string file = folder.write("a", "earlier and longer");
  write(file, "text");
  EXPECT_EQ(content(file), "text");
}

TEST_F(WholeFileTest, FileThatLooksUnfinishedIsSomebodyElses) {
  folder.write("a.part", "a user's own");
  write(folder.file("a"), "text");
  EXPECT_EQ(content(folder.file("a.part")), "a user's own");
}

TEST_F(WholeFileTest, FileHasTheRightsOfTheUsersMask) {
  const mode_t mask = umask(027);
  write(folder.file("a"), "text");
  umask(mask);
  struct stat status {};
  ASSERT_EQ(stat(folder.file("a").c_str(), &status), 0);
  EXPECT_EQ(status.st_mode & 0777, 0640U);
}

TEST_F(WholeFileTest, FailureLeavesTheEarlierFileAndNothingBesides) {
  const std::string file = folder.write("a", "earlier");
  EXPECT_EQ(refusal([&] {
              WholeFile::write(file, "text", [](std::FILE* stream) {
                put(stream, "half");
                return false;
              });
            }),
            file + ": the text cannot be written");
  EXPECT_EQ(content(file), "earlier");
  EXPECT_THAT(names(), ::testing::ElementsAre("a"));
}

// Less than a stream keeps in memory, so that only its last flush tells.
TEST_F(WholeFileTest, FullDiskIsToldEvenWhenOnlyTheEndIsCutOff) {
  const std::string file = folder.file("a");
  const FileSizeLimit limit(100);
  EXPECT_EQ(refusal([&] { write(file, std::string(101, 'x')); }),
            file + ": the text cannot be written: File too large");
  EXPECT_TRUE(names().empty());
}

TEST_F(WholeFileTest, LinkIsFollowed) {
  const std::string file = folder.write("a", "earlier");
  fs::create_symlink(file, folder.file("link"));
  write(folder.file("link"), "text");
  EXPECT_TRUE(fs::is_symlink(folder.file("link")));
  EXPECT_EQ(content(file), "text");
}

TEST_F(WholeFileTest, FolderIsNotReplaced) {
  fs::create_directory(folder.file("a"));
  EXPECT_EQ(refusal([&] { write(folder.file("a"), "text"); }),
            folder.file("a") + ": the text cannot be written: Is a directory");
}

TEST_F(WholeFileTest, DeviceIsWrittenStraightAndStaysADevice) {
  write("/dev/null", "text");
  EXPECT_TRUE(fs::is_character_file("/dev/null"));
  EXPECT_EQ(refusal([] { write("/dev/full", "text"); }),
            "/dev/full: the text cannot be written: No space left on device");
  EXPECT_TRUE(fs::is_character_file("/dev/full"));
}

TEST_F(WholeFileTest, PicturesAndScenesThatAreCutOffAreRefused) {
  Picture picture(64, 64);
  for (std::size_t i = 0; i < picture.bytes.size(); ++i) {
    picture.bytes[i] = static_cast<std::uint8_t>(i * i * 31 / 7);
  }
  const auto scene = makeNode<SoSeparator>();
  auto* coordinates = new SoCoordinate3;
  for (int i = 0; i < 100; ++i) coordinates->point.set1Value(i, SbVec3f(1.0F, 2.0F, 3.0F));
  scene->addChild(coordinates);
  const FileSizeLimit limit(500);
  EXPECT_THAT(refusal([&] { picture.writePng(folder.file("a.png")); }),
              ::testing::EndsWith("the picture cannot be written: File too large"));
  EXPECT_THAT(refusal([&] { picture.writeJpeg(folder.file("a.jpg"), 95); }),
              ::testing::EndsWith("the picture cannot be written: File too large"));
  EXPECT_THAT(refusal([&] { SceneWriter::write(scene.get(), folder.file("a.iv")); }),
              ::testing::EndsWith("the scene cannot be written: File too large"));
  EXPECT_TRUE(names().empty());
}
