#pragma once

#include <Eigen/Core>

#include "examples/DemoScene.h"
#include "viewer/Picture.h"

#include <cstdint>
#include <string>
#include <vector>

/// The demo project: photographs of the demo scene, measurements in them with noise, and
/// the object points computed from those, written as a COLMAP text model.
///
/// Frames: the scene has its origin in the middle of the plate; the project stands at
/// `siteOrigin` in its own coordinates. Image points are in pixels, x to the right and y
/// down, the centre of the upper left pixel at (0.5, 0.5).
class DemoProject {
public:
  static constexpr int width = 800;
  static constexpr int height = 600;
  static constexpr double focalLength = 820.0;     ///< pixels
  static constexpr double measurementNoise = 0.3;  ///< pixels, one standard deviation
  static const Eigen::Vector3d siteOrigin;

  /// Takes the photographs, measures them and computes the object points.
  DemoProject();

  /// Writes folder/sparse/*.txt and folder/images/*.jpg. Throws std::runtime_error that
  /// names a file that cannot be written.
  void write(const std::string& folder) const;

  int pointCount() const { return static_cast<int>(points.size()); }
  int measurementCount() const;
  /// Root mean square of all residuals, in pixels.
  double rootMeanSquare() const;

private:
  struct Measurement {
    Eigen::Vector2d pixel;
    int point = -1;  ///< index into `points`; -1 for a place that too few photographs see
  };
  struct Station {
    std::string name;
    Eigen::Vector3d position;         ///< in scene coordinates
    Eigen::Matrix3d cameraFromScene;  ///< rows: right, down, forward
    Picture photograph;
    std::vector<Measurement> measurements;
  };
  struct Ray {
    std::size_t station;
    std::size_t measurement;
  };
  struct Point {
    Eigen::Vector3d position;  ///< in scene coordinates
    Eigen::Vector3i color;
    double error = 0.0;  ///< mean distance of measured from projected, pixels
    std::vector<Ray> rays;
  };

  void addStations();
  void photograph();
  void measure();
  void computePoint(Point& point) const;
  static Eigen::Vector2d project(const Station& station, const Eigen::Vector3d& position);
  Eigen::Vector3i colorOf(const Point& point) const;

  DemoScene scene;
  std::vector<Station> stations;
  std::vector<Point> points;
};
