#include "examples/DemoScene.h"

#include <Eigen/Geometry>
#include <Inventor/nodes/SoBaseColor.h>
#include <Inventor/nodes/SoComplexity.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoQuadMesh.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTexture2.h>
#include <Inventor/nodes/SoTextureCoordinate2.h>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <random>

namespace {

using Vector = DemoScene::Vector;
using Color = DemoScene::Color;

constexpr double pi = std::numbers::pi;
constexpr double plateHalf = 0.6;
constexpr double vaseHeight = 0.44;
const Vector vaseFoot(-0.16, 0.10, 0.0);

// Targets: a white dot on a black disc, with twelve code segments around it.
constexpr double dotRadius = 0.009;
constexpr double codeInner = 0.015;
constexpr double codeOuter = 0.021;
constexpr double discRadius = 0.025;
constexpr int codeSegments = 12;

// A number from 0 to 1 that depends on the lattice point only.
double latticeNoise(int x, int y) {
  std::uint32_t h =
      static_cast<std::uint32_t>(x) * 374761393U + static_cast<std::uint32_t>(y) * 668265263U;
  h = (h ^ (h >> 13U)) * 1274126177U;
  return static_cast<double>((h ^ (h >> 16U)) & 0xffffU) / 65535.0;
}

double smoothNoise(double x, double y) {
  const double fx = std::floor(x);
  const double fy = std::floor(y);
  const auto ease = [](double t) { return t * t * (3.0 - 2.0 * t); };
  const double tx = ease(x - fx);
  const double ty = ease(y - fy);
  const int ix = static_cast<int>(fx);
  const int iy = static_cast<int>(fy);
  const double low = std::lerp(latticeNoise(ix, iy), latticeNoise(ix + 1, iy), tx);
  const double high = std::lerp(latticeNoise(ix, iy + 1), latticeNoise(ix + 1, iy + 1), tx);
  return std::lerp(low, high, ty);
}

double grain(double x, double y) {
  return 0.5 * smoothNoise(x, y) + 0.3 * smoothNoise(2.1 * x, 2.1 * y) +
         0.2 * smoothNoise(4.3 * x, 4.3 * y);
}

Color mix(const Color& a, const Color& b, double t) { return a + (b - a) * t; }

// The vase's radius at a height from 0 to 1, a smooth curve through a few values.
double vaseRadius(double height) {
  static constexpr std::array radii = {0.070, 0.088, 0.124, 0.150, 0.158, 0.146,
                                       0.114, 0.076, 0.052, 0.050, 0.062, 0.084};
  constexpr int last = static_cast<int>(radii.size()) - 1;
  const double at = std::clamp(height, 0.0, 1.0) * last;
  const int i = std::min(static_cast<int>(at), last - 1);
  const double t = at - i;
  const auto radius = [](int k) {
    return radii[static_cast<std::size_t>(std::clamp(k, 0, static_cast<int>(radii.size()) - 1))];
  };
  const double p0 = radius(i - 1);
  const double p1 = radius(i);
  const double p2 = radius(i + 1);
  const double p3 = radius(i + 2);
  return p1 +
         0.5 * t * (p2 - p0 + t * (2 * p0 - 5 * p1 + 4 * p2 - p3 + t * (3 * (p1 - p2) + p3 - p0)));
}

Color paintVase(double u, double v, const Vector&) {
  const Color clay(0.78, 0.44, 0.26);
  const Color dark(0.13, 0.10, 0.10);
  const Color cream(0.93, 0.86, 0.70);
  Color color = mix(clay, Color(0.66, 0.33, 0.18), grain(u * 40.0, v * 26.0));
  const auto isBand = [v](double from, double to) { return v > from && v < to; };
  if (isBand(0.0, 0.06) || isBand(0.955, 1.0) || isBand(0.715, 0.735) || isBand(0.505, 0.52) ||
      isBand(0.20, 0.215)) {
    color = dark;
  }
  if (isBand(0.52, 0.715)) {
    // A running wave of triangles, dark on cream.
    const double tooth = std::abs(std::fmod(u * 18.0, 1.0) - 0.5) * 2.0;
    color = tooth > (v - 0.52) / 0.195 ? dark : cream;
  } else if (isBand(0.215, 0.505)) {
    // Lozenges with a dot in the middle.
    const double along = (std::fmod(u * 12.0, 1.0) - 0.5) * 2.0;
    const double across = (v - 0.36) / 0.125;
    const double distance = std::abs(along) + std::abs(across);
    if (distance < 0.92) color = dark;
    if (distance < 0.76) color = cream;
    if (along * along + across * across < 0.09) color = Color(0.70, 0.16, 0.12);
  } else if (isBand(0.06, 0.20)) {
    if (std::fmod(u * 36.0, 1.0) < 0.45) color = mix(color, dark, 0.75);
  } else if (isBand(0.735, 0.955)) {
    if (std::fmod(u * 24.0 + v * 9.0, 1.0) < 0.35) color = mix(color, cream, 0.8);
  }
  return color * (0.92 + 0.08 * smoothNoise(u * 160.0, v * 90.0));
}

Color paintBox(double u, double v, double width, double height) {
  // Bricks in running bond.
  const double row = std::floor(v * height / 0.03);
  const double x = u * width / 0.066 + 0.5 * std::fmod(row, 2.0);
  const double inRow = v * height / 0.03 - row;
  const double inBrick = x - std::floor(x);
  if (inRow < 0.12 || inBrick < 0.06) return {0.82, 0.82, 0.78};
  const double tone = latticeNoise(static_cast<int>(std::floor(x)) + 17, static_cast<int>(row) + 5);
  return mix(Color(0.20, 0.36, 0.55), Color(0.36, 0.58, 0.72), tone) *
         (0.85 + 0.15 * grain(x * 9.0, v * height * 300.0));
}

Color paintPlate(const Vector& position) {
  Color color = mix(Color(0.86, 0.86, 0.83), Color(0.74, 0.75, 0.74),
                    grain(position.x() * 60.0, position.y() * 60.0));
  const auto nearLine = [](double x) { return std::abs(x - std::round(x / 0.1) * 0.1) < 0.0012; };
  if (nearLine(position.x()) || nearLine(position.y())) color *= 0.62;
  return color;
}

Color paintTable(const Vector& position) {
  const double plank = std::floor(position.y() / 0.22);
  const double tone = latticeNoise(static_cast<int>(plank) + 31, 7);
  const double fibre = grain(position.x() * 3.0 + tone * 40.0, position.y() * 70.0);
  Color color = mix(Color(0.36, 0.25, 0.17), Color(0.52, 0.37, 0.24), 0.4 * tone + 0.6 * fibre);
  if (std::abs(position.y() / 0.22 - plank - 0.5) > 0.488) color *= 0.45;
  return color;
}

}  // namespace

