// Meshes of a million triangles: building them against a plain loop, and work on parts of a
// textured surface, which must grow with its size and no faster.
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoIndexedFaceSet.h>
#include <Inventor/nodes/SoNormal.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "bench/Building.h"
#include "bench/DenseFloors.h"
#include "bench/MeshNodes.h"
#include "bench/Subject.h"
#include "host/model/MatrixDouble.h"
#include "nodes/framework/TarnOITexture.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <malloc.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using bench::MeshProject;
using bench::OpenMeshNode;

constexpr const char* million = "1,000,000 triangles";

// A terrain, the node that shows it, and the floor's memory, which stays warm.
class Mesh {
public:
  explicit Mesh(int triangles) : model(MeshProject::ofTerrain(triangles)) {}

  void renew() {
    node.reset();
    malloc_trim(0);
    node = makeNode<OpenMeshNode>();
    node->SetTarnObject(&model->mesh, &model->nodes);
  }
  void build() { node->SetTriMeshData(&model->mesh); }
  void plainBuild() {
    floor.fill(*model->mesh.GetTriangles(), [](const tarn::ThreeDPoint& point, auto& position) {
      point.GetApproximationNoLocalAffine(position);
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
  std::unique_ptr<MeshProject> model;
  NodeRef<OpenMeshNode> node;
  bench::PlainFaces floor;
};

// A terrain that several photographs texture, its triangles dealt out to them in turn.
class TexturedSurface {
public:
  explicit TexturedSurface(int triangles) : model(MeshProject::ofTerrain(triangles)) {
    const tarn::VOrdCollect& all = *model->mesh.GetTriangles();
    count = all.size();
    for (int i = 0; i < count; ++i) {
      groups[static_cast<std::size_t>(i % groupCount)].add(all.at(i));
      corners.atKeyPut(all.at(i), &uv);
    }
    for (std::size_t g = 0; g < groupCount; ++g) {
      sets.add(&groups[g]);
      photographs[g] = makeNode<TarnOITexture>();
      photographs[g]->SetDictionary(&files);
      textures[g] = photographs[g].get();
    }
    for (int i = 0; i < count; i += tenth) selection.addIndex(i);
  }

  void build() {
    node.reset();
    malloc_trim(0);
    node = makeNode<OpenMeshNode>();
    tarn::VOrdCollect* allSets = &sets;
    node->SetTriangulatedPointMeshAndTextures(&model->mesh, &model->nodes, nullptr, nullptr,
                                              textures.data(), &allSets, &corners);
  }

  // The model's number of every triangle, from its face.
  void lookUp() {
    std::vector<SoNode*> faceSets;
    for (int i = 0; i < node->getNumChildren(); ++i) {
      if (node->getChild(i)->isOfType(SoIndexedFaceSet::getClassTypeId())) {
        faceSets.push_back(node->getChild(i));
      }
    }
    for (int i = 0; i < count; ++i) {
      const int found = node->GetTarnIndexOfSubTriangle(
          i / groupCount, faceSets[static_cast<std::size_t>(i % groupCount)]);
      if (found != i) throw std::runtime_error("a face was traced back to another triangle");
    }
  }
  void highlight() { node->HighlightSubTriangles(&selection); }
  void highlightTextured() { node->HighlightSubTrianglesMultiPhotoTexture(&selection); }

private:
  static constexpr int groupCount = 8;
  static constexpr int tenth = 10;

  std::unique_ptr<MeshProject> model;
  int count = 0;
  std::array<tarn::VOrdCollect, groupCount> groups;
  tarn::VOrdCollect sets;
  tarn::VDictionary files;
  std::array<NodeRef<TarnOITexture>, groupCount> photographs;  // without an image: nothing is drawn
  std::array<TarnOITexture*, groupCount> textures{};
  tarn::MatrixDouble uv{3, 2};
  tarn::VDictionary corners;
  tarn::VOrdCollect selection;
  NodeRef<OpenMeshNode> node;
};

const bench::Subject build("mesh-build", "building a mesh of triangles", [] {
  const auto mesh = std::make_shared<Mesh>(1'000'000);
  mesh->compare();
  return std::vector<bench::Row>{
      {.work = "build",
       .size = million,
       .ours = bench::timeAfter("ours", mesh, &Mesh::renew, &Mesh::build),
       .against = bench::timeOf("plain loop", [mesh] { mesh->plainBuild(); }),
       .target = 1.4},
      {.work = "build again",
       .size = million,
       .ours = bench::timeOf("ours", [mesh] { mesh->build(); }),
       .against = bench::timeOf("plain loop", [mesh] { mesh->plainBuild(); }),
       .target = 1.4}};
});

const bench::Subject parts(
    "mesh-parts", "parts of a surface of several textures, twice as many", [] {
      const auto whole = std::make_shared<TexturedSurface>(1'000'000);
      const auto half = std::make_shared<TexturedSurface>(500'000);
      const auto row = [&](std::string work, std::string size, void (TexturedSurface::*step)()) {
        return bench::Row{
            .work = std::move(work),
            .size = std::move(size),
            .ours = bench::timeAfter("ours", whole, &TexturedSurface::build, step),
            .against = bench::timeAfter("half of both", half, &TexturedSurface::build, step),
            .target = 2.3};
      };
      const std::string tenth = std::string("100,000 of ") + million;
      return std::vector<bench::Row>{
          row("trace faces back", million, &TexturedSurface::lookUp),
          row("highlight triangles", tenth, &TexturedSurface::highlight),
          row("highlight and keep textures", tenth, &TexturedSurface::highlightTextured)};
    });

}  // namespace
