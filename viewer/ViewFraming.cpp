#include "viewer/ViewFraming.h"

#include <Inventor/nodes/SoOrthographicCamera.h>
#include <Inventor/nodes/SoPerspectiveCamera.h>

#include "host/general/VectorProducts.h"
#include "host/model/ImportedLine.h"
#include "host/model/ImportedSurface.h"
#include "host/model/NURBSCurve.h"
#include "host/model/NURBSSurfaceCylinder.h"
#include "host/model/Project.h"
#include "nodes/framework/ViewerFrame.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>

namespace {

using Point = tarn::Point3DDouble;

constexpr double air = 1.08;         // room around what is framed
constexpr float heightAngle = 0.6F;  // of the perspective view, radians

Point unit(const Point& a) {
  const double length = a.length();
  return length > 0.0 ? (1.0 / length) * a : a;
}

double component(const Point& p, int axis) { return axis == 0 ? p.x : axis == 1 ? p.y : p.z; }

// From the second to the ninety-eighth percentile, and a good part of that range more on
// either side.
std::array<double, 2> robustRange(const std::vector<Point>& points, int axis) {
  std::vector<double> values;
  values.reserve(points.size());
  for (const Point& point : points) values.push_back(component(point, axis));
  const auto at = [&values](double fraction) {
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(
                                            fraction * static_cast<double>(values.size() - 1));
    std::nth_element(values.begin(), place, values.end());
    return *place;
  };
  const double low = at(0.02);
  const double high = at(0.98);
  const double margin = 0.25 * (high - low);
  return {low - margin, high + margin};
}

std::vector<Point> withoutOutliers(const std::vector<Point>& points) {
  // Of a few points none can be told to be an outlier.
  constexpr std::size_t few = 20;
  if (points.size() < few) return points;
  std::array<std::array<double, 2>, 3> range{};
  for (int axis = 0; axis < 3; ++axis) {
    range[static_cast<std::size_t>(axis)] = robustRange(points, axis);
  }
  std::vector<Point> inliers;
  for (const Point& point : points) {
    bool inside = true;
    for (int axis = 0; axis < 3; ++axis) {
      const auto& [low, high] = range[static_cast<std::size_t>(axis)];
      const double value = component(point, axis);
      inside = inside && value >= low && value <= high;
    }
    if (inside) inliers.push_back(point);
  }
  return inliers;
}

double medianNearestDistance(const std::vector<Point>& points) {
  std::vector<double> nearest;
  for (std::size_t i = 0; i < points.size(); ++i) {
    double best = std::numeric_limits<double>::infinity();
    for (std::size_t j = 0; j < points.size(); ++j) {
      if (j != i) best = std::min(best, (points[i] - points[j]).length());
    }
    if (std::isfinite(best)) nearest.push_back(best);
  }
  if (nearest.empty()) return 0.0;
  const auto middle = nearest.begin() + static_cast<std::ptrdiff_t>(nearest.size() / 2);
  std::nth_element(nearest.begin(), middle, nearest.end());
  return *middle;
}

SbRotation rotationOf(const ViewFraming::Axes& axes) {
  const SbVec3f rows[] = {ViewerFrame::directionFromModel(axes.right),
                          ViewerFrame::directionFromModel(axes.up),
                          ViewerFrame::directionFromModel(axes.back)};
  SbMatrix matrix = SbMatrix::identity();
  for (int row = 0; row < 3; ++row) {
    for (int column = 0; column < 3; ++column) matrix[row][column] = rows[row][column];
  }
  return SbRotation(matrix);
}

// Takes some of so many, spread over them: enough for their box. One out of each so many, but not
// at the same place among them: points often come in rows.
constexpr int enough = 50'000;
template <typename Take>
void sample(int count, Take take) {
  const int step = count / enough + 1;
  const int steps = count / step;
  for (int i = 0; i < steps; ++i) {
    const int place = static_cast<int>((static_cast<unsigned>(i) * 2654435761U >> 8) %
                                       static_cast<unsigned>(step));
    take(i * step + place);
  }
}

void sample(const tarn::PointMesh& mesh, std::vector<Point>& points) {
  sample(mesh.GetNumPoints(), [&](int i) { points.push_back(mesh.GetModelPoint(i)); });
}

void take(const tarn::ThreeDPoint* point, std::vector<Point>& points) {
  tarn::Point3DRandom position;
  if (point && point->GetApproximation(position)) points.push_back(position.position());
}

// The points that are farthest in the directions of a cube's faces, edges and corners (and, in
// none, the first).
class Farthest {
public:
  Farthest() { reaches.fill(-std::numeric_limits<double>::infinity()); }
  void add(const Point& point) {
    std::size_t direction = 0;
    for (const double x : {-point.x, 0.0, point.x}) {
      for (const double y : {-point.y, 0.0, point.y}) {
        for (const double z : {-point.z, 0.0, point.z}) {
          const double reach = x + y + z;
          if (reach > reaches[direction]) {
            reaches[direction] = reach;
            points[direction] = point;
          }
          ++direction;
        }
      }
    }
  }
  void addTo(std::vector<Point>& all) const {
    if (std::isfinite(reaches.front())) all.insert(all.end(), points.begin(), points.end());
  }

private:
  std::array<double, 27> reaches;
  std::array<Point, 27> points;
};

// Some of the triangles, and the corners that reach farthest of all: those of a ground are few.
void sample(tarn::Surface& surface, std::vector<Point>& points) {
  const tarn::VOrdCollect* triangles = surface.GetTriangles();
  if (!triangles) return;
  const auto takeCorners = [&](int i, std::vector<Point>& to) {
    const auto* triangle = static_cast<const tarn::Triangle*>(triangles->at(i));
    for (int corner = 0; corner < 3; ++corner) take(triangle->GetPoint(corner), to);
  };
  sample(triangles->size(), [&](int i) { takeCorners(i, points); });
  if (triangles->size() < enough) return;
  Farthest farthest;
  std::vector<Point> corners;
  for (int i = 0; i < triangles->size(); ++i) {
    corners.clear();
    takeCorners(i, corners);
    for (const Point& corner : corners) farthest.add(corner);
  }
  farthest.addTo(points);
}

}  // namespace

