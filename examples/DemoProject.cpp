#include "examples/DemoProject.h"

#include <Eigen/Dense>
#include <Inventor/SbMatrix.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>
#include <Inventor/nodes/SoSeparator.h>

#include "viewer/OffscreenRenderer.h"

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <memory>
#include <numbers>
#include <random>
#include <stdexcept>

using Eigen::Matrix3d;
using Eigen::Vector2d;
using Eigen::Vector3d;

const Vector3d DemoProject::siteOrigin(120.0, 250.0, 32.0);

namespace {

constexpr double degree = std::numbers::pi / 180.0;

// Normally distributed numbers, the same on every system.
class Noise {
public:
  explicit Noise(std::uint64_t seed) : random(seed) {}

  // Box and Muller, A Note on the Generation of Random Normal Deviates (1958).
  double operator()(double deviation) {
    const double radius = std::sqrt(-2.0 * std::log(fraction()));
    return deviation * radius * std::cos(2.0 * std::numbers::pi * fraction());
  }

private:
  double fraction() { return (static_cast<double>(random() >> 11U) + 0.5) * 0x1p-53; }
  std::mt19937_64 random;
};

// Rows right, down, forward of a camera that looks from `eye` at `target`, then turned
// about its viewing direction.
Matrix3d lookAt(const Vector3d& eye, const Vector3d& target, double roll) {
  const Vector3d forward = (target - eye).normalized();
  const Vector3d right = forward.cross(Vector3d::UnitZ()).normalized();
  const Vector3d down = forward.cross(right);
  Matrix3d rows;
  rows.row(0) = std::cos(roll) * right + std::sin(roll) * down;
  rows.row(1) = -std::sin(roll) * right + std::cos(roll) * down;
  rows.row(2) = forward;
  return rows;
}

// Half the size in each direction: every pixel the mean of four.
Picture halved(const Picture& big) {
  Picture small(big.width / 2, big.height / 2);
  std::uint8_t* to = small.bytes.data();
  for (int y = 0; y < small.height; ++y) {
    for (int x = 0; x < small.width; ++x) {
      for (int c = 0; c < 3; ++c) {
        const int sum = big.at(2 * x, 2 * y)[c] + big.at(2 * x + 1, 2 * y)[c] +
                        big.at(2 * x, 2 * y + 1)[c] + big.at(2 * x + 1, 2 * y + 1)[c];
        *to++ = static_cast<std::uint8_t>((sum + 2) / 4);
      }
    }
  }
  return small;
}

std::unique_ptr<std::FILE, int (*)(std::FILE*)> create(const std::filesystem::path& path) {
  std::unique_ptr<std::FILE, int (*)(std::FILE*)> file(std::fopen(path.c_str(), "w"), &std::fclose);
  if (!file) throw std::runtime_error(path.string() + ": cannot be written");
  return file;
}

void finish(std::unique_ptr<std::FILE, int (*)(std::FILE*)> file,
            const std::filesystem::path& path) {
  if (std::ferror(file.get()) || std::fclose(file.release()) != 0) {
    throw std::runtime_error(path.string() + ": cannot be written");
  }
}

}  // namespace

DemoProject::DemoProject() {
  addStations();
  photograph();
  measure();
}

void DemoProject::addStations() {
  struct Plan {
    double azimuth, elevation, distance, roll;  // degrees, metres
  };
  // Eight around, four from above; one turned on its side, as photographers do.
  constexpr Plan plans[] = {{10, 24, 1.75, 0},   {55, 32, 1.65, 4},  {100, 26, 1.80, -3},
                            {145, 34, 1.60, 90}, {190, 25, 1.75, 2}, {235, 31, 1.70, 0},
                            {280, 24, 1.80, -5}, {325, 33, 1.65, 3}, {30, 58, 1.55, 0},
                            {120, 62, 1.60, 6},  {210, 57, 1.55, 0}, {300, 61, 1.60, -4}};
  const Vector3d middle(0.0, 0.0, 0.12);
  for (const Plan& plan : plans) {
    const double azimuth = plan.azimuth * degree;
    const double elevation = plan.elevation * degree;
    Station station;
    char name[32];
    std::snprintf(name, sizeof name, "station%02d.jpg", static_cast<int>(stations.size()) + 1);
    station.name = name;
    station.position = middle + plan.distance * Vector3d(std::cos(elevation) * std::cos(azimuth),
                                                         std::cos(elevation) * std::sin(azimuth),
                                                         std::sin(elevation));
    station.cameraFromScene = lookAt(station.position, middle, plan.roll * degree);
    stations.push_back(std::move(station));
  }
}

