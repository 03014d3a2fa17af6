#include "viewer/CloudCut.h"

#include <Inventor/SbViewVolume.h>
#include <Inventor/nodes/SoCamera.h>

#include "host/general/VectorProducts.h"
#include "host/model/Project.h"
#include "nodes/hud/TarnOIDSMCutterHUD.h"
#include "viewer/PointSpacing.h"

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <utility>

namespace {

using tarn::Plane3D;
using tarn::Point3DDouble;

std::vector<tarn::PointMesh*> meshesOf(const tarn::Project& project) {
  std::vector<tarn::PointMesh*> meshes;
  const tarn::VOrdCollect& all = project.GetPointMeshes();
  for (int i = 0; i < all.size(); ++i) {
    auto* mesh = static_cast<tarn::PointMesh*>(all.at(i));
    if (mesh->GetNumPoints() > 0) meshes.push_back(mesh);
  }
  if (meshes.empty()) {
    throw std::runtime_error("there is no dense cloud or mesh to cut; --cloud FILE names one");
  }
  return meshes;
}

Point3DDouble normalOf(const Plane3D& plane) {
  Point3DDouble normal;
  double unused = 0.0;
  plane.GetHessian(normal, unused);
  return normal;
}

// The point of both planes that is nearest to `point`.
Point3DDouble nearestOnBoth(const Plane3D& a, const Plane3D& b, const Point3DDouble& point) {
  const Point3DDouble u = normalOf(a);
  const Point3DDouble v = normalOf(b);
  const double toA = a.GetSignedDistance(point);
  const double toB = b.GetSignedDistance(point);
  // point - s u - t v lies in both: s + c t = toA, c s + t = toB.
  const double c = dot(u, v);
  const double determinant = 1.0 - c * c;
  return point - ((toA - c * toB) / determinant) * u - ((toB - c * toA) / determinant) * v;
}

/// What is near a plane and between the two ends of the line as which it is seen.
struct Slab {
  const Plane3D& plane;
  const Plane3D& begin;  // both face against the line's direction
  const Plane3D& end;
  double thickness;

  // Behind the eye the distances from the ends have the other sign.
  bool holds(const Point3DDouble& point) const {
    return std::abs(plane.GetSignedDistance(point)) <= thickness &&
           begin.GetSignedDistance(point) <= 0.0 && end.GetSignedDistance(point) >= 0.0;
  }
  // How far along the line the point is seen, from 0 to 1.
  double place(const Point3DDouble& point) const {
    const double fromBegin = -begin.GetSignedDistance(point);
    const double toEnd = end.GetSignedDistance(point);
    return fromBegin / (fromBegin + toEnd);
  }
};

}  // namespace

CloudCut::CloudCut(SoCamera& camera, const tarn::Extents& extents, const SbViewportRegion& picture)
    : camera(camera), extents(extents), picture(picture), drawn(picture) {
  camera.getViewVolume(picture, drawn);
}

CloudCut::Pixel CloudCut::pixelAt(double x, double y) const {
  const SbVec2s size = picture.getViewportSizePixels();
  const SbVec2s origin = drawn.getViewportOriginPixels();
  return {static_cast<int>(std::lround(x * size[0])) - origin[0],
          static_cast<int>(std::lround(y * size[1])) - origin[1]};
}

std::unique_ptr<Plane3D> CloudCut::planeThrough(TarnOIDSMProfileHUD& hud, Pixel a, Pixel b) const {
  const SbVec2s size = drawn.getViewportSizePixels();
  hud.SetFirstPos(a.x, a.y, size[0], size[1]);
  hud.SetSecondPos(b.x, b.y, size[0], size[1], /*snap=*/0);
  tarn::Extents ofObject = extents;
  SbViewportRegion viewport = drawn;
  SbMatrix identity = SbMatrix::identity();
  std::unique_ptr<Plane3D> plane(hud.GetCrossSectionPlane(&camera, &ofObject, viewport, identity));
  if (!plane) throw std::runtime_error("no plane can be laid through what was drawn");
  return plane;
}

