#include "viewer/ProfileFile.h"

#include "host/model/Units.h"
#include "tests/support/CommaLocale.h"
#include "tests/support/TarnTest.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

class ProfileFileTest : public TarnTest {
protected:
  std::string written(const std::vector<tarn::Profile::Point>& profile,
                      const tarn::Units& units = {}) const {
    ProfileFile::write(folder.file("profile.csv"), profile, units);
    std::ifstream stream(folder.file("profile.csv"), std::ios::binary);
    return std::string(std::istreambuf_iterator<char>(stream), {});
  }

  TemporaryFolder folder;
};

TEST_F(ProfileFileTest, HasAHeaderAndALineForEachPoint) {
  EXPECT_EQ(written({{-0.5, 12.25}, {3.0, 1000.0}}), "distance,height\n-0.5,12.25\n3,1000\n");
  EXPECT_EQ(written({}), "distance,height\n");
}

TEST_F(ProfileFileTest, KeepsTwelveDigits) {
  EXPECT_EQ(written({{1234567.12345, 1.0 / 3.0}}),
            "distance,height\n1234567.12345,0.333333333333\n");
}

TEST_F(ProfileFileTest, NumbersHaveAPointInEveryLocale) {
  const CommaLocale locale;
  EXPECT_EQ(written({{1234.5, 0.25}}), "distance,height\n1234.5,0.25\n");
}

TEST_F(ProfileFileTest, IsInUnitsOfTheProject) {
  tarn::Units units;
  ASSERT_TRUE(units.SetUnit("ft"));
  EXPECT_EQ(written({{3.048, 0.1524}}, units), "distance,height\n10,0.5\n");
}

TEST_F(ProfileFileTest, FileThatCannotBeWrittenIsNamed) {
  try {
    ProfileFile::write(folder.file("no/profile.csv"), {{1.0, 2.0}}, tarn::Units());
    FAIL() << "it was written";
  } catch (const std::runtime_error& error) {
    EXPECT_EQ(std::string(error.what()), folder.file("no/profile.csv") +
                                             ": the profile cannot be written: No such file or "
                                             "directory");
  }
  EXPECT_TRUE(std::filesystem::is_empty(folder.path()));
}
