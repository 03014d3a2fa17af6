#include "tests/support/SourceLayout.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <sstream>
#include <string_view>

namespace {

// The arrows between folders: classes <- general <- model <- nodes <- viewer and
// model <- io <- viewer. A folder may include itself and what stands in its row.
struct Folder {
  std::string_view name;
  std::vector<std::string_view> mayInclude;
};
const std::vector<Folder>& folders() {
  static const std::vector<Folder> all = {
      {"host/classes", {}},
      {"host/general", {"host/classes"}},
      {"host/model", {"host/classes", "host/general"}},
      {"nodes", {"host/classes", "host/general", "host/model"}},
      {"io", {"host/classes", "host/general", "host/model"}},
      {"viewer", {"host/classes", "host/general", "host/model", "nodes", "io"}},
  };
  return all;
}

// Inside nodes every folder may include framework. Beyond that a folder's class may
// include another folder's only as listed here.
struct Exception {
  std::string_view includer;
  std::string_view included;
};
constexpr std::array exceptions = {
    Exception{"nodes/surfaces/TarnOICylinderSeparator.", "nodes/lines/ThreeDExtension.h"},
};

// Node classes that others build on: inside nodes nobody else may include them.
struct Reserved {
  std::string_view included;
  std::vector<std::string_view> includers;
};
const std::vector<Reserved>& reserved() {
  static const std::vector<Reserved> all = {
      {"nodes/surfaces/TarnOINurbsSurfaceSeparator.",
       {"nodes/surfaces/TarnOICylinderSeparator.", "nodes/surfaces/TarnOIImportedSurfaceSeparator.",
        "nodes/surfaces/TarnOIShapeFaceSeparator."}},
      {"nodes/surfaces/TarnOIShapeVertexToMarkSeparator.",
       {"nodes/surfaces/TarnOIShapeEdgeSeparator."}},
  };
  return all;
}

bool isReservedFromOthers(std::string_view includer, std::string_view included) {
  return std::any_of(reserved().begin(), reserved().end(), [&](const Reserved& one) {
    const auto beginsWith = [&](std::string_view stem) { return includer.starts_with(stem); };
    return included.starts_with(one.included) && !beginsWith(one.included) &&
           std::none_of(one.includers.begin(), one.includers.end(), beginsWith);
  });
}

const Folder* folderOf(std::string_view path) {
  for (const Folder& folder : folders()) {
    if (path.starts_with(std::string(folder.name) + "/")) return &folder;
  }
  return nullptr;
}

// The folder inside nodes: "framework"; empty for nodes/TarnOI.h, which lists all classes.
std::string_view nodeFolderOf(std::string_view path) {
  constexpr std::string_view nodes = "nodes/";
  if (!path.starts_with(nodes)) return {};
  const std::string_view rest = path.substr(nodes.size());
  const auto end = rest.find('/');
  return end == std::string_view::npos ? std::string_view{} : rest.substr(0, end);
}

bool mayInclude(std::string_view includer, std::string_view included) {
  const Folder* from = folderOf(includer);
  const Folder* to = folderOf(included);
  if (!from || !to) return false;
  if (from != to) {
    return std::find(from->mayInclude.begin(), from->mayInclude.end(), to->name) !=
           from->mayInclude.end();
  }
  if (from->name != "nodes") return true;
  const std::string_view here = nodeFolderOf(includer);
  const std::string_view there = nodeFolderOf(included);
  if (here.empty()) return true;
  if (isReservedFromOthers(includer, included)) return false;
  if (here == there || there == "framework") return true;
  return std::any_of(exceptions.begin(), exceptions.end(), [&](const Exception& exception) {
    return includer.starts_with(exception.includer) && included == exception.included;
  });
}

// The content with comments and texts blanked out, line for line.
std::string codeOf(const std::string& content) {
  std::string code = content;
  enum { eCode, eLine, eBlock, eText, eCharacter } state = eCode;
  for (std::size_t i = 0; i < code.size(); ++i) {
    const char c = code[i];
    const char next = i + 1 < code.size() ? code[i + 1] : '\0';
    switch (state) {
      case eCode:
        if (c == '/' && next == '/') state = eLine;
        if (c == '/' && next == '*') state = eBlock;
        if (c == '"') state = eText;
        // 1'000 is a number, not the beginning of a character.
        if (c == '\'' && (i == 0 || !std::isalnum(static_cast<unsigned char>(code[i - 1])))) {
          state = eCharacter;
        }
        if (state == eLine || state == eBlock) code[i] = ' ';
        continue;
      case eLine:
        if (c == '\n') state = eCode;
        break;
      case eBlock:
        if (c == '*' && next == '/') {
          code[i] = code[i + 1] = ' ';
          ++i;
          state = eCode;
          continue;
        }
        break;
      case eText:
      case eCharacter: {
        if (c == '\\') {
          code[i] = ' ';
          if (next != '\n') code[++i] = ' ';
          continue;
        }
        if (c == (state == eText ? '"' : '\'')) {
          state = eCode;
          continue;
        }
        break;
      }
    }
    if (c != '\n') code[i] = ' ';
  }
  return code;
}

std::string_view withoutBlanksAhead(std::string_view text) {
  const auto first = text.find_first_not_of(" \t");
  return first == std::string_view::npos ? std::string_view{} : text.substr(first);
}

// The names between quotes or angle brackets of all include lines, in order.
std::vector<std::string> includesOf(const std::string& content) {
  std::vector<std::string> names;
  std::istringstream lines(content);
  for (std::string line; std::getline(lines, line);) {
    std::string_view rest = withoutBlanksAhead(line);
    if (!rest.starts_with('#')) continue;
    rest = withoutBlanksAhead(rest.substr(1));
    if (!rest.starts_with("include")) continue;
    const auto begin = rest.find_first_of("<\"");
    const auto end = rest.find_last_of(">\"");
    if (begin != std::string_view::npos && end > begin) {
      names.emplace_back(rest.substr(begin + 1, end - begin - 1));
    }
  }
  return names;
}

struct Definition {
  std::string name;
  bool exported;
};

// The classes and structs that the code defines: '{' or ':' comes ahead of any ';'.
std::vector<Definition> definitionsIn(const std::string& code) {
  std::vector<Definition> definitions;
  for (std::size_t at = 0; at < code.size(); at = code.find('\n', at)) {
    if (code[at] == '\n') ++at;
    std::istringstream words(code.substr(at, 400));
    std::string keyword;
    std::string name;
    words >> keyword >> name;
    if (keyword != "class" && keyword != "struct") continue;
    const bool exported =
        name.ends_with("_EXPORT") || name.ends_with("_DLL") || name.ends_with("_API");
    if (exported) words >> name;
    name = name.substr(0, name.find_first_of(":{;"));
    const auto end = code.find_first_of(":{;", at);
    if (end == std::string::npos || code[end] == ';' || name.empty()) continue;
    // A keyword that begins this line, not a later one.
    if (code.find(keyword, at) > code.find('\n', at)) continue;
    definitions.push_back({name, exported});
  }
  return definitions;
}

std::string withoutUnderscores(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c != '_') result += static_cast<char>(std::tolower(static_cast<unsigned char>(c)));
  }
  return result;
}

}  // namespace

