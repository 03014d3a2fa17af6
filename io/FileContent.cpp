#include "io/FileContent.h"

#include "io/ReadError.h"

#include <filesystem>
#include <fstream>

namespace tarn {

std::string fileContent(const std::string& path) {
  // Only ordinary files: reading a pipe or a device could wait or go on for ever.
  std::error_code error;
  const std::filesystem::file_status status = std::filesystem::status(path, error);
  if (!std::filesystem::exists(status)) throw ReadError::inFile(path, "no such file", "a file");
  if (!std::filesystem::is_regular_file(status)) {
    throw ReadError::inFile(path, "something that is no ordinary file", "a file");
  }
  const auto size = std::filesystem::file_size(path, error);
  if (error) throw ReadError::inFile(path, error.message(), "a readable file");
  if (size == 0) throw ReadError::inFile(path, "an empty file", "a part of a COLMAP model");

  std::ifstream stream(path, std::ios::binary);
  std::string content(size, '\0');
  if (!stream.read(content.data(), static_cast<std::streamsize>(size))) {
    throw ReadError::inFile(path, "a file that cannot be read", "a readable file");
  }
  return content;
}

}  // namespace tarn
