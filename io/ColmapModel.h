#pragma once

#include "host/general/Colour.h"
#include "host/general/Point2DDouble.h"
#include "host/general/Point3DDouble.h"
#include "io/ColmapCameraModel.h"
#include "io/Place.h"

#include <array>
#include <cstdint>
#include <limits>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace tarn {

/// The records of a COLMAP model as they stand in its files. Each one knows its place, for
/// what is found wrong only when the files are compared.

/// cam_from_world or rig_from_world: the unit quaternion and the translation.
struct ColmapPose {
  double w = 1.0, x = 0.0, y = 0.0, z = 0.0;
  Point3DDouble translation;
};

struct ColmapCamera {
  static constexpr int mostParameters = 16;
  std::uint32_t id = 0;
  const ColmapCameraModel* model = nullptr;
  std::uint64_t width = 0;   ///< pixels
  std::uint64_t height = 0;  ///< pixels
  std::array<double, mostParameters> parameters{};
  Place place;
};

struct ColmapMark {
  static constexpr std::uint64_t noPoint = std::numeric_limits<std::uint64_t>::max();
  Point2DDouble position;
  std::uint64_t pointId = noPoint;
};

struct ColmapImage {
  std::uint32_t id = 0;
  std::uint32_t cameraId = 0;
  ColmapPose pose;
  std::string name;
  std::size_t firstMark = 0;  ///< in ColmapModel::marks
  std::size_t marks = 0;
  Place place;
  Place marksPlace;
};

struct ColmapTrackElement {
  std::uint32_t imageId = 0;
  std::uint32_t markIndex = 0;
};

struct ColmapPoint {
  std::uint64_t id = 0;
  Point3DDouble position;
  Colour colour;
  std::size_t firstElement = 0;  ///< in ColmapModel::tracks
  std::size_t elements = 0;
  Place place;
  Place trackPlace;
};

/// A camera or another instrument of a rig.
struct ColmapSensor {
  enum Type : int { eCamera = 0, eIMU = 1 };
  Type type = eCamera;
  std::uint32_t id = 0;
  std::uint64_t key() const { return (static_cast<std::uint64_t>(type) << 32) | id; }
};

struct ColmapRig {
  std::uint32_t id = 0;
  std::vector<ColmapSensor> sensors;
  Place place;
};

struct ColmapFrame {
  struct Datum {
    ColmapSensor sensor;
    std::uint64_t id = 0;  ///< an image's, where the sensor is a camera
  };
  std::uint32_t id = 0;
  std::uint32_t rigId = 0;
  std::vector<Datum> data;
  Place place;
};

struct ColmapModel {
  std::vector<ColmapCamera> cameras;
  std::vector<ColmapImage> images;
  std::vector<ColmapMark> marks;  ///< of all images, one after the other
  std::vector<ColmapPoint> points;
  std::vector<ColmapTrackElement> tracks;  ///< of all points, one after the other
  std::vector<ColmapRig> rigs;
  std::vector<ColmapFrame> frames;
  bool hasFrames = false;  ///< whether there is a frames file

  /// Where in the vectors the record of an id is; filled as records are added.
  std::unordered_map<std::uint32_t, std::size_t> cameraOf;
  std::unordered_map<std::uint32_t, std::size_t> imageOf;
  std::unordered_map<std::uint64_t, std::size_t> pointOf;
  std::unordered_map<std::uint32_t, std::size_t> rigOf;
  std::unordered_map<std::uint32_t, std::size_t> frameOf;
  std::unordered_set<std::string> imageNames;

  /// Adds a record after the checks that need no other file: ids and names not used before, sizes
  /// and focal lengths above zero, coordinates of at most 1e15, a file name inside the
  /// photograph folder, ids that the project can number. Throws ReadError.
  void add(ColmapCamera camera);
  void add(ColmapImage image);
  void add(const ColmapPoint& point);
  void add(ColmapRig rig);
  void add(ColmapFrame frame);

  /// The checks between the files: each image's camera is there, each element of a track
  /// names a mark that names its point back, and each mark with a point is in its track;
  /// rigs and frames, where there are any, agree with cameras and images. A frame may
  /// name images that are not there: COLMAP writes the registered ones only.
  /// Throws ReadError. Linear in the number of records.
  void check() const;

private:
  void checkTracks() const;
  void checkRigs() const;
  void checkFrames() const;
};

/// A pose with its quaternion brought to length one. Refuses one of length zero.
ColmapPose colmapPose(const Place& place, const std::array<double, 7>& numbers);

}  // namespace tarn
