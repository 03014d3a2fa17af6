#pragma once

#include <string>

namespace tarn {

/// The whole path of a file that another file names: as the name leads to it from that file's
/// folder, or beside that file where a path of another machine leads nowhere. Either separator is
/// understood, and a name in double quotes or as it stands in an address, where a blank is %20.
/// Empty where there is no such file.
std::string namedFile(const std::string& byFile, const std::string& name);

}  // namespace tarn
