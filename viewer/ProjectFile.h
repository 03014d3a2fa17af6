#pragma once

#include "io/ColmapReader.h"

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

/// Reads the project at `path` (a COLMAP model's folder or the one above it). Throws
/// tarn::ReadError when it is refused.
void open(const std::string& path, tarn::Project& project, const tarn::ProgressHandler& progress);

/// The station of that name, or the only one whose picture has that name when folder and
/// extension are left out. Throws UnknownName.
tarn::CameraStation& findStation(const tarn::Project& project, const std::string& name);

/// The object point of that number. Throws UnknownName.
tarn::ObjectPoint& findPoint(const tarn::Project& project, long number);

}  // namespace ProjectFile
