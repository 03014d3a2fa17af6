#pragma once

#include <iosfwd>
#include <string>

class ProjectScene;

/// The window of tarnview: an examiner viewer in which a click marks an object point or a
/// camera station, and keys show and hide things: I image planes, F frusta, L labels, R the
/// rays of what is marked, A axes, G the ground plane, D dense clouds and meshes; C changes their
/// colours, B the background.
/// Nothing else of the program touches the window toolkit.
class ViewerWindow {
public:
  /// Whether there is a display to open a window on; when not, says so to `errors`. To be
  /// called before SoDB::init.
  static bool prepare(std::ostream& errors);

  /// Shows the scene, which holds a camera, until the window is closed. Returns the exit
  /// status.
  static int open(const std::string& title, ProjectScene& scene, bool labels, std::ostream& errors);
};
