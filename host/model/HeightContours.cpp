#include "host/model/HeightContours.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <unordered_map>
#include <utility>

namespace tarn::HeightContours {

namespace {

using Corners = PointMesh::Corners;

constexpr double none = std::numeric_limits<double>::quiet_NaN();

std::size_t asIndex(int number) { return static_cast<std::size_t>(number); }

/// The heights of all points of the mesh in the model; NaN for a point that is not finite.
std::vector<double> heightsOf(const PointMesh& mesh) {
  std::vector<double> heights(asIndex(mesh.GetNumPoints()));
  for (std::size_t i = 0; i < heights.size(); ++i) {
    const Point3DDouble point = mesh.GetModelPoint(static_cast<int>(i));
    heights[i] = std::isfinite(point.length()) ? point.z : none;
  }
  return heights;
}

/// All crossings of one level: a segment for each triangle, each end on an edge that the
/// level crosses, and the lines that these make when they are joined at the edges.
class Level {
public:
  Level(double height, const PointMesh& mesh, std::span<const double> heights)
      : height(height), mesh(mesh), heights(heights) {}

  void reserve(std::size_t triangles) {
    crossings.reserve(triangles + 2);
    segments.reserve(triangles);
    crossingOfEdge.reserve(triangles + 2);
  }

  /// A triangle with corners on both sides of the level.
  void add(const Corners& corners) {
    Segment segment{};
    int ends = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      const int from = corners[k];
      const int to = corners[(k + 1) % 3];
      if (isAbove(from) == isAbove(to)) continue;
      segment[asIndex(ends++)] = isAbove(to) ? crossingOf(from, to) : crossingOf(to, from);
    }
    for (const int end : segment) {
      Crossing& crossing = crossings[asIndex(end)];
      if (crossing.uses < 2) crossing.segments[asIndex(crossing.uses)] = number(segments);
      ++crossing.uses;
    }
    segments.push_back(segment);
  }

  void appendLines(std::vector<Line>& lines) {
    used.assign(segments.size(), false);
    for (int i = 0; i < number(segments); ++i) {
      for (const int end : segments[asIndex(i)]) {
        if (!used[asIndex(i)] && !joins(end)) appendLine(lines, end, i);
      }
    }
    // What is left has no end.
    for (int i = 0; i < number(segments); ++i) {
      if (!used[asIndex(i)]) appendLine(lines, segments[asIndex(i)][0], i);
    }
  }

private:
  using Segment = std::array<int, 2>;  // indexes of crossings
  struct Crossing {
    Point3DDouble point;
    Segment segments{};  // the first two that end here
    int uses = 0;
  };

  template <typename Value>
  static int number(const std::vector<Value>& values) {
    return static_cast<int>(values.size());
  }

  bool isAbove(int point) const { return heights[asIndex(point)] >= height; }

  /// Whether exactly two segments meet there, which go on into each other.
  bool joins(int crossing) const { return crossings[asIndex(crossing)].uses == 2; }

  int crossingOf(int below, int above) {
    const std::uint64_t edge = static_cast<std::uint64_t>(std::min(below, above)) << 32 |
                               static_cast<std::uint64_t>(std::max(below, above));
    const auto [found, isNew] = crossingOfEdge.try_emplace(edge, number(crossings));
    if (isNew) crossings.push_back({.point = pointBetween(below, above)});
    return found->second;
  }

  Point3DDouble pointBetween(int below, int above) const {
    const Point3DDouble lower = mesh.GetModelPoint(below);
    const Point3DDouble upper = mesh.GetModelPoint(above);
    const double share = (height - lower.z) / (upper.z - lower.z);
    // With a share of 1, for a corner at the level, lerp gives the corner itself.
    return {std::lerp(lower.x, upper.x, share), std::lerp(lower.y, upper.y, share), height};
  }

  /// Goes along the segments from one end of the one given.
  void appendLine(std::vector<Line>& lines, int start, int segment) {
    Line line{.height = height, .closed = false, .points = {crossings[asIndex(start)].point}};
    int end = start;
    do {
      used[asIndex(segment)] = true;
      const Segment& ends = segments[asIndex(segment)];
      end = ends[0] == end ? ends[1] : ends[0];
      const Crossing& crossing = crossings[asIndex(end)];
      // Edges that meet in a corner at the level are crossed at the same point.
      if (crossing.point != line.points.back()) line.points.push_back(crossing.point);
      if (!joins(end)) break;
      segment = crossing.segments[0] == segment ? crossing.segments[1] : crossing.segments[0];
    } while (!used[asIndex(segment)]);
    line.closed = end == start;
    if (line.points.size() > 1) lines.push_back(std::move(line));
  }

