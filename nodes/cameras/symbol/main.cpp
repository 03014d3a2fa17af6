// Models the detailed camera symbol and prints it as the source file
// nodes/cameras/DetailedCameraMesh.cpp:
//
//     build/release/bin/tarn_camera_symbol > nodes/cameras/DetailedCameraMesh.cpp
//
// Millimetres; z up, the lens towards -y, the projection centre at (15, 0, -20). Every
// triangle is counter-clockwise seen from outside.

#include <array>
#include <cmath>
#include <cstdio>
#include <cstdlib>
#include <numbers>
#include <string>
#include <vector>

namespace {

struct Point2 {
  double x = 0.0;
  double y = 0.0;
};

struct Point {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
};

using Loop = std::vector<int>;  // point numbers around an outline

struct Mesh {
  std::vector<Point> points;
  std::vector<std::array<int, 3>> triangles;

  int add(const Point& point) {
    points.push_back(point);
    return static_cast<int>(points.size()) - 1;
  }
  void triangle(int a, int b, int c) { triangles.push_back({a, b, c}); }
};

double cross(const Point2& o, const Point2& a, const Point2& b) {
  return (a.x - o.x) * (b.y - o.y) - (a.y - o.y) * (b.x - o.x);
}

double squaredLength(const Point2& a, const Point2& b) {
  return (b.x - a.x) * (b.x - a.x) + (b.y - a.y) * (b.y - a.y);
}

bool contains(const Point2& a, const Point2& b, const Point2& c, const Point2& p) {
  return cross(a, b, p) >= 0.0 && cross(b, c, p) >= 0.0 && cross(c, a, p) >= 0.0;
}

// Triangulates a simple outline, counter-clockwise, by cutting off the roundest ear each
// time. Gives indexes into the outline.
std::vector<std::array<int, 3>> cutEars(const std::vector<Point2>& outline) {
  std::vector<int> left(outline.size());
  for (std::size_t i = 0; i < left.size(); ++i) left[i] = static_cast<int>(i);
  std::vector<std::array<int, 3>> triangles;
  const auto at = [&](std::size_t i) -> const Point2& {
    return outline[static_cast<std::size_t>(left[i % left.size()])];
  };
  while (left.size() >= 3) {
    std::size_t best = left.size();
    double bestQuality = 0.0;
    for (std::size_t i = 0; i < left.size(); ++i) {
      const Point2& a = at(i + left.size() - 1);
      const Point2& b = at(i);
      const Point2& c = at(i + 1);
      const double area = cross(a, b, c);
      if (area <= 0.0) continue;
      bool empty = true;
      for (std::size_t k = 2; empty && k + 1 < left.size(); ++k) {
        empty = !contains(a, b, c, at(i + k));
      }
      const double quality =
          area / (squaredLength(a, b) + squaredLength(b, c) + squaredLength(c, a));
      if (empty && quality > bestQuality) {
        best = i;
        bestQuality = quality;
      }
    }
    if (best == left.size()) {
      std::fprintf(stderr, "the outline cannot be triangulated\n");
      std::exit(1);
    }
    triangles.push_back(
        {left[(best + left.size() - 1) % left.size()], left[best], left[(best + 1) % left.size()]});
    left.erase(left.begin() + static_cast<std::ptrdiff_t>(best));
  }
  return triangles;
}

// Two loops of the same length, `upper` on the outer side of `lower` when both run
// counter-clockwise seen from the side of `upper`.
void addWall(Mesh& mesh, const Loop& lower, const Loop& upper, std::size_t except = SIZE_MAX) {
  const std::size_t count = lower.size();
  for (std::size_t i = 0; i < count; ++i) {
    if (i == except) continue;
    const std::size_t next = (i + 1) % count;
    mesh.triangle(lower[i], lower[next], upper[next]);
    mesh.triangle(lower[i], upper[next], upper[i]);
  }
}

void addCap(Mesh& mesh, const Loop& loop, const std::vector<Point2>& outline, bool reversed) {
  for (const auto& [a, b, c] : cutEars(outline)) {
    const int i = loop[static_cast<std::size_t>(a)];
    const int j = loop[static_cast<std::size_t>(b)];
    const int k = loop[static_cast<std::size_t>(c)];
    reversed ? mesh.triangle(i, k, j) : mesh.triangle(i, j, k);
  }
}

// ---- Body -----------------------------------------------------------------------------

struct Corner {
  Point2 at;
  double radius;
  int points;
};

// A corner rounded by an arc of that many points between the two tangent points.
void addRounded(std::vector<Point2>& outline, const Point2& before, const Corner& corner,
                const Point2& after) {
  const auto direction = [](const Point2& from, const Point2& to) {
    const double length = std::sqrt(squaredLength(from, to));
    return Point2{(to.x - from.x) / length, (to.y - from.y) / length};
  };
  const Point2 in = direction(before, corner.at);
  const Point2 out = direction(corner.at, after);
  const double turn = std::atan2(in.x * out.y - in.y * out.x, in.x * out.x + in.y * out.y);
  const double side = turn > 0.0 ? 1.0 : -1.0;
  const double back = corner.radius * std::tan(std::abs(turn) / 2.0);
  const Point2 start{corner.at.x - back * in.x, corner.at.y - back * in.y};
  const Point2 centre{start.x - side * corner.radius * in.y, start.y + side * corner.radius * in.x};
  for (int i = 0; i < corner.points; ++i) {
    const double angle = turn * i / (corner.points - 1);
    const Point2 arm{start.x - centre.x, start.y - centre.y};
    outline.push_back({centre.x + arm.x * std::cos(angle) - arm.y * std::sin(angle),
                       centre.y + arm.x * std::sin(angle) + arm.y * std::cos(angle)});
  }
}

// The body seen from above, counter-clockwise: grip, front, back. The front is the edge that
// begins at point `frontEdge`.
constexpr std::size_t frontEdge = 17;
constexpr double frontY = -22.0;

std::vector<Point2> bodyOutline(double inset) {
  // The corner between grip and front turns the other way: its radius grows with the inset.
  const std::array<Corner, 6> corners = {{
      {{-62.0 + inset, -46.0 + inset}, 11.0 - inset, 8},
      {{-38.0 - 0.7 * inset, -46.0 + inset}, 10.0 - inset, 7},
      {{-30.0 - 0.7 * inset, frontY + inset}, 4.0 + inset, 3},
      {{78.0 - inset, frontY + inset}, 12.0 - inset, 8},
      {{78.0 - inset, 36.0 - inset}, 9.0 - inset, 7},
      {{-62.0 + inset, 36.0 - inset}, 9.0 - inset, 7},
  }};
  std::vector<Point2> outline;
  for (std::size_t i = 0; i < corners.size(); ++i) {
    addRounded(outline, corners[(i + corners.size() - 1) % corners.size()].at, corners[i],
               corners[(i + 1) % corners.size()].at);
  }
  return outline;
}

Loop addLoop(Mesh& mesh, const std::vector<Point2>& outline, double z) {
  Loop loop;
  for (const Point2& p : outline) loop.push_back(mesh.add({p.x, p.y, z}));
  return loop;
}

// The flat front wall with the round opening of the lens mount in it.
void addFrontWithOpening(Mesh& mesh, const Loop& lower, const Loop& upper) {
  constexpr int openingPoints = 23;
  constexpr double openingRadius = 26.0;
  const std::array<int, 4> wall = {lower[frontEdge], lower[frontEdge + 1], upper[frontEdge + 1],
                                   upper[frontEdge]};
  // Seen from the front: x to the right, z up; both loops counter-clockwise.
  Loop opening;
  const auto angleOf = [](const Point& p) { return std::atan2(p.z + 20.0, p.x - 15.0); };
  for (int i = 0; i < openingPoints; ++i) {
    const double angle = -std::numbers::pi + 2.0 * std::numbers::pi * (i + 0.5) / openingPoints;
    opening.push_back(mesh.add(
        {15.0 + openingRadius * std::cos(angle), frontY, -20.0 + openingRadius * std::sin(angle)}));
  }
  // Both loops are walked by their angle around the lens axis; the one that is behind moves.
  std::size_t outer = 0;
  std::size_t inner = 0;
  const auto pointOf = [&](int number) { return mesh.points[static_cast<std::size_t>(number)]; };
  const auto outerAngle = [&](std::size_t i) {
    return angleOf(pointOf(wall[i % wall.size()])) +
           (i >= wall.size() ? 2.0 * std::numbers::pi : 0.0);
  };
  const auto innerAngle = [&](std::size_t i) {
    return angleOf(pointOf(opening[i % opening.size()])) +
           (i >= opening.size() ? 2.0 * std::numbers::pi : 0.0);
  };
  while (outer < wall.size() || inner < opening.size()) {
    const int o = wall[outer % wall.size()];
    const int i = opening[inner % opening.size()];
    const bool moveOuter = inner == opening.size() ||
                           (outer < wall.size() && outerAngle(outer + 1) + outerAngle(outer) <
                                                       innerAngle(inner + 1) + innerAngle(inner));
    if (moveOuter) {
      mesh.triangle(o, wall[(outer + 1) % wall.size()], i);
      ++outer;
    } else {
      mesh.triangle(o, opening[(inner + 1) % opening.size()], i);
      ++inner;
    }
  }
}

// A small cylinder standing on the top plate: shutter release, dial.
void addKnob(Mesh& mesh, const Point2& centre, double radius, double bottom, double top,
             int segments) {
  std::vector<Point2> outline;
  for (int i = 0; i < segments; ++i) {
    const double angle = 2.0 * std::numbers::pi * (i + 0.5) / segments;
    outline.push_back({centre.x + radius * std::cos(angle), centre.y + radius * std::sin(angle)});
  }
  const Loop lower = addLoop(mesh, outline, bottom);
  const Loop upper = addLoop(mesh, outline, top);
  addCap(mesh, lower, outline, true);
  addWall(mesh, lower, upper);
  addCap(mesh, upper, outline, false);
}

Mesh body() {
  struct Level {
    double z;
    double inset;
  };
  constexpr std::array<Level, 6> levels = {
      {{-58.0, 4.0}, {-56.6, 1.2}, {-54.0, 0.0}, {14.0, 0.0}, {16.6, 1.2}, {18.0, 4.0}}};
  Mesh mesh;
  std::vector<Loop> loops;
  for (const Level& level : levels)
    loops.push_back(addLoop(mesh, bodyOutline(level.inset), level.z));
  addCap(mesh, loops.front(), bodyOutline(levels.front().inset), true);
  for (std::size_t i = 0; i + 1 < loops.size(); ++i) {
    const bool front = i == 2;
    addWall(mesh, loops[i], loops[i + 1], front ? frontEdge : SIZE_MAX);
    if (front) addFrontWithOpening(mesh, loops[i], loops[i + 1]);
  }
  addCap(mesh, loops.back(), bodyOutline(levels.back().inset), false);
  addKnob(mesh, {-49.0, -30.0}, 5.5, 17.0, 20.5, 8);
  addKnob(mesh, {58.0, 8.0}, 11.0, 17.0, 25.0, 10);
  return mesh;
}

// ---- Viewfinder -----------------------------------------------------------------------

// The prism's housing: an outline in x and z carried from the front, over the ridge, to the
// eyepiece at the back.
Mesh viewfinder() {
  struct Station {
    double y;
    double halfWidth;
    double shoulder;
    double top;
  };
  constexpr std::array<Station, 4> stations = {{{-25.0, 17.0, 24.0, 31.0},
                                                {-10.0, 21.0, 30.0, 44.0},
                                                {12.0, 21.0, 30.0, 44.0},
                                                {44.0, 14.0, 27.0, 34.0}}};
  constexpr double bottom = 15.0;
  constexpr double axis = 15.0;
  Mesh mesh;
  std::vector<Loop> loops;
  std::vector<std::vector<Point2>> outlines;
  for (const Station& s : stations) {
    // Counter-clockwise seen from the front (x to the right, z up), with a slight roof.
    const std::vector<Point2> outline = {{axis - s.halfWidth, bottom},
                                         {axis + s.halfWidth, bottom},
                                         {axis + s.halfWidth, s.shoulder},
                                         {axis + 0.5 * s.halfWidth, s.top},
                                         {axis, s.top + 1.5},
                                         {axis - 0.5 * s.halfWidth, s.top},
                                         {axis - s.halfWidth, s.shoulder}};
    Loop loop;
    for (const Point2& p : outline) loop.push_back(mesh.add({p.x, s.y, p.y}));
    loops.push_back(loop);
    outlines.push_back(outline);
  }
  addCap(mesh, loops.front(), outlines.front(), false);
  for (std::size_t i = 0; i + 1 < loops.size(); ++i) addWall(mesh, loops[i + 1], loops[i]);
  addCap(mesh, loops.back(), outlines.back(), true);
  return mesh;
}

// ---- Lens -----------------------------------------------------------------------------

// A profile turned around the lens axis. Its points are shared within a band where the
// surface is smooth and repeated where it has an edge.
Mesh lens() {
  constexpr std::size_t segments = 52;
  struct Ring {
    double radius;
    double y;
    bool edge;  // the bands on both sides have points of their own
  };
  constexpr std::array<Ring, 15> rings = {{{25.0, -12.0, true},
                                           {25.0, -21.5, true},
                                           {33.0, -23.0, true},
                                           {34.0, -24.5, true},
                                           {34.0, -36.0, true},
                                           {31.5, -38.0, true},
                                           {31.5, -44.0, true},
                                           {35.0, -46.0, true},
                                           {35.0, -66.0, true},
                                           {32.0, -68.0, true},
                                           {32.0, -78.0, true},
                                           {36.0, -88.0, true},
                                           {33.5, -89.0, true},
                                           {28.5, -77.0, true},
                                           {17.0, -82.0, false}}};
  // How many of a band's meridians are edges: the grips of focus and zoom and the hood are
  // faceted all around, the mount's flange carries four marks.
  constexpr std::array<std::size_t, 14> facets = {0, 0, 4, 52, 0, 0, 0, 52, 0, 0, 52, 0, 0, 0};

  Mesh mesh;
  const auto pointOn = [](const Ring& ring, std::size_t segment) {
    const double angle = 2.0 * std::numbers::pi * static_cast<double>(segment) / segments;
    return Point{15.0 + ring.radius * std::cos(angle), ring.y,
                 -20.0 + ring.radius * std::sin(angle)};
  };
  const auto loopOn = [&](const Ring& ring) {
    Loop loop;
    for (std::size_t i = 0; i < segments; ++i) loop.push_back(mesh.add(pointOn(ring, i)));
    return loop;
  };
  const auto addDisc = [&](const Loop& loop, const Ring& ring, bool reversed) {
    std::vector<Point2> outline;
    for (std::size_t i = 0; i < segments; ++i) {
      const Point p = pointOn(ring, i);
      outline.push_back({p.x, p.z});
    }
    addCap(mesh, loop, outline, reversed);
  };

  Loop back = loopOn(rings.front());
  addDisc(back, rings.front(), true);
  for (std::size_t band = 0; band + 1 < rings.size(); ++band) {
    if (rings[band].edge) back = loopOn(rings[band]);
    const Loop front = loopOn(rings[band + 1]);
    // A meridian that is an edge has a second pair of points for the segment before it.
    Loop backEnds(segments);
    Loop frontEnds(segments);
    for (std::size_t i = 0; i < segments; ++i) {
      const std::size_t next = (i + 1) % segments;
      const bool split = facets[band] > 0 && next % (segments / facets[band]) == 0;
      backEnds[i] = split ? mesh.add(pointOn(rings[band], next)) : back[next];
      frontEnds[i] = split ? mesh.add(pointOn(rings[band + 1], next)) : front[next];
    }
    for (std::size_t i = 0; i < segments; ++i) {
      // Seen from the front the angle runs counter-clockwise, and the outside of a band
      // lies towards larger radii.
      mesh.triangle(back[i], backEnds[i], frontEnds[i]);
      mesh.triangle(back[i], frontEnds[i], front[i]);
    }
    back = front;
  }
  addDisc(back, rings.back(), false);
  return mesh;
}

// ---- Output ---------------------------------------------------------------------------

std::string number(double value) {
  std::array<char, 32> text{};
  const double rounded = std::round(value * 1000.0) / 1000.0;
  std::snprintf(text.data(), text.size(), "%.3f", rounded == 0.0 ? 0.0 : rounded);
  std::string result = text.data();
  while (result.back() == '0') result.pop_back();
  if (result.back() == '.') result.pop_back();
  return result;
}

std::string coordinates(const Mesh& mesh) {
  std::string text = "Coordinate3 {\npoint [\n";
  for (const Point& p : mesh.points) {
    text += number(p.x) + " " + number(p.y) + " " + number(p.z) + ",\n";
  }
  return text + "]\n}\n";
}

std::string faces(const Mesh& mesh) {
  std::string text = "IndexedFaceSet {\ncoordIndex [\n";
  for (const auto& [a, b, c] : mesh.triangles) {
    text += std::to_string(a) + "," + std::to_string(b) + "," + std::to_string(c) + ",-1,\n";
  }
  return text + "]\n}\n";
}

void require(const char* what, std::size_t found, std::size_t expected) {
  if (found == expected) return;
  std::fprintf(stderr, "%s: %zu, expected %zu\n", what, found, expected);
  std::exit(1);
}

void printText(const char* name, const std::string& text) {
  std::printf("const std::string_view %s = R\"iv(%s)iv\";\n\n", name, text.c_str());
}

}  // namespace

int main() {
  const Mesh bodyMesh = body();
  const Mesh viewfinderMesh = viewfinder();
  const Mesh lensMesh = lens();
  require("triangles of the body", bodyMesh.triangles.size(), 565);
  require("triangles of the viewfinder", viewfinderMesh.triangles.size(), 52);
  require("points of the lens", lensMesh.points.size(), 1828);
  require("triangles of the lens", lensMesh.triangles.size(), 1556);

  std::printf(
      "// Generated by tarn_camera_symbol (nodes/cameras/symbol/main.cpp). Change it there.\n\n"
      "#include \"nodes/cameras/DetailedCameraMesh.h\"\n\n"
      "namespace DetailedCameraMesh {\n\n");
  printText("body",
            "ShapeHints {\nvertexOrdering COUNTERCLOCKWISE\nshapeType SOLID\nfaceType CONVEX\n}\n" +
                coordinates(bodyMesh) + faces(bodyMesh));
  printText("viewfinder", coordinates(viewfinderMesh) + faces(viewfinderMesh));
  printText("lensCoordinates", coordinates(lensMesh));
  printText("lensFaces", faces(lensMesh));
  std::printf("}  // namespace DetailedCameraMesh\n");
}
