// Reads the coloured points of a PLY file with Open3D.
#include <open3d/geometry/PointCloud.h>
#include <open3d/io/PointCloudIO.h>

#include "bench/peers/PlyWork.h"

#include <cmath>
#include <memory>

namespace {

using open3d::geometry::PointCloud;

// Null where the file is refused.
std::unique_ptr<PointCloud> readPoints(const char* path) {
  auto points = std::make_unique<PointCloud>();
  const bool done = open3d::io::ReadPointCloud(path, *points, {"ply", false, false, false});
  return done && points->HasColors() ? std::move(points) : nullptr;
}

bench::PointHash hashOf(const PointCloud& points) {
  const auto byte = [](double colour) {
    return static_cast<unsigned char>(std::lround(255.0 * colour));
  };
  bench::PointHash hash;
  for (std::size_t i = 0; i < points.points_.size(); ++i) {
    const Eigen::Vector3f xyz = points.points_[i].cast<float>();
    const Eigen::Vector3d& rgb = points.colors_[i];
    hash.add(xyz[0], xyz[1], xyz[2], byte(rgb[0]), byte(rgb[1]), byte(rgb[2]));
  }
  return hash;
}

}  // namespace

int main(int argc, char** argv) { return bench::tellReading(argc, argv, readPoints, hashOf); }