  double height;
  const PointMesh& mesh;
  std::span<const double> heights;
  std::vector<Crossing> crossings;
  std::vector<Segment> segments;
  std::vector<bool> used;
  std::unordered_map<std::uint64_t, int> crossingOfEdge;
};

std::vector<double> sortedOnce(std::span<const double> levels) {
  std::vector<double> sorted;
  std::ranges::copy_if(levels, std::back_inserter(sorted),
                       [](double level) { return std::isfinite(level); });
  std::ranges::sort(sorted);
  const auto doubles = std::ranges::unique(sorted);
  sorted.erase(doubles.begin(), doubles.end());
  return sorted;
}

/// Which levels a triangle crosses: from the first of the pair to before the second.
class CrossedLevels {
public:
  CrossedLevels(std::span<const double> heights, std::span<const double> sortedLevels)
      : heights(heights), levels(sortedLevels) {}

  std::pair<std::size_t, std::size_t> by(const Corners& corners) const {
    const auto [a, b, c] = corners;
    if (a == b || b == c || c == a || !isPoint(a) || !isPoint(b) || !isPoint(c)) return {0, 0};
    const double ha = heights[asIndex(a)];
    const double hb = heights[asIndex(b)];
    const double hc = heights[asIndex(c)];
    if (std::isnan(ha + hb + hc)) return {0, 0};
    return {firstAbove(std::min({ha, hb, hc})), firstAbove(std::max({ha, hb, hc}))};
  }

private:
  bool isPoint(int corner) const { return corner >= 0 && asIndex(corner) < heights.size(); }
  std::size_t firstAbove(double height) const {
    return static_cast<std::size_t>(std::ranges::upper_bound(levels, height) - levels.begin());
  }

  std::span<const double> heights;
  std::span<const double> levels;
};

}  // namespace

std::vector<Line> trace(const PointMesh& mesh, std::span<const Corners> triangles,
                        std::span<const double> levels) {
  const std::vector<double> sorted = sortedOnce(levels);
  const std::vector<double> heights = heightsOf(mesh);
  const CrossedLevels crossed(heights, sorted);

  // The triangles of each level, one level after the other: counted first, then listed.
  std::vector<std::size_t> ends(sorted.size() + 1, 0);
  for (const Corners& corners : triangles) {
    const auto [first, last] = crossed.by(corners);
    for (std::size_t level = first; level < last; ++level) ++ends[level + 1];
  }
  for (std::size_t level = 0; level < sorted.size(); ++level) ends[level + 1] += ends[level];
  std::vector<std::uint32_t> listed(ends.back());
  std::vector<std::size_t> next(ends.begin(), ends.end());
  for (std::size_t i = 0; i < triangles.size(); ++i) {
    const auto [first, last] = crossed.by(triangles[i]);
    for (std::size_t level = first; level < last; ++level) {
      listed[next[level]++] = static_cast<std::uint32_t>(i);
    }
  }

  std::vector<Line> lines;
  for (std::size_t i = 0; i < sorted.size(); ++i) {
    Level level(sorted[i], mesh, heights);
    level.reserve(ends[i + 1] - ends[i]);
    for (std::size_t k = ends[i]; k < ends[i + 1]; ++k) level.add(triangles[listed[k]]);
    level.appendLines(lines);
  }
  return lines;
}

void addTo(PointMesh& mesh, std::span<const Corners> triangles, std::span<const double> levels) {
  for (const Line& line : trace(mesh, triangles, levels)) {
    PointMeshContour& contour = mesh.AddContour();
    contour.SetPoints(line.points);
    contour.SetHeight(line.height);
    contour.SetClosed(line.closed);
  }
}

void addTo(PointMesh& mesh, std::span<const double> levels) {
  std::vector<Corners> triangles(asIndex(mesh.GetNumTriangles()));
  for (std::size_t i = 0; i < triangles.size(); ++i) {
    if (!mesh.GetTriangleCorners(static_cast<int>(i), triangles[i])) triangles[i] = {-1, -1, -1};
  }
  addTo(mesh, triangles, levels);
}

}  // namespace tarn::HeightContours
