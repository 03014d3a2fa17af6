#pragma once

#include <Eigen/Core>

#include "nodes/framework/NodeRef.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

class SoSeparator;

/// The object of the demo project: a painted vase and a patterned box on a plate with
/// signalised targets, standing on a table. All lengths are metres, Z is up, the origin is
/// the middle of the plate.
class DemoScene {
public:
  using Vector = Eigen::Vector3d;
  using Color = Eigen::Vector3d;  ///< red, green, blue, 0 to 1

  /// A place on the object.
  struct Place {
    Vector position;
    Vector normal;  ///< unit, outwards
  };
  /// A circular target, with its code ring or without.
  struct Target {
    Place place;
    int code = 0;  ///< 0 for a target without a code
  };

  /// Builds the object and paints it, sunlight and shadows included.
  DemoScene();

  const std::vector<Target>& targets() const { return allTargets; }

  /// Places spread evenly over the vase, the box and the plate, the same for the same seed.
  std::vector<Place> surfacePlaces(int count, std::uint64_t seed) const;

  /// Whether nothing of the object stands between the place and the eye, and the surface
  /// faces the eye enough to be measured there.
  bool isVisible(const Place& place, const Vector& eye) const;

  /// The object as a scene graph in its own coordinates, fully painted: it needs a camera
  /// and no light.
  NodeRef<SoSeparator> makeNodes() const;

private:
  using Position = std::function<Vector(double u, double v)>;
  using Paint = std::function<Color(double u, double v, const Vector& position)>;

  /// A surface over the unit square, its outer side where u turns to v anticlockwise.
  struct Patch {
    int columns = 1;  ///< of the mesh, along u
    int rows = 1;     ///< along v
    int textureWidth = 64;
    int textureHeight = 64;
    int measuredShare = 0;  ///< in how many of a hundred places it is measured
    Position position;
    Paint paint;
    std::vector<std::uint8_t> texture;  ///< red, green, blue; rows from v = 0
  };
  struct Triangle {
    Vector a, ab, ac;
  };
  /// Triangles that one sphere encloses, so that most rays pass by at the cost of one test.
  struct Body {
    Vector centre = Vector::Zero();
    double radius = 0.0;
    std::vector<Triangle> triangles;
  };

  void addTable();
  void addPlate();
  void addVase();
  void addBox();
  void addTarget(const Place& place);
  void addBody(std::size_t firstPatch);
  void light(Patch& patch) const;
  Color withTargets(const Color& color, const Vector& position) const;
  bool isBlocked(const Vector& from, const Vector& to) const;
  double sunlight(const Place& place) const;
  static Place placeAt(const Patch& patch, double u, double v);

  std::vector<Patch> patches;
  std::vector<Body> bodies;
  std::vector<Target> allTargets;
};
