#include "tests/support/SourceTree.h"

std::string SourceTree::root() { return TARN_SOURCE_DIR; }

std::string SourceTree::file(const std::string& path) { return root() + "/" + path; }
