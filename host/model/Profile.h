#pragma once

#include "host/TarnOIHostExport.h"
#include "host/general/Point3DDouble.h"
#include "host/model/Plane3D.h"

#include <vector>

namespace tarn {

class PointMesh;

/// The profile of dense points along a cutting plane: those near the plane, told by how far
/// along the cut they are and how high. All in model coordinates and the model's unit.
///
///     Profile profile(plane, from, to, 0.25);
///     for (...) profile.Add(mesh);
///     for (const Profile::Point& point : profile.GetPoints()) ...
class TARN_HOST_EXPORT Profile {
public:
  struct Point {
    double distance = 0.0;  ///< along the cut, horizontally
    double height = 0.0;    ///< z
  };

  /// @param plane     the cutting plane, upright or leaning, but not horizontal
  /// @param from      where along the cut distances begin
  /// @param to        where they grow towards
  /// @param thickness how far from the plane, on either side, a point may be
  Profile(const Plane3D& plane, const Point3DDouble& from, const Point3DDouble& to,
          double thickness);

  /// Whether there is a cut: 0 for a horizontal plane, along which no direction leads.
  int IsUsable() const { return _usable; }

  /// Adds the mesh's points near the plane, and returns how many. Points with a coordinate that
  /// is not finite are left out. Linear.
  int Add(const PointMesh& mesh);
  /// Adds a point of the model if it is near the plane and finite. Returns whether it is.
  int Add(const Point3DDouble& point);

  /// The points, by growing distance.
  const std::vector<Point>& GetPoints() const;

private:
  Plane3D _plane;
  Point3DDouble _from;
  Point3DDouble _direction;
  double _thickness;
  bool _usable = false;
  mutable bool _sorted = true;
  mutable std::vector<Point> _points;
};

}  // namespace tarn
