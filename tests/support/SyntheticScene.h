#pragma once

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace tarn {
class Project;
}

/// A photogrammetric scene that is the same in every run: points on a wavy surface, seen
/// from stations on a ring around it, as records of a COLMAP model. Its image points are
/// computed here and not by the library, so that tests compare with something else.
/// Records may be changed before the scene is written.
///
/// Every image has one mark without a point first; the numbers of images (10, 13, 16, ...)
/// and of points (1000, 993, 986, ...) are no indexes.
struct SyntheticScene {
  struct Camera {
    std::uint32_t id = 3;
    std::string model = "SIMPLE_RADIAL";
    std::int32_t modelNumber = 2;
    std::uint64_t width = 1600;
    std::uint64_t height = 1200;
    std::vector<double> parameters{1500.0, 806.5, 595.25, -0.05};
  };
  struct Mark {
    double x = 0.0;
    double y = 0.0;
    std::int64_t point = -1;  ///< a point's id, or -1
  };
  struct Image {
    std::uint32_t id = 0;
    std::array<double, 4> rotation{};     ///< w, x, y, z: camera_from_model
    std::array<double, 3> translation{};  ///< of camera_from_model
    std::uint32_t camera = 3;
    std::string name;
    std::vector<Mark> marks;
    std::array<double, 3> centre{};  ///< where the station stands; not written
  };
  struct TrackElement {
    std::uint32_t image = 0;
    std::uint32_t mark = 0;
  };
  struct Point {
    std::uint64_t id = 0;
    std::array<double, 3> position{};
    std::array<int, 3> colour{};  ///< red, green, blue
    double error = 0.25;
    std::vector<TrackElement> track;
  };

  /// `noise` is the largest error of an image coordinate, in pixels.
  explicit SyntheticScene(int stations = 12, int points = 60, double noise = 0.5);

  std::vector<Camera> cameras{Camera{}};
  std::vector<Image> images;
  std::vector<Point> points;
  bool withRigs = false;  ///< write rigs and frames too: a rig per camera, a frame per image

  /// Where the first camera sees a point from an image, in pixels, without noise.
  std::array<double, 2> projected(const Image& image, const std::array<double, 3>& point) const;

  /// The files of the model: name ("cameras.txt") and content. Numbers in text have 17
  /// digits, so that both forms hold the same.
  std::vector<std::pair<std::string, std::string>> text() const;
  std::vector<std::pair<std::string, std::string>> binary() const;

  /// Writes such files into a folder, which is made if it is missing.
  static void write(const std::vector<std::pair<std::string, std::string>>& files,
                    const std::string& folder);

  /// Fills a project with the scene.
  void addTo(tarn::Project& project) const;
};