DemoScene::DemoScene() {
  addTable();
  addPlate();
  const std::size_t vase = patches.size();
  addVase();
  addBody(vase);
  const std::size_t box = patches.size();
  addBox();
  addBody(box);
  for (Patch& patch : patches) light(patch);
}

void DemoScene::addTable() {
  Patch table;
  table.textureWidth = table.textureHeight = 1024;
  table.columns = table.rows = 8;
  table.position = [](double u, double v) {
    return Vector(8.0 * (u - 0.5), 8.0 * (v - 0.5), -0.03);
  };
  table.paint = [](double, double, const Vector& position) { return paintTable(position); };
  patches.push_back(table);
}

void DemoScene::addPlate() {
  Patch top;
  top.textureWidth = top.textureHeight = 2048;
  top.columns = top.rows = 4;
  top.measuredShare = 26;
  top.position = [](double u, double v) {
    return Vector(2.0 * plateHalf * (u - 0.5), 2.0 * plateHalf * (v - 0.5), 0.0);
  };
  top.paint = [this](double, double, const Vector& position) {
    return withTargets(paintPlate(position), position);
  };
  patches.push_back(top);
  for (int side = 0; side < 4; ++side) {
    const Eigen::AngleAxisd turn(side * pi / 2, Vector::UnitZ());
    Patch edge;
    edge.position = [turn](double u, double v) {
      return Vector(turn * Vector(plateHalf, 2.0 * plateHalf * (u - 0.5), 0.03 * (v - 1.0)));
    };
    edge.paint = [](double, double, const Vector&) { return Color(0.55, 0.56, 0.55); };
    patches.push_back(edge);
  }
  // Around the rim of the plate, and a few that the photographs see between the bodies.
  for (int i = 0; i < 6; ++i) {
    const double along = -0.54 + 0.18 * i;
    addTarget({{along, -0.54, 0.0}, Vector::UnitZ()});
    addTarget({{0.54, along + 0.18 * (i < 5), 0.0}, Vector::UnitZ()});
    if (i > 0) addTarget({{along, 0.54, 0.0}, Vector::UnitZ()});
    if (i > 0 && i < 5) addTarget({{-0.54, along, 0.0}, Vector::UnitZ()});
  }
  addTarget({{-0.54, 0.54, 0.0}, Vector::UnitZ()});
  addTarget({{-0.30, -0.30, 0.0}, Vector::UnitZ()});
  addTarget({{0.10, 0.36, 0.0}, Vector::UnitZ()});
  addTarget({{0.36, 0.30, 0.0}, Vector::UnitZ()});
}