// Drawn at twice the size and averaged: edges come out smooth, as through a lens.
void DemoProject::photograph() {
  OffscreenRenderer renderer(2 * width, 2 * height);
  renderer.setBackgroundColor(SbColor(0.71F, 0.75F, 0.78F));
  const NodeRef<SoSeparator> object = scene.makeNodes();
  for (Station& station : stations) {
    auto root = makeNode<SoSeparator>();
    auto* camera = new SoPerspectiveCamera;
    root->addChild(camera);
    root->addChild(object.get());
    camera->viewportMapping = SoCamera::LEAVE_ALONE;
    camera->position = SbVec3f(station.position.cast<float>().eval().data());
    // Coin's camera has y up and looks along -z.
    const Matrix3d& rows = station.cameraFromScene;
    SbMatrix axes = SbMatrix::identity();
    for (int column = 0; column < 3; ++column) {
      axes[0][column] = static_cast<float>(rows(0, column));
      axes[1][column] = static_cast<float>(-rows(1, column));
      axes[2][column] = static_cast<float>(-rows(2, column));
    }
    camera->orientation = SbRotation(axes);
    camera->heightAngle = static_cast<float>(2.0 * std::atan(0.5 * height / focalLength));
    camera->aspectRatio = static_cast<float>(width) / static_cast<float>(height);
    camera->nearDistance = 0.2F;
    camera->farDistance = 12.0F;
    station.photograph = halved(renderer.render(root.get()));
  }
}

void DemoProject::measure() {
  struct Seen {
    std::size_t station;
    Vector2d pixel;
  };
  Noise noise(20240229);
  std::vector<DemoScene::Place> places;
  for (const DemoScene::Target& target : scene.targets()) places.push_back(target.place);
  for (const DemoScene::Place& place : scene.surfacePlaces(1500, 4711)) places.push_back(place);
  for (const DemoScene::Place& place : places) {
    std::vector<Seen> seen;
    for (std::size_t s = 0; s < stations.size(); ++s) {
      const Vector2d exact = project(stations[s], place.position);
      constexpr double rim = 6.0;
      if (exact.x() < rim || exact.y() < rim || exact.x() > width - rim ||
          exact.y() > height - rim || !scene.isVisible(place, stations[s].position)) {
        continue;
      }
      const double dx = noise(measurementNoise);
      const double dy = noise(measurementNoise);
      seen.push_back({s, exact + Vector2d(dx, dy)});
    }
    const bool computed = seen.size() >= 3;
    Point point;
    for (const Seen& one : seen) {
      auto& measurements = stations[one.station].measurements;
      point.rays.push_back({one.station, measurements.size()});
      measurements.push_back({one.pixel, computed ? static_cast<int>(points.size()) : -1});
    }
    if (!computed) continue;
    computePoint(point);
    points.push_back(std::move(point));
  }
}

// From its rays alone, the stations held fixed: first the point nearest to all rays, then
// least squares of the image residuals.
void DemoProject::computePoint(Point& point) const {
  const auto pixelOf = [this](const Ray& ray) {
    return stations[ray.station].measurements[ray.measurement].pixel;
  };
  Matrix3d sum = Matrix3d::Zero();
  Vector3d right = Vector3d::Zero();
  for (const Ray& ray : point.rays) {
    const Station& station = stations[ray.station];
    const Vector2d pixel = pixelOf(ray);
    const Vector3d inCamera((pixel.x() - 0.5 * width) / focalLength,
                            (pixel.y() - 0.5 * height) / focalLength, 1.0);
    const Vector3d direction = (station.cameraFromScene.transpose() * inCamera).normalized();
    const Matrix3d across = Matrix3d::Identity() - direction * direction.transpose();
    sum += across;
    right += across * station.position;
  }
  point.position = sum.ldlt().solve(right);
  for (int iteration = 0; iteration < 5; ++iteration) {
    Matrix3d normal = Matrix3d::Zero();
    Vector3d gradient = Vector3d::Zero();
    for (const Ray& ray : point.rays) {
      const Station& station = stations[ray.station];
      const Vector3d p = station.cameraFromScene * (point.position - station.position);
      Eigen::Matrix<double, 2, 3> derivative;
      derivative << focalLength / p.z(), 0.0, -focalLength * p.x() / (p.z() * p.z()),  //
          0.0, focalLength / p.z(), -focalLength * p.y() / (p.z() * p.z());
      derivative = (derivative * station.cameraFromScene).eval();
      normal += derivative.transpose() * derivative;
      gradient += derivative.transpose() * (pixelOf(ray) - project(station, point.position));
    }
    point.position += normal.ldlt().solve(gradient);
  }
  for (const Ray& ray : point.rays) {
    point.error += (pixelOf(ray) - project(stations[ray.station], point.position)).norm();
  }
  point.error /= static_cast<double>(point.rays.size());
  point.color = colorOf(point);
}

