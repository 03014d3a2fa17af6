#pragma once

#include "host/general/Colour.h"
#include "host/general/Point3DDouble.h"

#include <array>
#include <cstddef>
#include <string>
#include <vector>

namespace tarn {

/// What a file of surfaces says, as it stands in the file: points, texture coordinates and
/// normals, which corners name by their index from 0, and triangles between such corners.
struct SurfaceModel {
  struct Corner {
    int point = 0;
    int uv = -1;      ///< -1 for none
    int normal = -1;  ///< likewise
  };
  using Triangle = std::array<Corner, 3>;

  /// The triangles of one object that have one material.
  struct Set {
    int material = -1;  ///< -1 for none
    std::vector<Triangle> triangles;
  };
  struct Object {
    std::string name;  ///< empty where the file has none
    std::vector<Set> sets;
  };
  /// As long as nothing is known about it, light grey.
  struct Material {
    std::string name;
    Colour ambient{51, 51, 51};
    Colour diffuse{204, 204, 204};
    Colour specular;
    Colour emissive;
    double shininess = 0.2;  ///< 0 to 1
    std::string texture;     ///< a file as it is named in the file; empty for none
  };

  std::vector<Point3DDouble> points;
  std::vector<std::array<double, 2>> uvs;  ///< u to the right and v up
  std::vector<Point3DDouble> normals;      ///< of any length; zero where there is none
  std::vector<Object> objects;
  std::vector<Material> materials;

  std::size_t triangleCount() const {
    std::size_t count = 0;
    for (const Object& object : objects) {
      for (const Set& set : object.sets) count += set.triangles.size();
    }
    return count;
  }
};

}  // namespace tarn