void DemoScene::addVase() {
  Patch outside;
  outside.columns = 64;
  outside.rows = 48;
  outside.textureWidth = 1024;
  outside.textureHeight = 512;
  outside.measuredShare = 54;
  outside.position = [](double u, double v) {
    const double radius = vaseRadius(v);
    return Vector(vaseFoot + Vector(radius * std::cos(2 * pi * u), radius * std::sin(2 * pi * u),
                                    vaseHeight * v));
  };
  outside.paint = paintVase;
  patches.push_back(outside);
  Patch inside;
  inside.columns = 48;
  inside.rows = 12;
  inside.position = [](double u, double v) {
    const double height = 1.0 - 0.4 * v;
    const double radius = std::max(vaseRadius(height) - 0.006 * std::min(1.0, v * 30.0), 0.0);
    return Vector(vaseFoot + Vector(radius * std::cos(2 * pi * u), radius * std::sin(2 * pi * u),
                                    vaseHeight * height));
  };
  inside.paint = [](double, double v, const Vector&) {
    return Color(mix(Color(0.55, 0.30, 0.18), Color(0.10, 0.06, 0.05), std::min(1.0, v * 1.6)));
  };
  patches.push_back(inside);
}

void DemoScene::addBox() {
  const Vector half(0.15, 0.10, 0.09);
  const Eigen::AngleAxisd turn(0.45, Vector::UnitZ());
  const Vector middle(0.22, -0.14, half.z());
  struct Face {
    Vector normal, across, up;  // of unit length
  };
  const std::array faces = {
      Face{{1, 0, 0}, {0, 1, 0}, {0, 0, 1}}, Face{{-1, 0, 0}, {0, -1, 0}, {0, 0, 1}},
      Face{{0, 1, 0}, {-1, 0, 0}, {0, 0, 1}}, Face{{0, -1, 0}, {1, 0, 0}, {0, 0, 1}},
      Face{{0, 0, 1}, {1, 0, 0}, {0, 1, 0}}};
  for (const Face& face : faces) {
    const double width = 2.0 * std::abs(half.dot(face.across));
    const double height = 2.0 * std::abs(half.dot(face.up));
    const double depth = std::abs(half.dot(face.normal));
    Patch patch;
    patch.columns = patch.rows = 6;
    patch.textureWidth = patch.textureHeight = 512;
    patch.measuredShare = 4;
    patch.position = [=](double u, double v) {
      const Vector local =
          depth * face.normal + width * (u - 0.5) * face.across + height * (v - 0.5) * face.up;
      return Vector(middle + turn * local);
    };
    patch.paint = [this, width, height](double u, double v, const Vector& position) {
      return withTargets(paintBox(u, v, width, height), position);
    };
    for (const double u : {0.22, 0.78}) {
      for (const double v : {0.24, 0.76}) addTarget(placeAt(patch, u, v));
    }
    patches.push_back(patch);
  }
}

// Every third target carries no code: a plain dot.
void DemoScene::addTarget(const Place& place) {
  const int number = static_cast<int>(allTargets.size()) + 1;
  const int code = number % 3 == 0 ? 0 : (number * 659 + 37) % 4095 | 1;
  allTargets.push_back({place, code});
}

void DemoScene::addBody(std::size_t firstPatch) {
  Body body;
  for (std::size_t i = firstPatch; i < patches.size(); ++i) {
    const Patch& patch = patches[i];
    const auto vertex = [&patch](int column, int row) {
      return patch.position(static_cast<double>(column) / patch.columns,
                            static_cast<double>(row) / patch.rows);
    };
    for (int row = 0; row < patch.rows; ++row) {
      for (int column = 0; column < patch.columns; ++column) {
        const Vector a = vertex(column, row);
        const Vector b = vertex(column + 1, row);
        const Vector c = vertex(column + 1, row + 1);
        const Vector d = vertex(column, row + 1);
        body.triangles.push_back({a, b - a, c - a});
        body.triangles.push_back({a, c - a, d - a});
      }
    }
  }
  for (const Triangle& triangle : body.triangles) body.centre += triangle.a;
  body.centre /= static_cast<double>(body.triangles.size());
  for (const Triangle& triangle : body.triangles) {
    for (const Vector& corner :
         {triangle.a, Vector(triangle.a + triangle.ab), Vector(triangle.a + triangle.ac)}) {
      body.radius = std::max(body.radius, (corner - body.centre).norm());
    }
  }
  bodies.push_back(std::move(body));
}

