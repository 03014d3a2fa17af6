#pragma once

#include <string>

/// The tree that the tests were built from: committed pictures and projects, and the sources
/// themselves.
namespace SourceTree {

/// Its root.
std::string root();

/// A file or folder of it: file("examples/demo").
std::string file(const std::string& path);

}  // namespace SourceTree
