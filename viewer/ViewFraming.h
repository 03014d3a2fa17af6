#pragma once

#include <Inventor/SbRotation.h>

#include "host/general/Point3DDouble.h"
#include "host/model/Extents.h"
#include "viewer/CommandLine.h"

#include <vector>

class SoCamera;
class SoOrthographicCamera;
class SoPerspectiveCamera;

namespace tarn {
class Project;
}

/// Where to look from so that the whole object is well in the picture.
///
/// Boxes are robust: a few outliers among thousands of points must not shrink all the rest
/// to a speck. Everything here is in model coordinates except cameras, which are in the
/// viewer frame.
class ViewFraming {
public:
  /// Looks at the project's object points, oriented stations, imported lines and curves, at point
  /// meshes, and at the triangles of imported surfaces, NURBS surfaces and cylinders (of large ones
  /// at every so manyth point or triangle, and the triangles that reach farthest).
  explicit ViewFraming(const tarn::Project& project);

  /// The box of the object points and meshes without outliers, and of surfaces, lines and curves;
  /// of the stations when there is none of these.
  const tarn::Extents& objectExtents() const { return extents; }
  /// The length of that box's diagonal; 1 when it has none.
  double objectDiagonal() const { return diagonal; }

  /// Typical distance from a station to the nearest other one; 0 with fewer than two.
  double stationSpacing() const { return spacing; }

  /// Has the views hold this point, too.
  void include(const tarn::Point3DDouble& point) { framed.push_back(point); }

  /// The three directions of a view, of unit length and at right angles.
  struct Axes {
    tarn::Point3DDouble right, up, back;
  };
  /// The axes of a view other than eStation. Z is up, front looks along Y, right against
  /// X, top down; where the stations contradict that (they stand upright about another
  /// direction, and do not look down along Z), up is what is up for the stations, and front
  /// looks the way they do.
  Axes axes(CommandLine::View view) const;
  /// Whether up is Z.
  bool isZUp() const { return upright().up.z > 0.999; }

  /// A camera for the view that holds points and stations, with some air around: a
  /// perspective one for iso, parallel ones for the others. `aspect` is width by height of
  /// the picture. The caller owns the node (its reference count is 0).
  SoCamera* makeCamera(CommandLine::View view, double aspect) const;

  /// Sets near and far so that they hold the object and the stations in front of the
  /// camera; `reach` is by how much symbols stand out around them.
  void setDepthRange(SoCamera* camera, double reach) const;

private:
  Axes upright() const;

  tarn::Extents extents;
  double diagonal = 1.0;
  double spacing = 0.0;
  std::vector<tarn::Point3DDouble> framed;  // inliers and stations
  tarn::Point3DDouble meanUp;               // of the stations; shorter the less they agree
  tarn::Point3DDouble meanBack;
};