// Paints the patch's texture: its own colours times the light that falls on it. The light
// changes slowly, so it is found on a coarse lattice and interpolated.
void DemoScene::light(Patch& patch) const {
  constexpr int most = 96;
  const int columns = std::min(most, patch.textureWidth / 4);
  const int rows = std::min(most, patch.textureHeight / 4);
  const auto latticeIndex = [columns](int column, int row) {
    return static_cast<std::size_t>(row) * static_cast<std::size_t>(columns + 1) +
           static_cast<std::size_t>(column);
  };
  std::vector<double> lattice(latticeIndex(columns, rows) + 1);
  for (int row = 0; row <= rows; ++row) {
    for (int column = 0; column <= columns; ++column) {
      lattice[latticeIndex(column, row)] = sunlight(
          placeAt(patch, static_cast<double>(column) / columns, static_cast<double>(row) / rows));
    }
  }
  const auto lightAt = [&](double u, double v) {
    const double x = std::min(u * columns, columns - 1e-9);
    const double y = std::min(v * rows, rows - 1e-9);
    const int column = static_cast<int>(x);
    const int row = static_cast<int>(y);
    const double low = std::lerp(lattice[latticeIndex(column, row)],
                                 lattice[latticeIndex(column + 1, row)], x - column);
    const double high = std::lerp(lattice[latticeIndex(column, row + 1)],
                                  lattice[latticeIndex(column + 1, row + 1)], x - column);
    return std::lerp(low, high, y - row);
  };
  patch.texture.reserve(static_cast<std::size_t>(patch.textureWidth) *
                        static_cast<std::size_t>(patch.textureHeight) * 3);
  for (int y = 0; y < patch.textureHeight; ++y) {
    for (int x = 0; x < patch.textureWidth; ++x) {
      const double u = (x + 0.5) / patch.textureWidth;
      const double v = (y + 0.5) / patch.textureHeight;
      const Color color = patch.paint(u, v, patch.position(u, v)) * (0.42 + 0.62 * lightAt(u, v));
      for (int c = 0; c < 3; ++c) {
        patch.texture.push_back(
            static_cast<std::uint8_t>(std::lround(255.0 * std::clamp(color[c], 0.0, 1.0))));
      }
    }
  }
}

Color DemoScene::withTargets(const Color& color, const Vector& position) const {
  const Color white(0.97, 0.97, 0.97);
  const Color black(0.05, 0.05, 0.05);
  for (const Target& target : allTargets) {
    const Vector from = position - target.place.position;
    const double distance = from.norm();
    if (distance > discRadius || std::abs(from.dot(target.place.normal)) > 1e-6) continue;
    if (distance < dotRadius) return white;
    if (target.code == 0 || distance < codeInner || distance > codeOuter) return black;
    const Vector across = target.place.normal.unitOrthogonal();
    const double angle = std::atan2(from.dot(target.place.normal.cross(across)), from.dot(across));
    const int segment = static_cast<int>((angle + pi) / (2 * pi) * codeSegments) % codeSegments;
    return (target.code >> segment) & 1 ? white : black;
  }
  return color;
}

double DemoScene::sunlight(const Place& place) const {
  // A few directions instead of one: shadows with soft edges.
  static const std::array suns = {Vector(0.42, 0.55, 1.1), Vector(0.50, 0.50, 1.1),
                                  Vector(0.47, 0.60, 1.1), Vector(0.54, 0.57, 1.1)};
  double light = 0.0;
  for (const Vector& sun : suns) {
    const double facing = place.normal.dot(sun.normalized());
    if (facing <= 0.0) continue;
    const Vector from = place.position + 2e-3 * place.normal;
    if (!isBlocked(from, from + 3.0 * sun)) light += facing / static_cast<double>(suns.size());
  }
  return light;
}