ViewFraming::ViewFraming(const tarn::Project& project) {
  std::vector<Point> points;
  const tarn::VOrdCollect& objectPoints = project.GetObjectPoints();
  for (int i = 0; i < objectPoints.size(); ++i) {
    tarn::Point3DRandom position;
    const auto* point = static_cast<tarn::ObjectPoint*>(objectPoints.at(i));
    if (point->GetApproximation(position)) points.push_back(position.position());
  }
  const tarn::VOrdCollect& meshes = project.GetPointMeshes();
  for (int i = 0; i < meshes.size(); ++i) {
    sample(*static_cast<tarn::PointMesh*>(meshes.at(i)), points);
  }
  // What was modelled has no outliers: the few corners of the ground may be as far as they like.
  std::vector<Point> modelled;
  for (const tarn::VOrdCollect* surfaces :
       {&project.GetImportedSurfaces(), &project.GetNURBSSurfaces(),
        &project.GetNURBSSurfaceCylinders()}) {
    for (int i = 0; i < surfaces->size(); ++i) {
      sample(*static_cast<tarn::Surface*>(surfaces->at(i)), modelled);
    }
  }
  const tarn::VOrdCollect& lines = project.GetImportedLines();
  for (int i = 0; i < lines.size(); ++i) {
    const auto* line = static_cast<tarn::ImportedLine*>(lines.at(i));
    for (int end = 0; end < 2; ++end) take(line->GetThreeDPoint(end), modelled);
  }
  // A curve stays between its control points.
  const tarn::VOrdCollect& curves = project.GetNURBSCurves();
  for (int i = 0; i < curves.size(); ++i) {
    const std::vector<Point>& around =
        static_cast<tarn::NURBSCurve*>(curves.at(i))->GetControlPoints();
    modelled.insert(modelled.end(), around.begin(), around.end());
  }
  std::vector<Point> stations;
  const tarn::VOrdCollect& allStations = project.GetCameraStations();
  for (int i = 0; i < allStations.size(); ++i) {
    const auto* station = static_cast<tarn::CameraStation*>(allStations.at(i));
    if (!station->IsOriented()) continue;
    stations.push_back(station->GetPosition());
    const tarn::MatrixDouble rotation = station->GetRotationMatrix();
    meanUp = meanUp + Point(rotation(2, 1), rotation(2, 2), rotation(2, 3));
    meanBack = meanBack + Point(rotation(3, 1), rotation(3, 2), rotation(3, 3));
  }
  if (!stations.empty()) {
    const double share = 1.0 / static_cast<double>(stations.size());
    meanUp = share * meanUp;
    meanBack = share * meanBack;
  }
  spacing = medianNearestDistance(stations);

  const bool hasObjects = !points.empty() || !modelled.empty();
  framed = withoutOutliers(hasObjects ? points : stations);
  framed.insert(framed.end(), modelled.begin(), modelled.end());
  for (const Point& point : framed) extents.Add(point);
  Point low;
  Point high;
  if (extents.GetExtents(low, high) && (high - low).length() > 0.0) {
    diagonal = (high - low).length();
  }
  if (!hasObjects) return;
  // A station far out of all proportion is an outlier too.
  constexpr double farAway = 20.0;
  const Point centre = extents.GetCentre();
  for (const Point& station : stations) {
    if ((station - centre).length() < farAway * diagonal) framed.push_back(station);
  }
}

