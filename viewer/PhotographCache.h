#pragma once

#include <string>

namespace tarn {
class CameraStation;
}

/// Where the small copies of photographs are kept that image planes show.
///
/// A camera station node writes its copy beside the photograph. The viewer opens other
/// people's projects, so it gives each photograph a link in a folder of the user's own
/// (XDG_CACHE_HOME/tarnview/photographs, else ~/.cache/tarnview/photographs) and points the
/// project at the link: nothing is ever written into the project. The folder's name
/// depends on the photograph's path, size, time of change and on how much it is shrunk: a
/// changed photograph gets a new copy.
class PhotographCache {
public:
  /// Copies are shrunk so that their longer side is at most this many pixels.
  static constexpr int longestSide = 1024;
  /// No real photograph is shrunk by more.
  static constexpr int mostShrunk = 1000;

  /// Uses the folder that the environment names.
  PhotographCache();
  explicit PhotographCache(std::string folder) : folder(std::move(folder)) {}

  /// By how much the station's photograph is to be shrunk, 1 to mostShrunk.
  static int resampleFactor(const tarn::CameraStation& station);

  /// Points the station's photograph at its link. Returns false, with the station left
  /// without a picture so that nothing is written beside the photograph, when there is no
  /// photograph or the link cannot be made; `problem`, which may be null, then says why.
  bool redirect(const tarn::CameraStation& station, std::string* problem = nullptr) const;

  /// Why the station's node could make no small copy of the photograph; empty when there is
  /// one, or no photograph. Ask when the node has shown its image plane.
  static std::string copyProblem(const tarn::CameraStation& station);

private:
  std::string folder;
};
