#pragma once

#include "io/ProgressHandler.h"

#include <stdexcept>
#include <string>

namespace tarn {
class CameraStation;
class ObjectPoint;
class Project;
}  // namespace tarn

/// What a user names on the command line, found in files and projects.
namespace ProjectFile {

/// A name that the project does not know; the message says which names it does know.
class UnknownName : public std::runtime_error {
public:
  using std::runtime_error::runtime_error;
};

struct Options {
  std::string cloud;      ///< a PLY file to read besides; empty for none
  bool findCloud = true;  ///< look for a model's dense cloud where none is named
  tarn::ProgressHandler progress;
};

/// Reads what is at `path`: a COLMAP model's folder or the one above it, with its dense cloud,
/// a PLY file, or a file of surfaces as SurfaceReader reads it. What a file is decides its content
/// as far as it tells. Throws tarn::ReadError when it is refused.
/// @return why a dense cloud that was found, not named, is left out; else empty
std::string open(const std::string& path, tarn::Project& project, const Options& options);

/// Whether it is the same file, by whatever path, as one of the project's photographs or textures.
bool isPictureOf(const tarn::Project& project, const std::string& file);

/// The station of that name, or the only one whose picture has that name when folder and
/// extension are left out. Throws UnknownName.
tarn::CameraStation& findStation(const tarn::Project& project, const std::string& name);

/// The object point of that number. Throws UnknownName.
tarn::ObjectPoint& findPoint(const tarn::Project& project, long number);

}  // namespace ProjectFile
