#include "viewer/StationSurface.h"

#include "host/general/VectorProducts.h"
#include "host/model/CameraStation.h"
#include "host/model/ObjectPoint.h"
#include "host/model/PhotoCollection.h"
#include "host/model/PlanTriangulation.h"
#include "host/model/SurfaceGroup.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <cstddef>
#include <span>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

struct Vertex {
  tarn::ObjectPoint* point;
  tarn::Point3DDouble position;
  tarn::Point2DDouble mark;
};

using Corners = tarn::PointMesh::Corners;

[[noreturn]] void refuse(const tarn::CameraStation& station, const std::string& found) {
  throw std::runtime_error("station \"" + station.GetName().str() +
                           "\" shows no surface: " + found);
}

std::vector<Vertex> verticesOf(const tarn::CameraStation& station) {
  const tarn::Photograph* photograph = station.GetPhotograph();
  std::vector<Vertex> vertices;
  if (!photograph) return vertices;
  const int ofObjectPoints = 1;
  const tarn::VOrdCollect& marks = photograph->GetAllMarkedPoints(ofObjectPoints, 1);
  for (int i = 0; i < marks.size(); ++i) {
    const auto& mark = *static_cast<const tarn::MarkedPoint*>(marks.at(i));
    tarn::Point3DRandom position;
    if (!mark.GetObjectPoint()->GetApproximation(position)) continue;
    vertices.push_back({mark.GetObjectPoint(), position.position(), mark.GetPosition()});
  }
  return vertices;
}

// Counter-clockwise as the photograph shows them, whose y goes down.
std::vector<Corners> triangulate(std::span<const Vertex> vertices) {
  tarn::PointMesh plan;
  plan.Allocate(static_cast<int>(vertices.size()), 0);
  float* coordinate = plan.GetPointStorage().data();
  for (const Vertex& vertex : vertices) {
    *coordinate++ = static_cast<float>(vertex.mark.x);
    *coordinate++ = static_cast<float>(-vertex.mark.y);
    *coordinate++ = 0.0F;
  }
  tarn::PlanTriangulation::Options options;
  options.longestEdge = 0.0;  // the photograph tells nothing of lengths
  return tarn::PlanTriangulation::of(plan, options).triangles;
}

/// An edge from one vertex to another, as long as it is and as long as it looks.
struct Edge {
  Edge(const tarn::Point3DDouble& from, const tarn::Point3DDouble& to,
       const tarn::Point3DDouble& eye) {
    const tarn::Point3DDouble edge = to - from;
    const tarn::Point3DDouble sight = 0.5 * (from + to) - eye;
    const double along = dot(edge, sight) / sight.length();
    length = edge.length();
    across = std::sqrt(std::max(0.0, length * length - along * along));
  }
  double length;
  double across;
};
using Edges = std::array<Edge, 3>;

Edges edgesOf(std::span<const Vertex> vertices, const Corners& corners,
              const tarn::Point3DDouble& eye) {
  const auto edge = [&](std::size_t k) {
    return Edge(vertices[static_cast<std::size_t>(corners[k])].position,
                vertices[static_cast<std::size_t>(corners[(k + 1) % 3])].position, eye);
  };
  return {edge(0), edge(1), edge(2)};
}

void leaveJumpsOut(std::vector<Corners>& triangles, std::span<const Vertex> vertices,
                   const tarn::Point3DDouble& eye) {
  if (triangles.empty()) return;
  std::vector<double> lengths;
  for (const Corners& corners : triangles) {
    for (const Edge& edge : edgesOf(vertices, corners, eye)) lengths.push_back(edge.length);
  }
  const auto median = lengths.begin() + static_cast<std::ptrdiff_t>(lengths.size() / 2);
  std::ranges::nth_element(lengths, median);
  const double longest = StationSurface::longestEdge * *median;
  std::erase_if(triangles, [&](const Corners& corners) {
    return !std::ranges::all_of(edgesOf(vertices, corners, eye), [longest](const Edge& edge) {
      return edge.length > 0.0 && edge.length <= longest &&
             edge.length <= StationSurface::mostForeshortened * edge.across;
    });
  });
}

// Elsewhere the picture would be smeared from its edge, and points behind the station have no place
// in it. The first triangle stays: the photograph is the best for it.
void leaveUnseenOut(std::vector<Corners>& triangles, std::span<const Vertex> vertices,
                    tarn::Photograph& photograph) {
  const tarn::Point2DDouble scale = photograph.GetPixelToTextureNormalizedSpace();
  const auto isSeen = [&](int i) {
    tarn::Point2DDouble pixel;
    if (!vertices[static_cast<std::size_t>(i)].point->BestProjectionOnto(&photograph, pixel)) {
      return false;
    }
    const double u = pixel.x * scale.x;
    const double v = pixel.y * scale.y;
    return u >= 0.0 && u <= 1.0 && v >= 0.0 && v <= 1.0;
  };
  const auto isUnseen = [&isSeen](const Corners& c) { return !std::ranges::all_of(c, isSeen); };
  triangles.erase(std::remove_if(triangles.begin() + 1, triangles.end(), isUnseen),
                  triangles.end());
}

double areaOnPhotograph(std::span<const Vertex> vertices, const Corners& corners) {
  const auto mark = [&](std::size_t k) {
    return vertices[static_cast<std::size_t>(corners[k])].mark;
  };
  return 0.5 * std::abs((mark(1).x - mark(0).x) * (mark(2).y - mark(0).y) -
                        (mark(2).x - mark(0).x) * (mark(1).y - mark(0).y));
}

}  // namespace

void StationSurface::fill(tarn::SurfaceGroup& group, const tarn::CameraStation& station,
                          const tarn::PhotoCollection& photographs) {
  const std::vector<Vertex> vertices = verticesOf(station);
  if (!station.IsOriented()) refuse(station, "it is not oriented");
  if (vertices.size() < 3) {
    refuse(station, "object points with a position that are marked on its photograph: found " +
                        std::to_string(vertices.size()) + ", expected 3 or more");
  }
  const auto vertex = [&](int i) -> const Vertex& { return vertices[static_cast<std::size_t>(i)]; };
  std::vector<Corners> triangles = triangulate(vertices);
  leaveJumpsOut(triangles, vertices, station.GetPosition());
  if (triangles.empty()) {
    refuse(station, "its " + std::to_string(vertices.size()) +
                        " points lie on one line of the photograph, or on lines of sight");
  }

  const auto photographOf = [&](const Corners& corners) {
    tarn::SurfaceElement element(vertex(corners[0]).point, vertex(corners[1]).point,
                                 vertex(corners[2]).point);
    return photographs.GetBestFacePhoto(&element);
  };
  std::ranges::stable_sort(triangles, std::ranges::greater(), [&](const Corners& corners) {
    return areaOnPhotograph(vertices, corners);
  });
  auto first = std::ranges::find(triangles, station.GetPhotograph(), photographOf);
  if (first == triangles.end()) {
    first = std::ranges::find_if(triangles, [&](const Corners& c) { return photographOf(c); });
  }
  if (first != triangles.end()) {
    std::iter_swap(triangles.begin(), first);
    leaveUnseenOut(triangles, vertices, *photographOf(triangles.front()));
  }
  for (const Corners& corners : triangles) {
    group.AddElement(vertex(corners[0]).point, vertex(corners[1]).point, vertex(corners[2]).point);
  }
}
