#include "host/general/PathFinder.h"

#include <filesystem>
#include <system_error>

namespace tarn {

int PathFinder::IsExistingFile(const VPathString& path) {
  std::error_code ignored;
  return std::filesystem::is_regular_file(path.str(), ignored);
}

}  // namespace tarn