ViewFraming::Axes ViewFraming::upright() const {
  const Point z(0.0, 0.0, 1.0);
  const bool consistent = meanUp.length() > 0.5;
  if (!consistent || unit(meanUp).z > 0.5 || unit(meanBack).z > 0.7) {
    return {{1.0, 0.0, 0.0}, z, {0.0, -1.0, 0.0}};
  }
  const Point up = unit(meanUp);
  Point back = meanBack - dot(meanBack, up) * up;
  if (back.length() < 1e-3) back = cross(up, std::abs(up.x) < 0.9 ? Point(1, 0, 0) : z);
  back = unit(back);
  return {cross(up, back), up, back};
}

ViewFraming::Axes ViewFraming::axes(CommandLine::View view) const {
  const auto [right, up, front] = upright();
  switch (view) {
    case CommandLine::View::eTop:
      return {right, -1.0 * front, up};
    case CommandLine::View::eRight:
      return {-1.0 * front, up, right};
    case CommandLine::View::eFront:
    case CommandLine::View::eStation:
      return {right, up, front};
    case CommandLine::View::eIso:
      break;
  }
  const Point back = unit(0.75 * right + front + 0.75 * up);
  const Point across = unit(cross(up, back));
  return {across, cross(back, across), back};
}

SoCamera* ViewFraming::makeCamera(CommandLine::View view, double aspect) const {
  const Axes axes = this->axes(view);
  const bool perspective = view == CommandLine::View::eIso;
  const double tangentY = perspective ? std::tan(0.5 * static_cast<double>(heightAngle)) : 0.0;
  const double tangentX = tangentY * aspect;
  const Point centre = extents.GetCentre();
  // The frame's four planes touch what they hold. A point r to the right and b back of the
  // centre is in the picture when |r - x| <= t (d - b), x being where the camera stands
  // and d how far back: r + t b - t d <= x <= r - t b + t d. (t is 0 for parallel views.)
  constexpr double infinity = std::numeric_limits<double>::infinity();
  double mostRight = -infinity, mostLeft = infinity;
  double mostUp = -infinity, mostDown = infinity;
  double nearest = -infinity;
  for (const Point& point : framed) {
    const Point from = point - centre;
    const double r = dot(from, axes.right);
    const double u = dot(from, axes.up);
    const double b = dot(from, axes.back);
    mostRight = std::max(mostRight, r + tangentX * b);
    mostLeft = std::min(mostLeft, r - tangentX * b);
    mostUp = std::max(mostUp, u + tangentY * b);
    mostDown = std::min(mostDown, u - tangentY * b);
    nearest = std::max(nearest, b);
  }
  // Nothing, or all of it at one place: a unit around it.
  if (mostRight <= mostLeft && mostUp <= mostDown) {
    mostRight = mostUp = 0.5;
    mostLeft = mostDown = -0.5;
    nearest = std::max(nearest, 0.5);
  }
  const double x = 0.5 * (mostRight + mostLeft);
  const double y = 0.5 * (mostUp + mostDown);
  const double halfWidth = 0.5 * (mostRight - mostLeft) * air;
  const double halfHeight = 0.5 * (mostUp - mostDown) * air;
  const double smallest = 1e-3 * diagonal;

  SoCamera* camera = nullptr;
  double distance = 0.0;
  if (perspective) {
    distance = std::max({halfWidth / tangentX, halfHeight / tangentY, nearest + smallest});
    auto* perspectiveCamera = new SoPerspectiveCamera;
    perspectiveCamera->heightAngle = heightAngle;
    camera = perspectiveCamera;
  } else {
    distance = nearest + diagonal;
    auto* parallelCamera = new SoOrthographicCamera;
    parallelCamera->height =
        static_cast<float>(2.0 * std::max({halfHeight, halfWidth / aspect, smallest}));
    camera = parallelCamera;
  }
  const Point eye = centre + x * axes.right + y * axes.up + distance * axes.back;
  camera->viewportMapping = SoCamera::LEAVE_ALONE;
  camera->aspectRatio = static_cast<float>(aspect);
  camera->position = ViewerFrame::fromModel(eye);
  camera->orientation = rotationOf(axes);
  camera->focalDistance = static_cast<float>(distance);
  return camera;
}

void ViewFraming::setDepthRange(SoCamera* camera, double reach) const {
  SbVec3f forward(0.0F, 0.0F, -1.0F);
  camera->orientation.getValue().multVec(forward, forward);
  const SbVec3f eye = camera->position.getValue();
  double nearest = std::numeric_limits<double>::infinity();
  double farthest = 0.0;
  for (const Point& point : framed) {
    const double depth = static_cast<double>((ViewerFrame::fromModel(point) - eye).dot(forward));
    // What stands beside or behind the eye does not count.
    if (depth > reach) nearest = std::min(nearest, depth);
    farthest = std::max(farthest, depth);
  }
  farthest = std::max(farthest + reach, 2.0 * reach);
  nearest = std::max(std::min(nearest, farthest) - reach, 1e-3 * farthest);
  camera->nearDistance = static_cast<float>(nearest);
  camera->farDistance = static_cast<float>(farthest * 1.05);
}
