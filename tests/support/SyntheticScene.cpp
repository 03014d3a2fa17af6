#include "tests/support/SyntheticScene.h"

#include "host/model/Project.h"
#include "io/ColmapReader.h"
#include "tests/support/TarnTest.h"

#include <cmath>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <fstream>

namespace {

using Vector = std::array<double, 3>;

Vector cross(const Vector& a, const Vector& b) {
  return {a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]};
}

double dot(const Vector& a, const Vector& b) { return a[0] * b[0] + a[1] * b[1] + a[2] * b[2]; }

Vector unit(const Vector& a) {
  const double length = std::sqrt(dot(a, a));
  return {a[0] / length, a[1] / length, a[2] / length};
}

// Numbers from -1 to 1 that are the same everywhere (a linear congruential generator).
class Noise {
public:
  double next() {
    state = state * 6364136223846793005ULL + 1442695040888963407ULL;
    return static_cast<double>(state >> 11) / 4503599627370496.0 - 1.0;
  }

private:
  std::uint64_t state = 2024;
};

std::array<Vector, 3> matrixOf(const std::array<double, 4>& q) {
  const auto [w, x, y, z] = q;
  return {Vector{w * w + x * x - y * y - z * z, 2 * (x * y - w * z), 2 * (x * z + w * y)},
          Vector{2 * (x * y + w * z), w * w - x * x + y * y - z * z, 2 * (y * z - w * x)},
          Vector{2 * (x * z - w * y), 2 * (y * z + w * x), w * w - x * x - y * y + z * z}};
}

// The unit quaternion of a rotation matrix, for any rotation: the largest component first.
std::array<double, 4> quaternionOf(const std::array<Vector, 3>& r) {
  const double squares[4] = {1 + r[0][0] + r[1][1] + r[2][2], 1 + r[0][0] - r[1][1] - r[2][2],
                             1 - r[0][0] + r[1][1] - r[2][2], 1 - r[0][0] - r[1][1] + r[2][2]};
  int largest = 0;
  for (int i = 1; i < 4; ++i) {
    if (squares[i] > squares[largest]) largest = i;
  }
  const double a = 0.5 * std::sqrt(squares[largest]);
  const double b = 0.25 / a;
  const double wx = (r[2][1] - r[1][2]) * b, wy = (r[0][2] - r[2][0]) * b,
               wz = (r[1][0] - r[0][1]) * b, xy = (r[0][1] + r[1][0]) * b,
               xz = (r[0][2] + r[2][0]) * b, yz = (r[1][2] + r[2][1]) * b;
  switch (largest) {
    case 0:
      return {a, wx, wy, wz};
    case 1:
      return {wx, a, xy, xz};
    case 2:
      return {wy, xy, a, yz};
    default:
      return {wz, xz, yz, a};
  }
}

SyntheticScene::Image imageAt(int index, int stations) {
  const double angle = 2.0 * M_PI * index / stations;
  SyntheticScene::Image image;
  image.id = static_cast<std::uint32_t>(10 + 3 * index);
  image.centre = {8.0 * std::cos(angle) + 0.5, 7.0 * std::sin(angle) - 0.25,
                  5.0 + 0.2 * (index % 3)};
  const Vector target{0.1, -0.2, 0.3};
  const Vector forward =
      unit({target[0] - image.centre[0], target[1] - image.centre[1], target[2] - image.centre[2]});
  const Vector right = unit(cross(forward, {0.0, 0.0, 1.0}));
  const std::array<Vector, 3> rotation{right, cross(forward, right), forward};
  image.rotation = quaternionOf(rotation);
  for (std::size_t row = 0; row < 3; ++row) {
    image.translation[row] = -dot(rotation[row], image.centre);
  }
  char name[40];
  std::snprintf(name, sizeof name, "%s%02d.jpg",
                index % 3 == 0 ? "station "
                               : (index % 3 == 1 ? "left side/"
                                                 : "S\xC3\xBC"
                                                   "d/"),
                index + 1);
  image.name = name;
  return image;
}

template <typename Value>
void put(std::string& out, Value value) {
  char bytes[sizeof value];
  std::memcpy(bytes, &value, sizeof value);
  out.append(bytes, sizeof value);
}

