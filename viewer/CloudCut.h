#pragma once

#include <Inventor/SbViewportRegion.h>

#include "host/model/Extents.h"
#include "host/model/Profile.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/hud/TarnOIDSMProfileHUD.h"
#include "viewer/CommandLine.h"

#include <memory>
#include <optional>
#include <vector>

class SoCamera;

namespace tarn {
class Project;
}  // namespace tarn

/// What a line that is drawn on the picture cuts out of dense clouds and meshes. All numbers
/// are in the model's unit.
struct CloudSection {
  double thickness = 0.0;                     ///< how far from the cut a point may be
  std::vector<tarn::Point3DDouble> points;    ///< of the model
  std::vector<tarn::Profile::Point> profile;  ///< the same points, by growing distance
  NodeRef<TarnOIDSMProfileHUD> line;          ///< shows what was drawn
};

/// Cuts the point meshes of a project by what is drawn on a picture of them, in fractions of the
/// picture: x to the right and y up, both from 0 to 1.
class CloudCut {
public:
  /// @param camera   which the picture is drawn through; it must outlive the cut
  /// @param extents  of the object
  /// @param picture  the picture's size
  CloudCut(SoCamera& camera, const tarn::Extents& extents, const SbViewportRegion& picture);

  /// Keeps the points that are seen inside the box, and the triangles of which all corners are
  /// (see PointMesh::KeepPoints). Returns how many points are left. Throws std::runtime_error,
  /// and leaves the meshes as they are, when there is none, or none would be left.
  int keepBox(tarn::Project& project, const CommandLine::Corners& box) const;

  /// The points that are near the plane that is seen as the line, and between the line's ends.
  /// Distances are horizontal, along the plane. They begin on the line of sight through the
  /// line's beginning, where that is next to the section's point that is seen nearest to it: a
  /// line of sight that leans crosses many distances. Throws std::runtime_error when there
  /// are no points, none in the section, or the plane is horizontal.
  /// @param thickness how far from the plane a point may be, on either side; without one, twice
  ///        the usual distance of neighbouring points
  CloudSection section(const tarn::Project& project, const CommandLine::Corners& line,
                       std::optional<double> thickness) const;

private:
  struct Pixel {
    int x = 0;
    int y = 0;
  };
  Pixel pixelAt(double x, double y) const;
  std::unique_ptr<tarn::Plane3D> planeThrough(TarnOIDSMProfileHUD& hud, Pixel a, Pixel b) const;

  SoCamera& camera;
  tarn::Extents extents;
  SbViewportRegion picture;
  SbViewportRegion drawn;  // the part of the picture that the camera draws into
};
