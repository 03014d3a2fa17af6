#include "host/model/Image.h"

#include "tests/support/PictureFiles.h"
#include "tests/support/TarnTest.h"

#include <filesystem>
#include <map>
#include <string>

namespace {

struct Expected {
  int width, height, components, count;
};

class ImageDataTest : public TarnTest {
protected:
  void SetUp() override { TARN_REQUIRE_DATA(); }

  // Calls work(path, expected) for every photograph of the projects.
  void forEachPhotograph(const auto& work) {
    const std::map<std::string, Expected> projects{{"banana", {3008, 2000, 3, 16}},
                                                   {"brighton", {800, 450, 3, 18}},
                                                   {"calibration", {640, 480, 1, 13}},
                                                   {"lund", {1024, 768, 3, 29}}};
    for (const auto& [project, expected] : projects) {
      int count = 0;
      for (const auto& entry : std::filesystem::directory_iterator(
               std::filesystem::path(dataFolder()) / project / "images")) {
        SCOPED_TRACE(entry.path());
        work(entry.path().string(), expected);
        ++count;
      }
      EXPECT_EQ(count, expected.count) << project;
    }
  }

  TemporaryFolder folder;
};

}  // namespace

TEST_F(ImageDataTest, measures_every_photograph) {
  forEachPhotograph([](const std::string& file, const Expected& expected) {
    for (const int keepFile : {0, 1}) {
      tarn::Image image(file.c_str());
      ASSERT_EQ(image.Load(keepFile), 1) << image.LastError();
      int width = 0;
      int height = 0;
      EXPECT_EQ(image.GetExtents(width, height), 1);
      EXPECT_EQ(width, expected.width);
      EXPECT_EQ(height, expected.height);
      EXPECT_EQ(image.components(), expected.components);
    }
  });
}

TEST_F(ImageDataTest, shrinks_every_photograph_nearly_as_from_all_its_pixels) {
  double sum = 0;
  int count = 0;
  forEachPhotograph([&sum, &count](const std::string& file, const Expected& expected) {
    tarn::Image scaled(file.c_str());
    tarn::Image full(file.c_str());
    ASSERT_EQ(scaled.Load(), 1) << scaled.LastError();
    ASSERT_EQ(full.Load(), 1) << full.LastError();
    ASSERT_NE(full.pixels(), nullptr) << full.LastError();
    const int width = expected.width / 10;
    const int height = expected.height / 10;
    ASSERT_EQ(scaled.ResizeInterpolated(width, height, 0, 1), 1) << scaled.LastError();
    ASSERT_EQ(full.ResizeInterpolated(width, height, 0, 1), 1) << full.LastError();
    const double difference = rootMeanSquare(
        scaled.pixels(), full.pixels(),
        static_cast<std::size_t>(width) * static_cast<std::size_t>(height * expected.components));
    sum += difference;
    ++count;
    // The black and white squares of the calibration board are the hardest: 3.3 at most.
    EXPECT_LT(difference, 3.5);
  });
  EXPECT_LT(sum / count, 2.0);
  RecordProperty("mean_difference", std::to_string(sum / count));
}

TEST_F(ImageDataTest, saves_every_photograph_so_that_it_reads_back_the_same) {
  forEachPhotograph([this](const std::string& file, const Expected& expected) {
    const std::string texture = folder.file("texture.sgi.3dvip");
    tarn::Image image(file.c_str());
    ASSERT_EQ(image.Load(), 1) << image.LastError();
    ASSERT_EQ(image.ResizeInterpolated(expected.width / 10, expected.height / 10, 0, 1), 1);
    ASSERT_EQ(image.Save(texture.c_str(), tarn::Image::formatSGI, 50), 1) << image.LastError();
    const Pixels read = readBySimage(texture);
    EXPECT_EQ(read.width, expected.width / 10);
    EXPECT_EQ(read.height, expected.height / 10);
    ASSERT_EQ(read.components, expected.components);
    EXPECT_EQ(rootMeanSquare(read.bytes.data(), image.pixels(), read.bytes.size()), 0);
  });
}

TEST_F(ImageDataTest, agrees_with_another_decoder_about_what_is_up) {
  const std::string file = std::string(dataFolder()) + "/banana/images/DSC_0423.JPG";
  tarn::Image image(file.c_str());
  ASSERT_EQ(image.Load(), 1);
  const Pixels other = readBySimage(file);
  ASSERT_NE(image.pixels(), nullptr);
  EXPECT_LT(rootMeanSquare(image.pixels(), other.bytes.data(), other.bytes.size()), 1);
}