Vector2d DemoProject::project(const Station& station, const Vector3d& position) {
  const Vector3d p = station.cameraFromScene * (position - station.position);
  return {0.5 * width + focalLength * p.x() / p.z(), 0.5 * height + focalLength * p.y() / p.z()};
}

Eigen::Vector3i DemoProject::colorOf(const Point& point) const {
  Eigen::Vector3i sum = Eigen::Vector3i::Zero();
  for (const Ray& ray : point.rays) {
    const Station& station = stations[ray.station];
    const Vector2d pixel = project(station, point.position);
    const std::uint8_t* color =
        station.photograph.at(static_cast<int>(pixel.x()), static_cast<int>(pixel.y()));
    sum += Eigen::Vector3i(color[0], color[1], color[2]);
  }
  const int count = static_cast<int>(point.rays.size());
  return ((sum.array() + count / 2) / count).matrix();
}

int DemoProject::measurementCount() const {
  std::size_t count = 0;
  for (const Point& point : points) count += point.rays.size();
  return static_cast<int>(count);
}

double DemoProject::rootMeanSquare() const {
  double sum = 0.0;
  for (const Point& point : points) {
    for (const Ray& ray : point.rays) {
      const Station& station = stations[ray.station];
      sum += (station.measurements[ray.measurement].pixel - project(station, point.position))
                 .squaredNorm();
    }
  }
  return std::sqrt(sum / (2.0 * measurementCount()));
}

void DemoProject::write(const std::string& folder) const {
  namespace fs = std::filesystem;
  const fs::path sparse = fs::path(folder) / "sparse";
  const fs::path images = fs::path(folder) / "images";
  fs::create_directories(sparse);
  fs::create_directories(images);
  for (const Station& station : stations) {
    station.photograph.writeJpeg((images / station.name).string(), 85);
  }

  fs::path path = sparse / "cameras.txt";
  auto file = create(path);
  std::fprintf(file.get(),
               "# Camera list with one line of data per camera:\n"
               "#   CAMERA_ID, MODEL, WIDTH, HEIGHT, PARAMS[]\n"
               "# Number of cameras: 1\n"
               "1 PINHOLE %d %d %.17g %.17g %.17g %.17g\n",
               width, height, focalLength, focalLength, 0.5 * width, 0.5 * height);
  finish(std::move(file), path);

  path = sparse / "images.txt";
  file = create(path);
  std::fprintf(file.get(),
               "# Image list with two lines of data per image:\n"
               "#   IMAGE_ID, QW, QX, QY, QZ, TX, TY, TZ, CAMERA_ID, NAME\n"
               "#   POINTS2D[] as (X, Y, POINT3D_ID)\n"
               "# Number of images: %zu, mean observations per image: %.1f\n",
               stations.size(), measurementCount() / static_cast<double>(stations.size()));
  for (std::size_t s = 0; s < stations.size(); ++s) {
    const Station& station = stations[s];
    const Eigen::Quaterniond turn(station.cameraFromScene);
    const Vector3d translation = -(station.cameraFromScene * (station.position + siteOrigin));
    std::fprintf(file.get(), "%zu %.17g %.17g %.17g %.17g %.17g %.17g %.17g 1 %s\n", s + 1,
                 turn.w(), turn.x(), turn.y(), turn.z(), translation.x(), translation.y(),
                 translation.z(), station.name.c_str());
    const char* separator = "";
    for (const Measurement& one : station.measurements) {
      std::fprintf(file.get(), "%s%.4f %.4f %d", separator, one.pixel.x(), one.pixel.y(),
                   one.point < 0 ? -1 : one.point + 1);
      separator = " ";
    }
    std::fprintf(file.get(), "\n");
  }
  finish(std::move(file), path);

  path = sparse / "points3D.txt";
  file = create(path);
  std::fprintf(file.get(),
               "# 3D point list with one line of data per point:\n"
               "#   POINT3D_ID, X, Y, Z, R, G, B, ERROR, TRACK[] as (IMAGE_ID, POINT2D_IDX)\n"
               "# Number of points: %zu, mean track length: %.2f\n",
               points.size(), measurementCount() / static_cast<double>(points.size()));
  for (std::size_t p = 0; p < points.size(); ++p) {
    const Point& point = points[p];
    const Vector3d position = point.position + siteOrigin;
    std::fprintf(file.get(), "%zu %.9f %.9f %.9f %d %d %d %.6f", p + 1, position.x(), position.y(),
                 position.z(), point.color.x(), point.color.y(), point.color.z(), point.error);
    for (const Ray& ray : point.rays) {
      std::fprintf(file.get(), " %zu %zu", ray.station + 1, ray.measurement);
    }
    std::fprintf(file.get(), "\n");
  }
  finish(std::move(file), path);
}
