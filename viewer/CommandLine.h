#pragma once

#include <optional>
#include <string>
#include <vector>

/// What a call of tarnview asks for.
struct CommandLine {
  enum class View { eIso, eTop, eFront, eRight, eStation };
  enum class Background { eNone, ePlain, eGradient };
  struct Size {
    static constexpr int mostPixels = 16384;  ///< a side, of all pictures that are drawn
    int width = 1600;
    int height = 1200;
  };
  /// An object of the project as it is named in a call: point:NUMBER or station:NAME.
  struct Object {
    enum class Kind { ePoint, eStation };
    Kind kind = Kind::ePoint;
    long pointNumber = 0;
    std::string stationName;
  };

  /// Two points of the picture, in fractions of it: x to the right and y up, from 0 to 1.
  struct Corners {
    double x0 = 0.0;
    double y0 = 0.0;
    double x1 = 1.0;
    double y1 = 1.0;
  };

  /// Of dense clouds and meshes.
  enum class Color { eNone, eRgb, eHeight };

  std::string project;       ///< empty when only --nodes was asked for
  std::string renderFile;    ///< a PNG file; empty for no picture
  std::string writeFile;     ///< empty for no scene file
  std::optional<Size> size;  ///< absent when --size was not given
  View view = View::eIso;
  std::string viewStation;  ///< for View::eStation
  bool imagePlanes = false;
  bool frusta = false;
  bool labels = false;
  std::optional<double> ellipsoidScale;  ///< 1e-9 to 1e9
  std::optional<Color> color;
  std::optional<double> contourSpacing;  ///< 1e-9 to 1e9
  bool heightScale = false;
  std::optional<Corners> box;
  std::optional<Corners> section;
  std::optional<double> thickness;  ///< of the section; 1e-9 to 1e9
  std::string profileFile;          ///< for the section's profile; empty for none
  std::string cloud;                ///< a PLY file; empty when none is named
  int mostPointNodes = 50'000;      ///< more object points are shown as one cloud
  bool findCloud = true;            ///< whether a model's own dense cloud is looked for
  std::optional<Object> highlight;
  std::vector<Object> rays;    ///< whose rays are shown
  std::string surfaceStation;  ///< over whose points a surface is shown; empty for none
  bool axis = false;
  bool groundPlane = false;
  Background background = Background::eGradient;
  bool listNodes = false;

  /// Whether any file is to be made.
  bool makesFiles() const {
    return !renderFile.empty() || !writeFile.empty() || !profileFile.empty();
  }
  /// Whether the call wants a window: neither a file nor a list.
  bool wantsWindow() const { return !makesFiles() && !listNodes; }

  /// What parse found: a command line to carry out, or else an exit status with the text
  /// that goes to standard output (--help, --version: status 0) or standard error (2).
  struct Parsed;

  /// Parses the arguments, the program's name not among them.
  static Parsed parse(const std::vector<std::string>& arguments);
};

struct CommandLine::Parsed {
  std::optional<CommandLine> commandLine;
  int exitStatus = 0;
  std::string output;
  std::string error;
};