std::string number(double value) {
  char text[40];
  std::snprintf(text, sizeof text, "%.17g", value);
  return text;
}

template <typename Values>
std::string numbers(const Values& values) {
  std::string text;
  for (const double value : values) text += ' ' + number(value);
  return text;
}

template <typename Values>
void putAll(std::string& out, const Values& values) {
  for (const double value : values) put(out, value);
}

}  // namespace

SyntheticScene::SyntheticScene(int stations, int pointCount, double noise) {
  for (int i = 0; i < stations; ++i) images.push_back(imageAt(i, stations));
  Noise random;
  for (Image& image : images) image.marks.push_back({100.5, 200.25 + image.id, -1});
  const int side = static_cast<int>(std::ceil(std::sqrt(pointCount)));
  for (int i = 0; i < pointCount; ++i) {
    Point point;
    point.id = static_cast<std::uint64_t>(7 * (pointCount - i) + 580);
    const double x = 4.0 * (i % side) / side - 2.0;
    const double y = 3.0 * (i / side) / side - 1.5;
    point.position = {x, y, 0.4 * std::sin(2.0 * x) * std::cos(3.0 * y) + 0.3};
    point.colour = {(37 * i) % 256, (91 * i + 50) % 256, (13 * i + 100) % 256};
    for (Image& image : images) {
      const auto [px, py] = projected(image, point.position);
      point.track.push_back({image.id, static_cast<std::uint32_t>(image.marks.size())});
      const double dx = noise * random.next();
      image.marks.push_back(
          {px + dx, py + noise * random.next(), static_cast<std::int64_t>(point.id)});
    }
    points.push_back(point);
  }
}

std::array<double, 2> SyntheticScene::projected(const Image& image,
                                                const std::array<double, 3>& point) const {
  const std::array<Vector, 3> r = matrixOf(image.rotation);
  const double depth = dot(r[2], point) + image.translation[2];
  const double u = (dot(r[0], point) + image.translation[0]) / depth;
  const double v = (dot(r[1], point) + image.translation[1]) / depth;
  const std::vector<double>& p = cameras[0].parameters;
  const double factor = p[0] * (1.0 + p[3] * (u * u + v * v));
  return {factor * u + p[1], factor * v + p[2]};
}

std::vector<std::pair<std::string, std::string>> SyntheticScene::text() const {
  std::string c = "# CAMERA_ID, MODEL, WIDTH, HEIGHT, PARAMS[]\n";
  for (const Camera& camera : cameras) {
    c += std::to_string(camera.id) + ' ' + camera.model + ' ' + std::to_string(camera.width) + ' ' +
         std::to_string(camera.height) + numbers(camera.parameters) + '\n';
  }
  std::string i = "# IMAGE_ID, QW, QX, QY, QZ, TX, TY, TZ, CAMERA_ID, NAME\n";
  for (const Image& image : images) {
    i += std::to_string(image.id) + numbers(image.rotation) + numbers(image.translation) + ' ' +
         std::to_string(image.camera) + ' ' + image.name + '\n';
    std::string line;
    for (const Mark& mark : image.marks) {
      line += (line.empty() ? "" : " ") + number(mark.x) + ' ' + number(mark.y) + ' ' +
              std::to_string(mark.point);
    }
    i += line + '\n';
  }
  std::string p = "# POINT3D_ID, X, Y, Z, R, G, B, ERROR, TRACK[]\n";
  for (const Point& point : points) {
    p += std::to_string(point.id) + numbers(point.position);
    for (const int component : point.colour) p += ' ' + std::to_string(component);
    p += ' ' + number(point.error);
    for (const TrackElement& element : point.track) {
      p += ' ' + std::to_string(element.image) + ' ' + std::to_string(element.mark);
    }
    p += '\n';
  }
  std::vector<std::pair<std::string, std::string>> files{
      {"cameras.txt", c}, {"images.txt", i}, {"points3D.txt", p}};
  if (withRigs) {
    std::string r = "# RIG_ID, NUM_SENSORS, REF_SENSOR_TYPE, REF_SENSOR_ID, SENSORS[]\n";
    for (const Camera& camera : cameras) {
      r += std::to_string(camera.id + 100) + " 2 CAMERA " + std::to_string(camera.id) +
           " IMU 7 1 1 0 0 0 0.125 0.25 0.5\n";
    }
    std::string f = "# FRAME_ID, RIG_ID, RIG_FROM_WORLD, NUM_DATA_IDS, DATA_IDS[]\n";
    for (const Image& image : images) {
      f += std::to_string(image.id + 1000) + ' ' + std::to_string(image.camera + 100) +
           numbers(image.rotation) + numbers(image.translation) + " 1 CAMERA " +
           std::to_string(image.camera) + ' ' + std::to_string(image.id) + '\n';
    }
    files.emplace_back("rigs.txt", r);
    files.emplace_back("frames.txt", f);
  }
  return files;
}

