#include "host/model/PolygonTriangulation.h"

#include <GL/glu.h>

#include "host/general/VectorProducts.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <new>

namespace tarn {

namespace {

// Along the contour's normal, as long as twice its area.
Point3DDouble doubledArea(const PolygonTriangulation::Contour& contour) {
  Point3DDouble sum;
  for (std::size_t i = 0; i < contour.size(); ++i) {
    // From the first corner: far from the origin nothing is lost.
    sum = sum + cross(contour[i] - contour[0], contour[(i + 1) % contour.size()] - contour[0]);
  }
  return sum;
}

/// A corner as the tessellator gets and returns it.
struct Corner {
  GLdouble place[3];
  int index;
};

/// What the tessellator's calls back fill.
struct Triangles {
  std::vector<int> corners;
  bool crossed = false;

  static void GLAPIENTRY addCorner(void* corner, void* triangles) {
    auto& [corners, crossed] = *static_cast<Triangles*>(triangles);
    if (!crossed) corners.push_back(static_cast<Corner*>(corner)->index);
  }
  // Contours meet: in a corner of one of them, or else they cross.
  static void GLAPIENTRY meet(GLdouble place[3], void* corners[4], GLfloat[4], void** result,
                              void* triangles) {
    const auto isThere = [place](void* corner) {
      return corner && std::equal(place, place + 3, static_cast<Corner*>(corner)->place);
    };
    void** const found = std::find_if(corners, corners + 4, isThere);
    *result = found != corners + 4 ? *found : corners[0];
    if (found == corners + 4) static_cast<Triangles*>(triangles)->crossed = true;
  }
  static void GLAPIENTRY fail(GLenum, void* triangles) {
    static_cast<Triangles*>(triangles)->crossed = true;
  }
  // That it is asked for makes the tessellator return triangles, no strips and fans.
  static void GLAPIENTRY ignoreEdge(GLboolean, void*) {}
};

template <typename Function>
void callBack(GLUtesselator* tessellator, GLenum which, Function* function) {
  gluTessCallback(tessellator, which, reinterpret_cast<_GLUfuncptr>(function));
}

// The corners of the triangles one after the other, or `crossed`.
Triangles tessellate(std::vector<std::vector<Corner>>& contours, const Point3DDouble& normal) {
  const std::unique_ptr<GLUtesselator, decltype(&gluDeleteTess)> owner(gluNewTess(),
                                                                       &gluDeleteTess);
  GLUtesselator* const tessellator = owner.get();
  if (!tessellator) throw std::bad_alloc();
  callBack(tessellator, GLU_TESS_VERTEX_DATA, &Triangles::addCorner);
  callBack(tessellator, GLU_TESS_COMBINE_DATA, &Triangles::meet);
  callBack(tessellator, GLU_TESS_ERROR_DATA, &Triangles::fail);
  callBack(tessellator, GLU_TESS_EDGE_FLAG_DATA, &Triangles::ignoreEdge);
  gluTessProperty(tessellator, GLU_TESS_WINDING_RULE, GLU_TESS_WINDING_POSITIVE);
  gluTessNormal(tessellator, normal.x, normal.y, normal.z);
  Triangles triangles;
  // As many as there can be: no exception may pass through the tessellator.
  std::size_t most = 0;
  for (const std::vector<Corner>& contour : contours) most += contour.size() + 2;
  triangles.corners.reserve(3 * most);
  gluTessBeginPolygon(tessellator, &triangles);
  for (std::vector<Corner>& contour : contours) {
    gluTessBeginContour(tessellator);
    for (Corner& corner : contour) gluTessVertex(tessellator, corner.place, &corner);
    gluTessEndContour(tessellator);
  }
  gluTessEndPolygon(tessellator);
  return triangles;
}

}  // namespace

PolygonTriangulation PolygonTriangulation::of(const Contour& outline,
                                              const std::vector<Contour>& holes) {
  PolygonTriangulation result;
  const Point3DDouble doubledNormal = doubledArea(outline);
  const double outlineArea = doubledNormal.length();
  if (!(outlineArea > 0.0) || !std::isfinite(outlineArea)) return result;
  const Point3DDouble normal = 1.0 / outlineArea * doubledNormal;

  std::vector<Point3DDouble> places;
  std::vector<std::vector<Corner>> contours;
  double left = outlineArea;
  const auto add = [&](const Contour& contour) -> std::vector<Corner>& {
    std::vector<Corner>& corners = contours.emplace_back();
    for (const Point3DDouble& corner : contour) {
      const Point3DDouble place = corner - outline[0];
      corners.push_back({{place.x, place.y, place.z}, static_cast<int>(places.size())});
      places.push_back(place);
    }
    return corners;
  };
  add(outline);
  for (const Contour& hole : holes) {
    std::vector<Corner>& corners = add(hole);
    const double holeArea = dot(doubledArea(hole), normal);
    if (holeArea > 0.0) std::ranges::reverse(corners);
    left -= std::fabs(holeArea);
  }
  if (!(left > 0.0)) return result;  // also where a coordinate is not finite

  const Triangles found = tessellate(contours, normal);
  if (found.crossed) return result;
  double covered = 0.0;
  double largest = 0.0;
  for (std::size_t i = 0; i + 2 < found.corners.size(); i += 3) {
    const std::array triangle{found.corners[i], found.corners[i + 1], found.corners[i + 2]};
    const auto placeOf = [&](std::size_t k) {
      return places[static_cast<std::size_t>(triangle[k])];
    };
    const double area = dot(cross(placeOf(1) - placeOf(0), placeOf(2) - placeOf(0)), normal);
    result.triangles.push_back(triangle);
    if (area > largest) {
      largest = area;
      std::swap(result.triangles.front(), result.triangles.back());
    }
    covered += area;
  }
  if (!(std::fabs(covered - left) <= 1e-9 * outlineArea)) {
    result.triangles.clear();  // a hole is not inside
    return result;
  }
  result.normal = normal;
  return result;
}

}  // namespace tarn
