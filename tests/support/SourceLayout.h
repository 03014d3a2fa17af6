#pragma once

#include <functional>
#include <string>
#include <vector>

/// The rules of the source tree: which folder may include which, what a source includes
/// first, how a file is named. Paths are from the root of the tree ("host/model/Image.h").
namespace SourceLayout {

/// Whether a header of that path is one of the project's.
using Exists = std::function<bool(const std::string& path)>;

/// What is wrong with one .h or .cpp file, one sentence for each finding.
std::vector<std::string> findings(const std::string& path, const std::string& content,
                                  const Exists& exists);

/// The same for every .h and .cpp file below host, nodes, io and viewer of the tree at
/// `root`. `files`, unless null, receives how many files were read.
std::vector<std::string> findingsBelow(const std::string& root, int* files = nullptr);

}  // namespace SourceLayout