std::vector<std::pair<std::string, std::string>> SyntheticScene::binary() const {
  std::string c;
  put<std::uint64_t>(c, cameras.size());
  for (const Camera& camera : cameras) {
    put(c, camera.id);
    put(c, camera.modelNumber);
    put(c, camera.width);
    put(c, camera.height);
    putAll(c, camera.parameters);
  }
  std::string i;
  put<std::uint64_t>(i, images.size());
  for (const Image& image : images) {
    put(i, image.id);
    putAll(i, image.rotation);
    putAll(i, image.translation);
    put(i, image.camera);
    i.append(image.name.c_str(), image.name.size() + 1);
    put<std::uint64_t>(i, image.marks.size());
    for (const Mark& mark : image.marks) {
      put(i, mark.x);
      put(i, mark.y);
      put(i, mark.point);
    }
  }
  std::string p;
  put<std::uint64_t>(p, points.size());
  for (const Point& point : points) {
    put(p, point.id);
    putAll(p, point.position);
    for (const int component : point.colour) put(p, static_cast<std::uint8_t>(component));
    put(p, point.error);
    put<std::uint64_t>(p, point.track.size());
    for (const TrackElement& element : point.track) {
      put(p, element.image);
      put(p, element.mark);
    }
  }
  std::vector<std::pair<std::string, std::string>> files{
      {"cameras.bin", c}, {"images.bin", i}, {"points3D.bin", p}};
  if (withRigs) {
    std::string r;
    put<std::uint64_t>(r, cameras.size());
    for (const Camera& camera : cameras) {
      put<std::uint32_t>(r, camera.id + 100);
      put<std::uint32_t>(r, 2);
      put<std::int32_t>(r, 0);
      put(r, camera.id);
      put<std::int32_t>(r, 1);
      put<std::uint32_t>(r, 7);
      put<std::uint8_t>(r, 1);
      putAll(r, std::array<double, 7>{1.0, 0.0, 0.0, 0.0, 0.125, 0.25, 0.5});
    }
    std::string f;
    put<std::uint64_t>(f, images.size());
    for (const Image& image : images) {
      put<std::uint32_t>(f, image.id + 1000);
      put<std::uint32_t>(f, image.camera + 100);
      putAll(f, image.rotation);
      putAll(f, image.translation);
      put<std::uint32_t>(f, 1);
      put<std::int32_t>(f, 0);
      put(f, image.camera);
      put<std::uint64_t>(f, image.id);
    }
    files.emplace_back("rigs.bin", r);
    files.emplace_back("frames.bin", f);
  }
  return files;
}

void SyntheticScene::write(const std::vector<std::pair<std::string, std::string>>& files,
                           const std::string& folder) {
  std::filesystem::create_directories(folder);
  for (const auto& [name, content] : files) {
    // A new file in the place of an earlier one: some file systems write a shortened file to
    // the disk at once, which makes thousands of writes slow.
    const std::filesystem::path file = std::filesystem::path(folder) / name;
    std::filesystem::remove(file);
    std::ofstream(file, std::ios::binary) << content;
  }
}

void SyntheticScene::addTo(tarn::Project& project) const {
  const TemporaryFolder folder;
  write(binary(), folder.path());
  tarn::ColmapReader::Read(folder.path(), project);
}