int CloudCut::keepBox(tarn::Project& project, const CommandLine::Corners& box) const {
  const std::vector<tarn::PointMesh*> meshes = meshesOf(project);
  // From the lower left to the upper right: the planes then face out of the box.
  const Pixel low = pixelAt(std::min(box.x0, box.x1), std::min(box.y0, box.y1));
  const Pixel high = pixelAt(std::max(box.x0, box.x1), std::max(box.y0, box.y1));
  if (low.x == high.x || low.y == high.y) {
    throw std::runtime_error("the box is narrower than a pixel of the picture");
  }
  const NodeRef<TarnOIDSMCutterHUD> cutter = makeNode<TarnOIDSMCutterHUD>();
  const SbVec2s size = drawn.getViewportSizePixels();
  cutter->SetFirstPos(low.x, low.y, size[0], size[1]);
  cutter->SetSecondPos(high.x, high.y, size[0], size[1], /*snap=*/0, /*box=*/1);
  tarn::Extents ofObject = extents;
  SbViewportRegion viewport = drawn;
  SbMatrix identity = SbMatrix::identity();
  const std::unique_ptr<tarn::VOrdCollect> sides(
      cutter->GetBoxPlanes(&camera, &ofObject, viewport, identity));
  std::vector<std::unique_ptr<Plane3D>> planes;
  for (int i = 0; i < sides->size(); ++i) {
    planes.emplace_back(static_cast<Plane3D*>(sides->at(i)));
  }
  if (planes.size() != 4) throw std::runtime_error("no planes can be laid through the box");

  std::vector<std::vector<bool>> kept;
  int left = 0;
  for (const tarn::PointMesh* mesh : meshes) {
    std::vector<bool>& flags = kept.emplace_back(static_cast<std::size_t>(mesh->GetNumPoints()));
    for (int i = 0; i < mesh->GetNumPoints(); ++i) {
      const Point3DDouble point = mesh->GetModelPoint(i);
      const bool inside = std::ranges::all_of(
          planes, [&point](const auto& plane) { return plane->GetSignedDistance(point) <= 0.0; });
      flags[static_cast<std::size_t>(i)] = inside;
      left += inside;
    }
  }
  if (left == 0) throw std::runtime_error("no point of a cloud or mesh lies in the box");
  for (std::size_t i = 0; i < meshes.size(); ++i) meshes[i]->KeepPoints(kept[i]);
  return left;
}

CloudSection CloudCut::section(const tarn::Project& project, const CommandLine::Corners& line,
                               std::optional<double> thickness) const {
  const std::vector<tarn::PointMesh*> meshes = meshesOf(project);
  const Pixel a = pixelAt(line.x0, line.y0);
  const Pixel b = pixelAt(line.x1, line.y1);
  if (a.x == b.x && a.y == b.y) {
    throw std::runtime_error("the section's line is shorter than a pixel of the picture");
  }
  CloudSection section;
  section.line = makeNode<TarnOIDSMProfileHUD>();
  const std::unique_ptr<Plane3D> plane = planeThrough(*section.line, a, b);
  // Across the line at its ends, a quarter turn to the left.
  const auto across = [&](Pixel from) {
    const NodeRef<TarnOIDSMProfileHUD> hud = makeNode<TarnOIDSMProfileHUD>();
    return planeThrough(*hud, from, {from.x - (b.y - a.y), from.y + (b.x - a.x)});
  };
  const std::unique_ptr<Plane3D> begin = across(a);
  const std::unique_ptr<Plane3D> end = across(b);
  // A twentieth of a degree: planes come from the camera's single precision.
  const Point3DDouble normal = normalOf(*plane);
  if (std::hypot(normal.x, normal.y) < 1e-3) {
    throw std::runtime_error(
        "the section's plane is horizontal, and a horizontal plane has no profile; another line "
        "or another view, such as --view top, has one");
  }
  section.thickness = thickness ? *thickness : 2.0 * PointSpacing::of(project);

  const Slab slab{*plane, *begin, *end, section.thickness};
  for (const tarn::PointMesh* mesh : meshes) {
    for (int i = 0; i < mesh->GetNumPoints(); ++i) {
      const Point3DDouble point = mesh->GetModelPoint(i);
      if (slab.holds(point)) section.points.push_back(point);
    }
  }
  if (section.points.empty()) {
    throw std::runtime_error("no point of a cloud or mesh lies in the section");
  }
  const auto [first, last] = std::ranges::minmax_element(
      section.points, {}, [&slab](const Point3DDouble& point) { return slab.place(point); });
  tarn::Profile profile(*plane, nearestOnBoth(*plane, *begin, *first),
                        nearestOnBoth(*plane, *end, *last), section.thickness);
  for (const Point3DDouble& point : section.points) profile.Add(point);
  section.profile = profile.GetPoints();
  return section;
}
