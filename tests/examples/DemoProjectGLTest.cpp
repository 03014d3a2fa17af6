#include "examples/DemoProject.h"

#include "tests/support/SourceTree.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <iterator>
#include <sstream>

class DemoProjectGLTest : public TarnTest {
protected:
  // Made once: its photographs take a few seconds.
  static const DemoProject& project() {
    static const DemoProject made;
    return made;
  }

  static std::string content(const std::string& file) {
    std::ifstream stream(file, std::ios::binary);
    EXPECT_TRUE(stream.good()) << file;
    return std::string(std::istreambuf_iterator<char>(stream), {});
  }

  // Number, coordinates, error and track of every point; the colours come from photographs.
  static void expectSamePoints(const std::string& made, const std::string& committed) {
    std::istringstream fresh(content(made));
    std::istringstream kept(content(committed));
    std::string freshLine;
    std::string keptLine;
    int points = 0;
    while (std::getline(kept, keptLine)) {
      ASSERT_TRUE(std::getline(fresh, freshLine));
      EXPECT_EQ(withoutColour(freshLine), withoutColour(keptLine));
      points += keptLine.front() != '#';
    }
    EXPECT_FALSE(std::getline(fresh, freshLine));
    EXPECT_EQ(points, project().pointCount());
  }

  static std::vector<std::string> withoutColour(const std::string& line) {
    std::istringstream stream(line);
    std::vector<std::string> fields(std::istream_iterator<std::string>(stream), {});
    if (line.front() != '#' && fields.size() > 7)
      fields.erase(fields.begin() + 4, fields.begin() + 7);
    return fields;
  }
};

// The committed project is the one that its program makes. The photographs may differ where
// another version of the renderer rounds differently, and with them the points' colours.
TEST_F(DemoProjectGLTest, CommittedProjectIsTheOneThatTheProgramMakes) {
  const TemporaryFolder made;
  project().write(made.path());
  const std::string committed = SourceTree::file("examples/demo/");
  EXPECT_EQ(content(made.file("sparse/cameras.txt")), content(committed + "sparse/cameras.txt"));
  EXPECT_EQ(content(made.file("sparse/images.txt")), content(committed + "sparse/images.txt"));
  expectSamePoints(made.file("sparse/points3D.txt"), committed + "sparse/points3D.txt");
  for (int i = 1; i <= 12; ++i) {
    const std::string name =
        std::string("images/station") + (i < 10 ? "0" : "") + std::to_string(i) + ".jpg";
    const Picture fresh = Picture::read(made.file(name));
    const Picture kept = Picture::read(committed + name);
    ASSERT_EQ(fresh.bytes.size(), kept.bytes.size()) << name;
    double sum = 0.0;
    for (std::size_t i = 0; i < fresh.bytes.size(); ++i) {
      sum += std::abs(static_cast<int>(fresh.bytes[i]) - static_cast<int>(kept.bytes[i]));
    }
    EXPECT_LT(sum / static_cast<double>(fresh.bytes.size()), 1.0) << name;
  }
}

TEST_F(DemoProjectGLTest, ResidualsAreThoseOfTheNoise) {
  EXPECT_GT(project().pointCount(), 1000);
  // Three unknowns a point take their share of the redundancy: 0.3 px becomes
  // 0.3 sqrt(1 - 3 / (2 rays)).
  const double rays = static_cast<double>(project().measurementCount()) / project().pointCount();
  EXPECT_NEAR(project().rootMeanSquare(),
              DemoProject::measurementNoise * std::sqrt(1.0 - 3.0 / (2.0 * rays)), 0.01);
}
