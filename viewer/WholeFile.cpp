#include "viewer/WholeFile.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <sys/stat.h>
#include <system_error>
#include <unistd.h>

namespace fs = std::filesystem;

namespace WholeFile {

namespace {

/// An open file that is closed, and removed unless it is kept.
class Unfinished {
public:
  explicit Unfinished(const fs::path& target) {
    name = (target.parent_path() / ".tarnview.XXXXXX").string();
    const int descriptor = ::mkostemp(name.data(), O_CLOEXEC);
    if (descriptor < 0) return;
    // mkostemp lets nobody else read; a picture gets what the user's mask allows.
    const mode_t mask = ::umask(0);
    ::umask(mask);
    ::fchmod(descriptor, 0666 & ~mask);
    stream = ::fdopen(descriptor, "wb");
    if (!stream) ::close(descriptor);
    removable = true;
  }
  ~Unfinished() {
    if (stream) std::fclose(stream);
    if (removable) std::remove(name.c_str());
  }
  Unfinished(const Unfinished&) = delete;
  Unfinished& operator=(const Unfinished&) = delete;

  bool rename(const fs::path& target) {
    removable = ::rename(name.c_str(), target.c_str()) != 0;
    return !removable;
  }

  std::string name;
  std::FILE* stream = nullptr;

private:
  bool removable = false;
};

// The stream's content and its end; closes it in any case. Returns whether all of it was
// taken; errno tells why not.
bool fill(std::FILE*& stream, const std::function<bool(std::FILE*)>& write) {
  errno = 0;
  const bool done = write(stream) && !std::ferror(stream) && std::fflush(stream) == 0;
  const int reason = errno;
  const bool closed = std::fclose(stream) == 0;
  stream = nullptr;
  if (!done) errno = reason;
  return done && closed;
}

}  // namespace

void write(const std::string& fileName, const std::string& what,
           const std::function<bool(std::FILE*)>& write) {
  const auto fail = [&] {
    const std::string reason =
        errno ? ": " + std::error_code(errno, std::generic_category()).message() : std::string();
    throw std::runtime_error(fileName + ": the " + what + " cannot be written" + reason);
  };
  std::error_code ignored;
  const fs::file_status status = fs::status(fileName, ignored);
  if (fs::is_directory(status)) {
    errno = EISDIR;
    fail();
  }
  if (fs::exists(status) && !fs::is_regular_file(status)) {
    std::FILE* stream = std::fopen(fileName.c_str(), "wb");
    if (!stream || !fill(stream, write)) fail();
    return;
  }
  const fs::path resolved = fs::exists(status) ? fs::canonical(fileName, ignored) : fs::path();
  const fs::path target = resolved.empty() ? fs::path(fileName) : resolved;
  Unfinished unfinished(target);
  if (!unfinished.stream || !fill(unfinished.stream, write) || !unfinished.rename(target)) fail();
}

}  // namespace WholeFile
