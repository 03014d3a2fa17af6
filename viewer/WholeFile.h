#pragma once

#include <cstdio>
#include <functional>
#include <string>

/// Writes files whole or not at all.
///
/// What `write` puts into the stream goes into an unfinished file beside the one that is
/// meant, of a name that no other file has, and takes its name when every byte is on its
/// way to the disk; an earlier file stays as it was until then. A link is followed. What is
/// no ordinary file (/dev/stdout, a pipe) is written straight.
namespace WholeFile {

/// `write` returns false when it cannot go on. Throws std::runtime_error, "FILE: the WHAT
/// cannot be written: REASON", the reason being the system's.
void write(const std::string& fileName, const std::string& what,
           const std::function<bool(std::FILE*)>& write);

}  // namespace WholeFile
