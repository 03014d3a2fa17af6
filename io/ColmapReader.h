#pragma once

#include "io/ProgressHandler.h"
#include "io/TarnOIIOExport.h"

#include <string>

namespace tarn {

class Project;

/// Reads a COLMAP model (sparse reconstruction) into a project.
///
/// Frames: COLMAP's camera looks along +z with y down, its poses are camera_from_world;
/// the project's rotation matrices have the rows right, up, back, so their second and third
/// rows are COLMAP's with the sign changed. Object points keep the model's coordinates and
/// units. Image coordinates are COLMAP's: the centre of the upper left pixel is (0.5, 0.5).
///
/// Cameras come in millimetres: COLMAP knows pixels only, so the longer side of the picture
/// counts as 36 mm (the focal length is then the "35 mm equivalent"); all ratios are exact.
class TARN_IO_EXPORT ColmapReader {
public:
  struct Options {
    /// Where the photographs are; empty to look for a folder "images" beside the model
    /// folder, in its parents up to two levels, or in the model folder itself.
    std::string imageFolder;
    ProgressHandler progress;  ///< may be empty
  };

  /// Whether `folder`, or "sparse", "sparse/0" or "0" in it, holds a model.
  static bool IsModelFolder(const std::string& folder);

  /// Reads the model in `folder` (or "sparse", "sparse/0" or "0" in it), binary where both
  /// forms are there, and adds it to the project. Throws ReadError when the model is
  /// refused; the project is then as it was before. A photograph that is missing or cannot
  /// be read is no error.
  static void Read(const std::string& folder, Project& project, const Options& options);
  static void Read(const std::string& folder, Project& project) { Read(folder, project, {}); }
};

}  // namespace tarn
