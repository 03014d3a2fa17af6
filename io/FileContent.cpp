#include "io/FileContent.h"

#include "io/ReadError.h"

#include <cerrno>
#include <cstring>
#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

namespace tarn {

namespace {

// A file's descriptor while it is being mapped; the mapping outlives it.
struct Descriptor {
  // Without O_NONBLOCK opening a pipe would wait for somebody to write into it.
  explicit Descriptor(const std::string& path)
      : number(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK)) {}
  Descriptor(const Descriptor&) = delete;
  Descriptor& operator=(const Descriptor&) = delete;
  ~Descriptor() {
    if (number >= 0) close(number);
  }
  const int number;
};

[[noreturn]] void refuseUnreadable(const std::string& path) {
  throw ReadError::inFile(path, std::strerror(errno), "a readable file");
}

}  // namespace

FileContent::FileContent(const std::string& path, const char* expected) {
  const Descriptor file(path);
  if (file.number < 0 && (errno == ENOENT || errno == ENOTDIR)) {
    throw ReadError::inFile(path, "no such file", "a file");
  }
  // A socket cannot even be opened.
  struct stat status {};
  const bool isOther =
      (file.number < 0 ? stat(path.c_str(), &status) : fstat(file.number, &status)) == 0 &&
      !S_ISREG(status.st_mode);
  // Only ordinary files: reading a pipe or a device could wait or go on for ever.
  if (isOther) throw ReadError::inFile(path, "something that is no ordinary file", "a file");
  if (file.number < 0) refuseUnreadable(path);
  if (status.st_size == 0) throw ReadError::inFile(path, "an empty file", expected);

  _size = static_cast<std::size_t>(status.st_size);
  _address = mmap(nullptr, _size, PROT_READ, MAP_PRIVATE, file.number, 0);
  if (_address == MAP_FAILED) refuseUnreadable(path);
  // Advice only: readers go through their files once, from the front.
  madvise(_address, _size, MADV_SEQUENTIAL);
}

FileContent::~FileContent() { munmap(_address, _size); }

}  // namespace tarn
