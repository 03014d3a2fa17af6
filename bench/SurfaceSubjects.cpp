// Surfaces of many triangles, and of many sets, against plain loops and against half as much.
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoNormal.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "bench/Building.h"
#include "bench/DenseFloors.h"
#include "bench/DenseShapes.h"
#include "bench/MeshNodes.h"
#include "bench/PointNodes.h"
#include "bench/Subject.h"
#include "host/model/TessellatedSurface.h"
#include "nodes/surfaces/TarnOINurbsSurfaceSeparator.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <malloc.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// A terrain as a surface of equally large sets, the node that shows it, and the floor's memory,
// which stays warm.
class Tessellated {
public:
  Tessellated(int triangles, int sets) {
    bench::initialiseNodes();
    const bench::Terrain data = bench::terrain(triangles);
    std::vector<tarn::ThreeDPoint*> points;
    for (std::size_t i = 0; i < data.positions.size(); i += 3) {
      points.push_back(
          &surface.AddPoint({data.positions[i], data.positions[i + 1], data.positions[i + 2]}));
    }
    std::vector<const tarn::Point3DDouble*> normals;
    for (const auto& [x, y, z] : data.normals) normals.push_back(&surface.AddNormal({x, y, z}));
    const std::size_t inASet = data.triangles.size() / static_cast<std::size_t>(sets);
    int set = -1;
    for (std::size_t t = 0; t < data.triangles.size(); ++t) {
      if (t % inASet == 0 && set + 1 < sets) set = surface.AddTriangleSet();
      const auto corner = [&](std::size_t k) {
        return static_cast<std::size_t>(data.triangles[t][k]);
      };
      tarn::Triangle& triangle =
          surface.AddTriangle(set, points[corner(0)], points[corner(1)], points[corner(2)]);
      for (int k = 0; k < 3; ++k) {
        triangle.SetNormal(k, normals[corner(static_cast<std::size_t>(k))]);
      }
    }
  }

  void renew() {
    node.reset();
    malloc_trim(0);
    node = makeNode<TarnOINurbsSurfaceSeparator>();
  }
  void build() {
    tarn::VOrdCollect* sets = surface.GetTriangleSets();
    node->SetNurbsSurface(&surface, &nodes, hints.get(), hints.get(), nullptr, &sets, nullptr);
  }
  void plainBuild() {
    floor.fill(*surface.GetTriangles(), [](const tarn::ThreeDPoint& point, auto& position) {
      tarn::Point3DRandom approximation;
      point.GetApproximation(approximation);
      position = approximation.position();
    });
  }

  // The times of both say nothing unless both compute the same.
  void compare() {
    renew();
    build();
    plainBuild();
    bench::expectSame(bench::childOf<SoCoordinate3>(*node)->point, floor.positions);
    bench::expectSame(bench::childOf<SoNormal>(*node)->vector, floor.normals);
    bench::expectSame(bench::childOf<SoIndexedFaceSet>(*node)->coordIndex, floor.indexes);
  }

private:
  tarn::TessellatedSurface surface;
  tarn::VDictionary nodes;
  NodeRef<SoShapeHints> hints = makeNode<SoShapeHints>();
  NodeRef<TarnOINurbsSurfaceSeparator> node;
  bench::PlainFaces floor;
};

const bench::Subject build("surface-build", "building a tessellated surface", [] {
  const auto surface = std::make_shared<Tessellated>(1'000'000, 1);
  surface->compare();
  const auto row = [&surface](std::string work, bench::Measure ours) {
    return bench::Row{.work = std::move(work),
                      .size = "1,000,000 triangles",
                      .ours = std::move(ours),
                      .against = bench::timeOf("plain loop", [surface] { surface->plainBuild(); }),
                      .target = 1.5};
  };
  return std::vector<bench::Row>{
      row("build", bench::timeAfter("ours", surface, &Tessellated::renew, &Tessellated::build)),
      row("build again", bench::timeOf("ours", [surface] { surface->build(); }))};
});

const bench::Subject sets("surface-sets", "a surface of many untextured sets, twice as many", [] {
  const auto whole = std::make_shared<Tessellated>(80'000, 40'000);
  const auto half = std::make_shared<Tessellated>(40'000, 20'000);
  return std::vector<bench::Row>{
      {.work = "build",
       .size = "40,000 sets",
       .ours = bench::timeAfter("ours", whole, &Tessellated::renew, &Tessellated::build),
       .against = bench::timeAfter("half of them", half, &Tessellated::renew, &Tessellated::build),
       .target = 2.3}};
});

}  // namespace
