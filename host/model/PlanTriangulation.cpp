#include "host/model/PlanTriangulation.h"

#include <boost/polygon/voronoi.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <span>

namespace tarn {

namespace {

/// A place in plan, in whole numbers, and the point of the mesh that stands for it.
struct Place {
  std::int32_t x;
  std::int32_t y;
  double height;
  int point;
  std::uint64_t order;  // along a curve that keeps neighbours together
};

/// The bits of a number moved apart, a zero between each two.
std::uint64_t spread(std::uint32_t number) {
  std::uint64_t bits = number;
  bits = (bits | bits << 16) & 0x0000FFFF0000FFFFULL;
  bits = (bits | bits << 8) & 0x00FF00FF00FF00FFULL;
  bits = (bits | bits << 4) & 0x0F0F0F0F0F0F0F0FULL;
  bits = (bits | bits << 2) & 0x3333333333333333ULL;
  return (bits | bits << 1) & 0x5555555555555555ULL;
}

/// The place along Morton's curve (G. M. Morton, A Computer Oriented Geodetic Data Base, 1966).
std::uint64_t mortonOrder(std::int32_t x, std::int32_t y) {
  constexpr std::int64_t lowest = INT32_MIN;
  return spread(static_cast<std::uint32_t>(x - lowest)) |
         spread(static_cast<std::uint32_t>(y - lowest)) << 1;
}

bool isFinite(const Point3DDouble& point) { return std::isfinite(point.length()); }

/// The places of all finite points, neighbours side by side, the highest of one place first.
struct Plan {
  std::vector<Place> places;
  double step = 0.0;  // of the whole numbers, in units of the model
};

Plan planOf(const PointMesh& mesh) {
  Plan plan;
  Point3DDouble low;
  Point3DDouble high;
  if (!mesh.GetBoundingBox(low, high, nullptr, 0)) return plan;
  const double extent = std::max(high.x - low.x, high.y - low.y);
  if (!std::isfinite(extent)) return plan;

  // From -2^30 to 2^30, in steps that are a power of two.
  int exponent = 0;
  std::frexp(extent, &exponent);
  exponent = std::max(exponent, -200);  // a smaller cloud is a place
  const double stepsPerUnit = std::ldexp(1.0, 31 - exponent);
  plan.step = 1.0 / stepsPerUnit;
  const auto whole = [stepsPerUnit](double value, double middle) {
    return static_cast<std::int32_t>(std::lround((value - middle) * stepsPerUnit));
  };
  const auto onStep = [stepsPerUnit](double value) {
    return std::round(value * stepsPerUnit) / stepsPerUnit;
  };
  const Point3DDouble middle{onStep((low.x + high.x) / 2), onStep((low.y + high.y) / 2), 0.0};
  plan.places.reserve(static_cast<std::size_t>(mesh.GetNumPoints()));
  for (int i = 0; i < mesh.GetNumPoints(); ++i) {
    const Point3DDouble point = mesh.GetModelPoint(i);
    if (!isFinite(point)) continue;
    const std::int32_t x = whole(point.x, middle.x);
    const std::int32_t y = whole(point.y, middle.y);
    plan.places.push_back({x, y, point.z, i, mortonOrder(x, y)});
  }
  std::ranges::sort(plan.places, [](const Place& a, const Place& b) {
    if (a.order != b.order) return a.order < b.order;
    return a.height != b.height ? a.height > b.height : a.point < b.point;
  });
  return plan;
}

/// Of each run of neighbours the place of median height.
void thin(std::vector<Place>& places, int most) {
  const std::size_t run =
      (places.size() + static_cast<std::size_t>(most) - 1) / static_cast<std::size_t>(most);
  std::size_t kept = 0;
  for (std::size_t first = 0; first < places.size(); first += run) {
    const std::span neighbours(places.data() + first, std::min(run, places.size() - first));
    const auto median = neighbours.begin() + static_cast<std::ptrdiff_t>(neighbours.size() / 2);
    std::ranges::nth_element(neighbours, median, {}, &Place::height);
    places[kept++] = *median;
  }
  places.resize(kept);
}

using Triple = std::array<std::size_t, 3>;  // indexes of places

/// The triangles between the places: each vertex of their Voronoi diagram is the middle of the
/// circle through the places whose cells meet there.
std::vector<Triple> delaunay(std::span<const Place> places) {
  boost::polygon::voronoi_builder<std::int32_t> builder;
  for (const Place& place : places) builder.insert_point(place.x, place.y);
  boost::polygon::voronoi_diagram<double> diagram;
  builder.construct(&diagram);

  std::vector<Triple> triples;
  triples.reserve(2 * places.size());
  for (const auto& vertex : diagram.vertices()) {
    // Edges follow each other counter-clockwise. Four places and more on one circle are
    // joined to the first.
    const auto* const first = vertex.incident_edge();
    const auto* edge = first->rot_next();
    for (const auto* next = edge->rot_next(); next != first; next = next->rot_next()) {
      triples.push_back({first->cell()->source_index(), edge->cell()->source_index(),
                         next->cell()->source_index()});
      edge = next;
    }
  }
  return triples;
}

/// The lengths of a triangle's three edges, in steps.
std::array<double, 3> edgesOf(const Triple& triple, std::span<const Place> places) {
  std::array<double, 3> lengths{};
  for (std::size_t k = 0; k < 3; ++k) {
    const Place& from = places[triple[k]];
    const Place& to = places[triple[(k + 1) % 3]];
    lengths[k] = std::hypot(static_cast<double>(to.x) - from.x, static_cast<double>(to.y) - from.y);
  }
  return lengths;
}

double medianEdge(std::span<const Triple> triples, std::span<const Place> places) {
  if (triples.empty()) return 0.0;
  std::vector<double> lengths;
  lengths.reserve(3 * triples.size());
  for (const Triple& triple : triples) {
    const auto edges = edgesOf(triple, places);
    lengths.insert(lengths.end(), edges.begin(), edges.end());
  }
  const auto middle = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
  std::ranges::nth_element(lengths, middle);
  return *middle;
}

}  // namespace

PlanTriangulation PlanTriangulation::of(const PointMesh& mesh, const Options& options) {
  Plan plan = planOf(mesh);
  std::vector<Place>& places = plan.places;
  const auto doubles = std::ranges::unique(places, {}, &Place::order);
  places.erase(doubles.begin(), doubles.end());

  PlanTriangulation result;
  result.places = static_cast<int>(places.size());
  if (result.places > options.mostPoints) thin(places, std::max(options.mostPoints, 1));
  result.usedPoints = static_cast<int>(places.size());

  const std::vector<Triple> triples = delaunay(places);
  const double typical = medianEdge(triples, places);
  result.typicalEdge = typical * plan.step;
  result.triangles.reserve(triples.size());
  for (const Triple& triple : triples) {
    if (options.longestEdge > 0.0 &&
        std::ranges::max(edgesOf(triple, places)) > options.longestEdge * typical) {
      continue;
    }
    result.triangles.push_back(
        {places[triple[0]].point, places[triple[1]].point, places[triple[2]].point});
  }
  return result;
}

}  // namespace tarn
