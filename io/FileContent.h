#pragma once

#include <string>

namespace tarn {

/// The whole content of a file. Throws ReadError when it is missing, no ordinary file,
/// empty, or cannot be read.
std::string fileContent(const std::string& path);

}  // namespace tarn