std::vector<std::string> SourceLayout::findings(const std::string& path, const std::string& content,
                                                const Exists& exists) {
  std::vector<std::string> found;
  const std::filesystem::path file(path);
  const std::string stem = file.stem().string();
  const bool isHeader = file.extension() == ".h";
  const std::vector<std::string> includes = includesOf(content);

  for (const std::string& name : includes) {
    if (exists(name) && !mayInclude(path, name)) {
      found.push_back(path + " includes " + name + ", against the arrows between the folders");
    }
    if (!exists(name) && exists((file.parent_path() / name).lexically_normal().string())) {
      found.push_back(path + " includes " + name + " by a path that does not begin at the root");
    }
  }

  if (!isHeader) {
    const std::string own = std::filesystem::path(file).replace_extension(".h").string();
    if (exists(own)) {
      if (includes.empty() || includes.front() != own) {
        found.push_back(path + " does not include its own header first");
      }
    } else if (stem != "main" && (includes.empty() || !exists(includes.front()))) {
      // One of several sources behind one header begins with that header.
      found.push_back(path + " neither has a header of its name nor begins with the one it serves");
    }
    return found;
  }

  const std::string code = codeOf(content);
  bool definesAny = false;
  bool definesStem = false;
  for (const auto& [name, exported] : definitionsIn(code)) {
    definesAny = true;
    if (name == stem) definesStem = true;
    if (exported && name != stem) {
      found.push_back(path + " defines the class " + name + ", which belongs into " + name + ".h");
    }
  }
  // Small records may stand beside functions in a header that is named after those.
  if (definesAny && !definesStem &&
      withoutUnderscores(code).find(withoutUnderscores(stem)) == std::string::npos) {
    found.push_back(path + " is not named after the class it defines");
  }
  return found;
}

std::vector<std::string> SourceLayout::findingsBelow(const std::string& root, int* files) {
  const auto exists = [&root](const std::string& path) {
    return folderOf(path) && std::filesystem::is_regular_file(std::filesystem::path(root) / path);
  };
  std::vector<std::string> found;
  if (files) *files = 0;
  for (const char* folder : {"host", "nodes", "io", "viewer"}) {
    const std::filesystem::path top = std::filesystem::path(root) / folder;
    if (!std::filesystem::is_directory(top)) continue;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(top)) {
      const std::filesystem::path extension = entry.path().extension();
      if (!entry.is_regular_file() || (extension != ".h" && extension != ".cpp")) continue;
      std::ifstream in(entry.path(), std::ios::binary);
      const std::string content{std::istreambuf_iterator<char>(in), {}};
      const std::string path = std::filesystem::relative(entry.path(), root).generic_string();
      for (std::string& finding : findings(path, content, exists)) {
        found.push_back(std::move(finding));
      }
      if (files) ++*files;
    }
  }
  std::sort(found.begin(), found.end());
  return found;
}
