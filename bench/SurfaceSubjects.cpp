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
#include "host/general/assertError.h"
#include "host/model/SurfaceGroup.h"
#include "host/model/TessellatedSurface.h"
#include "nodes/surfaces/TarnOINurbsSurfaceSeparator.h"
#include "nodes/surfaces/TarnOISurfaceSeparator.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <malloc.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace {

// A terrain as a surface of equally large sets, the node that shows it, and the floor's memory,
// which stays warm.
class Tessellated {
public:
  Tessellated(int triangles, int sets) {
    bench::initialiseNodes();
    hints = makeNode<SoShapeHints>();
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
  NodeRef<SoShapeHints> hints;
  NodeRef<TarnOINurbsSurfaceSeparator> node;
  bench::PlainFaces floor;
};

// A terrain as a surface group, whose points are shared, and the floor: the same arrays written
// by a loop that knows each corner's vertex beforehand.
// @tparam Surface the host's class
template <typename Surface>
class Group {
public:
  explicit Group(int triangles) {
    bench::initialiseNodes();
    hints = makeNode<SoShapeHints>();
    const bench::Terrain data = bench::terrain(triangles);
    points.resize(data.positions.size() / 3);
    for (std::size_t i = 0; i < points.size(); ++i) {
      const float* at = data.positions.data() + 3 * i;
      points[i].SetApproximation(tarn::Point3DRandom({at[0], at[1], at[2]}));
    }
    for (const std::array<int, 3>& corners : data.triangles) {
      const auto point = [&](std::size_t k) {
        return &points[static_cast<std::size_t>(corners[k])];
      };
      surface.AddElement(point(0), point(1), point(2));
    }
    vertices.reset(surface.GetVertices(nullptr));
    std::unordered_map<const tarn::VObject*, std::int32_t> vertexOf;
    for (int i = 0; i < vertices->size(); ++i) vertexOf[vertices->at(i)] = i;
    for (const std::array<int, 3>& corners : data.triangles) {
      for (const int corner : corners) {
        prepared.push_back(vertexOf.at(&points[static_cast<std::size_t>(corner)]));
      }
    }
  }

  void renew() {
    node.reset();
    malloc_trim(0);
    node = makeNode<TarnOISurfaceSeparator>();
  }
  void set() {
    // Its mark on entry goes to standard error.
    const auto quiet = tarn::setAssertHandler([](const char*, const char*, int) {});
    node->SetSurface(&surface, &nodes, nullptr, hints.get(), hints.get());
    tarn::setAssertHandler(quiet);
  }
  void plainSetAnew() {
    positions = {};
    indexes = {};
    plainSet();
  }
  void plainSet() {
    positions.resize(3 * static_cast<std::size_t>(vertices->size()));
    indexes.resize(prepared.size() / 3 * 4);
    const tarn::Point3DDouble offset = tarn::gThreeDViewOffset;
    float* position = positions.data();
    tarn::Point3DRandom approximation;
    for (int i = 0; i < vertices->size(); ++i, position += 3) {
      static_cast<const tarn::ThreeDPoint*>(vertices->at(i))->GetApproximation(approximation);
      const tarn::Point3DDouble point = approximation.position();
      position[0] = static_cast<float>(point.x - offset.x);
      position[1] = static_cast<float>(point.z - offset.z);
      position[2] = static_cast<float>(-(point.y - offset.y));
    }
    std::int32_t* index = indexes.data();
    for (std::size_t i = 0; i < prepared.size(); i += 3) {
      index = std::copy_n(prepared.data() + i, 3, index);
      *index++ = -1;
    }
  }

  // The times of both say nothing unless both compute the same.
  void compare() {
    renew();
    set();
    plainSet();
    bench::expectSame(bench::childOf<SoCoordinate3>(*node)->point, positions);
    bench::expectSame(bench::childOf<SoIndexedFaceSet>(*node)->coordIndex, indexes);
  }

private:
  std::vector<tarn::ThreeDPoint> points;
  Surface surface;
  std::unique_ptr<tarn::VOrdCollect> vertices;
  std::vector<std::int32_t> prepared;  // of each corner
  tarn::VDictionary nodes;
  NodeRef<SoShapeHints> hints;
  NodeRef<TarnOISurfaceSeparator> node;
  std::vector<float> positions;
  std::vector<std::int32_t> indexes;
};

// A host's own class: what this library's knows of its corners has to be looked up.
class HostsGroup : public tarn::SurfaceGroup {};

template <typename Surface>
bench::Measure setAnew(std::string name, const std::shared_ptr<Group<Surface>>& group) {
  return bench::timeAfter(std::move(name), group, &Group<Surface>::renew, &Group<Surface>::set);
}

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

const bench::Subject groups("surface-group", "setting a surface group of shared points", [] {
  const auto whole = std::make_shared<Group<tarn::SurfaceGroup>>(400'000);
  const auto half = std::make_shared<Group<tarn::SurfaceGroup>>(200'000);
  const auto hosts = std::make_shared<Group<HostsGroup>>(400'000);
  const auto halfOfHosts = std::make_shared<Group<HostsGroup>>(200'000);
  whole->compare();
  hosts->compare();
  const auto row = [](std::string work, bench::Measure ours, bench::Measure against,
                      double target) {
    return bench::Row{.work = std::move(work),
                      .size = "400,000 triangles",
                      .ours = std::move(ours),
                      .against = std::move(against),
                      .target = target};
  };
  return std::vector<bench::Row>{
      row("set", setAnew("ours", whole),
          bench::timeOf("loop, new memory", [whole] { whole->plainSetAnew(); }), 2),
      row("set again", bench::timeOf("ours", [whole] { whole->set(); }),
          bench::timeOf("plain loop", [whole] { whole->plainSet(); }), 2),
      row("set, twice as many", setAnew("ours", whole), setAnew("half of them", half), 2.3),
      row("the same of a host's class", setAnew("ours", hosts),
          setAnew("half of them", halfOfHosts), 2.3)};
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
