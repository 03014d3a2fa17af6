#include "viewer/PhotographCache.h"

#include "host/model/Project.h"
#include "tests/support/TarnTest.h"
#include "tests/viewer/FileSizeLimit.h"
#include "viewer/Picture.h"

#include <filesystem>
#include <limits>

using ::testing::StartsWith;
namespace fs = std::filesystem;

class PhotographCacheTest : public TarnTest {
protected:
  tarn::CameraStation& addStation(const std::string& file) {
    tarn::CameraStation& station = project.AddCameraStation();
    tarn::Camera& camera = project.AddCamera();
    camera.SetImageSize(4000, 3000);
    station.SetCamera(&camera);
    tarn::Photograph& photograph = project.GetPhotoCollection()->Add();
    if (!file.empty()) photograph.SetImageFile(tarn::VPathString(file));
    station.SetPhotograph(&photograph);
    return station;
  }
  static std::string fileOf(const tarn::CameraStation& station) {
    return station.GetPhotograph()->GetImage()->GetFileName()->str();
  }

  TemporaryFolder photographs;
  TemporaryFolder cacheFolder;
  PhotographCache cache{cacheFolder.path()};
  tarn::Project project;
};

TEST_F(PhotographCacheTest, PhotographIsReachedThroughALinkInTheCache) {
  const std::string original = photographs.write("a b.jpg", "pixels");
  const tarn::CameraStation& station = addStation(original);
  ASSERT_TRUE(cache.redirect(station));
  const std::string link = fileOf(station);
  EXPECT_THAT(link, StartsWith(cacheFolder.path() + "/"));
  EXPECT_EQ(fs::path(link).filename(), "a b.jpg");
  EXPECT_TRUE(fs::is_symlink(link));
  EXPECT_EQ(fs::canonical(link), fs::canonical(original));
}

TEST_F(PhotographCacheTest, SamePhotographHasTheSameLinkAgain) {
  const std::string original = photographs.write("a.jpg", "pixels");
  const tarn::CameraStation& first = addStation(original);
  const tarn::CameraStation& second = addStation(original);
  ASSERT_TRUE(cache.redirect(first));
  ASSERT_TRUE(cache.redirect(second));
  EXPECT_EQ(fileOf(first), fileOf(second));
}

TEST_F(PhotographCacheTest, ChangedPhotographHasAnotherLink) {
  const std::string original = photographs.write("a.jpg", "pixels");
  const tarn::CameraStation& first = addStation(original);
  ASSERT_TRUE(cache.redirect(first));
  photographs.write("a.jpg", "other pixels");
  const tarn::CameraStation& second = addStation(original);
  ASSERT_TRUE(cache.redirect(second));
  EXPECT_NE(fileOf(first), fileOf(second));
}

TEST_F(PhotographCacheTest, PhotographsOfOneNameInTwoFoldersStayApart) {
  const tarn::CameraStation& first = addStation(photographs.write("left/1.jpg", "pixels"));
  const tarn::CameraStation& second = addStation(photographs.write("right/1.jpg", "pixels"));
  ASSERT_TRUE(cache.redirect(first));
  ASSERT_TRUE(cache.redirect(second));
  EXPECT_NE(fileOf(first), fileOf(second));
}

TEST_F(PhotographCacheTest, MissingPhotographIsNamedAndDroppedSoThatNothingIsWrittenBesideIt) {
  const std::string absent = photographs.file("absent.jpg");
  const tarn::CameraStation& station = addStation(absent);
  std::string problem;
  EXPECT_FALSE(cache.redirect(station, &problem));
  EXPECT_THAT(problem, StartsWith(absent + ": "));
  EXPECT_EQ(fileOf(station), "");
}

TEST_F(PhotographCacheTest, StationWithoutPhotographIsNoProblem) {
  const tarn::CameraStation& station = addStation("");
  std::string problem;
  EXPECT_FALSE(cache.redirect(station, &problem));
  EXPECT_EQ(problem, "");
}

TEST_F(PhotographCacheTest, CacheThatCannotBeMadeIsNamed) {
  const std::string file = cacheFolder.write("file", "");
  const PhotographCache blocked(file);
  const tarn::CameraStation& station = addStation(photographs.write("a.jpg", "pixels"));
  std::string problem;
  EXPECT_FALSE(blocked.redirect(station, &problem));
  EXPECT_THAT(problem, StartsWith(file));
}

TEST_F(PhotographCacheTest, CacheThatIsFullIsSaidWithTheReason) {
  const tarn::CameraStation& station = addStation(photographs.file("a.png"));
  Picture picture(60, 50);
  picture.writePng(photographs.file("a.png"));
  EXPECT_EQ(PhotographCache::copyProblem(station),
            photographs.file("a.png") + ": no small copy of the photograph could be made");
  EXPECT_FALSE(fs::exists(photographs.file("a.sgi.3dvip.trial")));
  {
    const FileSizeLimit limit(100);
    EXPECT_THAT(PhotographCache::copyProblem(station),
                ::testing::HasSubstr("a.sgi.3dvip.trial: the picture cannot be written"));
  }
  photographs.write("a.sgi.3dvip", "the copy");
  EXPECT_EQ(PhotographCache::copyProblem(station), "");
}

TEST_F(PhotographCacheTest, CopiesAreShrunkToTheLongestSide) {
  tarn::CameraStation& station = addStation("");
  EXPECT_EQ(PhotographCache::resampleFactor(station), 4);
  station.GetCamera(1)->SetImageSize(1024, 768);
  EXPECT_EQ(PhotographCache::resampleFactor(station), 1);
  station.GetCamera(1)->SetImageSize(768, 1025);
  EXPECT_EQ(PhotographCache::resampleFactor(station), 2);
  station.GetCamera(1)->SetImageSize(std::numeric_limits<int>::max(), 1);
  EXPECT_EQ(PhotographCache::resampleFactor(station), 1000);
  station.GetCamera(1)->SetImageSize(0, 0);
  EXPECT_EQ(PhotographCache::resampleFactor(station), 1);
  station.SetCamera(nullptr);
  EXPECT_EQ(PhotographCache::resampleFactor(station), 1);
}
