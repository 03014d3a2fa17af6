#include <algorithm>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>
#include <vector>

#include <gtest/gtest.h>

namespace {

const std::filesystem::path root = TARN_SOURCE_DIR;

// The folders that the sources of one folder may include from.
struct Rule {
  std::string folder;
  std::vector<std::string> allowed;
  bool withSubfolders = true;
  friend void PrintTo(const Rule& rule, std::ostream* out) { *out << rule.folder; }
};

// One folder of nodes knows the framework and the host, and no other folder of nodes.
Rule rulesOfNodes(const std::string& folder) {
  return {"nodes/" + folder,
          {"host", "nodes/TarnOIExport.h", "nodes/framework", "nodes/" + folder}};
}

std::vector<Rule> rules() {
  std::vector<Rule> all = {
      {"host/classes", {"host/TarnOIHostExport.h", "host/classes"}},
      {"host/general", {"host/TarnOIHostExport.h", "host/classes", "host/general"}},
      {"host/model", {"host"}},
      {"nodes", {"host", "nodes"}, false},
      {"io", {"host", "io"}},
      {"viewer", {"host", "nodes", "io", "viewer"}},
  };
  for (const auto& entry : std::filesystem::directory_iterator(root / "nodes")) {
    if (entry.is_directory()) all.push_back(rulesOfNodes(entry.path().filename().string()));
  }
  return all;
}

std::vector<std::filesystem::path> sourcesOf(const Rule& rule) {
  std::vector<std::filesystem::path> sources;
  const auto take = [&sources](const std::filesystem::directory_entry& entry) {
    const auto extension = entry.path().extension();
    if (entry.is_regular_file() && (extension == ".h" || extension == ".cpp")) {
      sources.push_back(entry.path());
    }
  };
  if (rule.withSubfolders) {
    std::ranges::for_each(std::filesystem::recursive_directory_iterator(root / rule.folder), take);
  } else {
    std::ranges::for_each(std::filesystem::directory_iterator(root / rule.folder), take);
  }
  return sources;
}

// The project's own headers that a file includes, in their order.
std::vector<std::string> includesOf(const std::filesystem::path& file) {
  std::vector<std::string> includes;
  std::ifstream stream(file);
  for (std::string line; std::getline(stream, line);) {
    constexpr std::string_view start = "#include \"";
    if (!line.starts_with(start)) continue;
    includes.push_back(line.substr(start.size(), line.find('"', start.size()) - start.size()));
  }
  return includes;
}

class LayoutTest : public testing::TestWithParam<Rule> {};

TEST_P(LayoutTest, IncludesPointOneWay) {
  const auto sources = sourcesOf(GetParam());
  ASSERT_FALSE(sources.empty());
  for (const auto& source : sources) {
    for (const std::string& include : includesOf(source)) {
      EXPECT_TRUE(std::ranges::any_of(GetParam().allowed,
                                      [&include](const std::string& allowed) {
                                        return include == allowed ||
                                               include.starts_with(allowed + "/");
                                      }))
          << source << " must not include " << include;
    }
  }
}

TEST_P(LayoutTest, SourcesIncludeTheirOwnHeaderFirst) {
  for (auto source : sourcesOf(GetParam())) {
    if (source.extension() != ".cpp") continue;
    const auto includes = includesOf(source);
    const auto header = source.replace_extension(".h");
    if (!std::filesystem::exists(header)) continue;
    ASSERT_FALSE(includes.empty()) << source;
    EXPECT_EQ(includes.front(), std::filesystem::relative(header, root).string());
  }
}

INSTANTIATE_TEST_SUITE_P(Folders, LayoutTest, testing::ValuesIn(rules()), [](const auto& tested) {
  std::string name = tested.param.folder;
  std::ranges::replace(name, '/', '_');
  return name;
});

}  // namespace
