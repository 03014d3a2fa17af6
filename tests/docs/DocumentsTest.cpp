#include <gtest/gtest.h>

#include "tests/support/SourceTree.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <string>

namespace {

const std::filesystem::path root = SourceTree::root();

std::string contentOf(const std::filesystem::path& file) {
  std::ifstream stream(file);
  EXPECT_TRUE(stream) << file;
  return {std::istreambuf_iterator<char>(stream), {}};
}

TEST(DocumentsTest, FirstSceneOfTheReadmeIsTheOneThatIsCompiled) {
  const std::string readme = contentOf(root / "README.md");
  const std::string program = contentOf(root / "examples/first_scene/main.cpp");
  ASSERT_FALSE(program.empty());
  EXPECT_NE(readme.find("```cpp\n" + program + "```\n"), std::string::npos);
}

class DocumentLinksTest : public testing::TestWithParam<const char*> {};

TEST_P(DocumentLinksTest, LeadToFilesOfTheTree) {
  const std::string text = contentOf(root / GetParam());
  const std::regex link(R"(\]\(([^)#]+))");
  int links = 0;
  for (std::sregex_iterator match(text.begin(), text.end(), link), end; match != end; ++match) {
    const std::string target = (*match)[1];
    if (target.starts_with("http")) continue;
    ++links;
    EXPECT_TRUE(std::filesystem::exists((root / GetParam()).parent_path() / target)) << target;
  }
  EXPECT_GT(links, 0);
}

INSTANTIATE_TEST_SUITE_P(Documents, DocumentLinksTest,
                         testing::Values("README.md", "CONTRIBUTING.md"), [](const auto& tested) {
                           const std::string name = tested.param;
                           return name.substr(0, name.find('.'));
                         });

}  // namespace
