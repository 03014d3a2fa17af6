#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace tarn {

/// The whole content of a file, mapped into memory and not copied: only what is looked at is
/// read from the disk, and memory that gets scarce is given back. The file must not be cut
/// while it is mapped; like any program that maps it, ours would be ended by a bus error.
class FileContent {
public:
  /// Throws ReadError when the file is missing, no ordinary file, empty, or cannot be read.
  /// `expected` is what it should be, for the error of an empty one: "a PLY file".
  FileContent(const std::string& path, const char* expected);
  FileContent(const FileContent&) = delete;
  FileContent& operator=(const FileContent&) = delete;
  ~FileContent();

  /// Good for this object's life.
  std::string_view bytes() const { return {static_cast<const char*>(_address), _size}; }

private:
  void* _address = nullptr;
  std::size_t _size = 0;
};

}  // namespace tarn
