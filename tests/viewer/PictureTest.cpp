#include "viewer/Picture.h"

#include "tests/support/TarnTest.h"

#include <filesystem>
#include <stdexcept>

class PictureTest : public TarnTest {
protected:
  PictureTest() : picture(5, 3) {
    for (std::size_t i = 0; i < picture.bytes.size(); ++i) {
      picture.bytes[i] = static_cast<std::uint8_t>(i * 5 + 3);
    }
  }

  Picture picture;
  TemporaryFolder folder;
};

TEST_F(PictureTest, PngRoundTripKeepsEveryByte) {
  const std::string file = folder.file("a.png");
  picture.writePng(file);
  const Picture read = Picture::read(file);
  EXPECT_EQ(read.width, 5);
  EXPECT_EQ(read.height, 3);
  EXPECT_EQ(read.bytes, picture.bytes);
}

TEST_F(PictureTest, PngRoundTripKeepsTransparency) {
  for (int i = 0; i < 15; ++i) picture.alpha.push_back(static_cast<std::uint8_t>(17 * i));
  const std::string file = folder.file("a.png");
  picture.writePng(file);
  const Picture read = Picture::read(file);
  EXPECT_EQ(read.bytes, picture.bytes);
  EXPECT_EQ(read.alpha, picture.alpha);
}

TEST_F(PictureTest, OpaquePictureHasNoTransparencyInItsFile) {
  const std::string file = folder.file("a.png");
  picture.writePng(file);
  EXPECT_TRUE(Picture::read(file).alpha.empty());
}

TEST_F(PictureTest, JpegRoundTripKeepsFlatColors) {
  Picture flat(32, 16);
  for (std::size_t i = 0; i < flat.bytes.size(); i += 3) {
    flat.bytes[i] = 200;
    flat.bytes[i + 1] = 100;
    flat.bytes[i + 2] = 50;
  }
  const std::string file = folder.file("a.jpg");
  flat.writeJpeg(file, 90);
  const Picture read = Picture::read(file);
  ASSERT_EQ(read.width, 32);
  ASSERT_EQ(read.height, 16);
  EXPECT_NEAR(read.at(10, 10)[0], 200, 2);
  EXPECT_NEAR(read.at(10, 10)[1], 100, 2);
  EXPECT_NEAR(read.at(10, 10)[2], 50, 2);
}

TEST_F(PictureTest, WrittenFileLeavesNoUnfinishedOneBehind) {
  picture.writePng(folder.file("a.png"));
  int files = 0;
  for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder.path())) {
    ++files;
  }
  EXPECT_EQ(files, 1);
}

TEST_F(PictureTest, FileThatCannotBeWrittenIsNamed) {
  const std::string file = folder.file("absent/a.png");
  try {
    picture.writePng(file);
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(error.what(), file + ": the picture cannot be written: No such file or directory");
  }
}

TEST_F(PictureTest, FileThatIsNoPictureIsNamed) {
  const std::string file = folder.write("a.png", "no picture");
  try {
    Picture::read(file);
    FAIL() << "nothing was thrown";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(error.what(), file + ": the picture cannot be read");
  }
}