bool DemoScene::isBlocked(const Vector& from, const Vector& to) const {
  const Vector way = to - from;
  for (const Body& body : bodies) {
    const double nearest = std::clamp((body.centre - from).dot(way) / way.squaredNorm(), 0.0, 1.0);
    if ((from + nearest * way - body.centre).norm() > body.radius) continue;
    for (const Triangle& triangle : body.triangles) {
      // Moeller and Trumbore, Fast, Minimum Storage Ray/Triangle Intersection (1997).
      const Vector p = way.cross(triangle.ac);
      const double determinant = triangle.ab.dot(p);
      if (std::abs(determinant) < 1e-15) continue;
      const Vector s = from - triangle.a;
      const double b = s.dot(p) / determinant;
      if (b < 0.0 || b > 1.0) continue;
      const Vector q = s.cross(triangle.ab);
      const double c = way.dot(q) / determinant;
      if (c < 0.0 || b + c > 1.0) continue;
      const double t = triangle.ac.dot(q) / determinant;
      if (t > 0.0 && t < 1.0) return true;
    }
  }
  return false;
}

bool DemoScene::isVisible(const Place& place, const Vector& eye) const {
  const Vector toEye = (eye - place.position).normalized();
  if (toEye.dot(place.normal) < 0.25) return false;
  return !isBlocked(place.position + 2e-3 * place.normal, eye);
}

std::vector<DemoScene::Place> DemoScene::surfacePlaces(int count, std::uint64_t seed) const {
  std::mt19937_64 random(seed);
  const auto fraction = [&random] { return static_cast<double>(random() >> 11U) * 0x1p-53; };
  std::vector<Place> places;
  for (const Patch& patch : patches) {
    for (int i = 0; i < count * patch.measuredShare / 100; ++i) {
      const double u = 0.02 + 0.96 * fraction();
      const double v = 0.02 + 0.96 * fraction();
      places.push_back(placeAt(patch, u, v));
    }
  }
  // What lies under the bodies is never seen; it would only make the list longer.
  std::erase_if(places, [this](const Place& place) {
    return isBlocked(place.position + 1e-4 * place.normal, place.position + 0.05 * place.normal);
  });
  return places;
}

DemoScene::Place DemoScene::placeAt(const Patch& patch, double u, double v) {
  constexpr double step = 1e-4;
  const Vector alongU = patch.position(u + step, v) - patch.position(u - step, v);
  const Vector alongV =
      patch.position(u, std::min(1.0, v + step)) - patch.position(u, std::max(0.0, v - step));
  return {patch.position(u, v), alongU.cross(alongV).normalized()};
}

NodeRef<SoSeparator> DemoScene::makeNodes() const {
  auto root = makeNode<SoSeparator>();
  auto* light = new SoLightModel;
  light->model = SoLightModel::BASE_COLOR;
  root->addChild(light);
  auto* quality = new SoComplexity;
  quality->textureQuality = 1.0F;
  root->addChild(quality);
  auto* white = new SoBaseColor;
  white->rgb = SbColor(1.0F, 1.0F, 1.0F);
  root->addChild(white);
  for (const Patch& patch : patches) {
    auto* separator = new SoSeparator;
    root->addChild(separator);
    auto* texture = new SoTexture2;
    texture->wrapS = SoTexture2::CLAMP;
    texture->wrapT = SoTexture2::CLAMP;
    texture->image.setValue(
        SbVec2s(static_cast<short>(patch.textureWidth), static_cast<short>(patch.textureHeight)), 3,
        patch.texture.data());
    separator->addChild(texture);
    auto* textureCoordinates = new SoTextureCoordinate2;
    auto* coordinates = new SoCoordinate3;
    const int vertices = (patch.columns + 1) * (patch.rows + 1);
    textureCoordinates->point.setNum(vertices);
    coordinates->point.setNum(vertices);
    SbVec2f* uv = textureCoordinates->point.startEditing();
    SbVec3f* points = coordinates->point.startEditing();
    for (int row = 0; row <= patch.rows; ++row) {
      for (int column = 0; column <= patch.columns; ++column) {
        const double u = static_cast<double>(column) / patch.columns;
        const double v = static_cast<double>(row) / patch.rows;
        *uv++ = SbVec2f(static_cast<float>(u), static_cast<float>(v));
        const Vector at = patch.position(u, v);
        *points++ = SbVec3f(static_cast<float>(at.x()), static_cast<float>(at.y()),
                            static_cast<float>(at.z()));
      }
    }
    coordinates->point.finishEditing();
    textureCoordinates->point.finishEditing();
    separator->addChild(textureCoordinates);
    separator->addChild(coordinates);
    auto* mesh = new SoQuadMesh;
    mesh->verticesPerRow = patch.columns + 1;
    mesh->verticesPerColumn = patch.rows + 1;
    separator->addChild(mesh);
  }
  return root;
}
