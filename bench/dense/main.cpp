// Draws clouds and meshes with this library and with bare OpenGL, and tells what they cost. A
// program of its own, because what a first frame takes, whether Mesa rasterises (GALLIUM_NOOP)
// and what memory was taken can be told in a fresh process only.
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoNormal.h>

#include "bench/DenseShapes.h"
#include "bench/Memory.h"
#include "bench/MeshNodes.h"
#include "bench/Timing.h"
#include "bench/dense/BareOpenGL.h"
#include "bench/dense/CloudWork.h"
#include "bench/dense/DenseScene.h"

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <memory>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace {

using bench::MeshProject;
using bench::OpenMeshNode;
using bench::View;

// What is drawn: a cloud coloured by height, or a terrain of triangles. Bare OpenGL draws the
// terrain from the vertices that the node has, three for each triangle, or from shared ones.
class Subject {
public:
  Subject(std::string_view name, int count)
      : isCloud(name == "cloud"),
        shares(name == "shared-terrain"),
        model(isCloud ? MeshProject::ofCloud(count) : MeshProject::ofTerrain(count)) {
    if (isCloud) {
      node->SetPointCloudPointMesh(&model->mesh, &model->nodes);
      node->ColorPointsWithTexture(1, 2, &model->project);
    } else {
      node->SetTarnObject(&model->mesh, &model->nodes);
      node->SetTriMeshData(&model->mesh);
    }
  }

  View view(int frame) const { return isCloud ? View::ofCloud(frame) : View::ofTerrain(frame); }
  void showIn(bench::DenseScene& scene) const { scene.add(node.get()); }

  void showIn(bench::BareOpenGL& bare) const {
    std::vector<float> positions = floatsOf(bench::childOf<SoCoordinate3>(*node)->point);
    if (isCloud) {
      bare.setCloud(std::move(positions), colours());
    } else if (shares) {
      setSharedTerrain(bare);
    } else {
      bare.setMesh(std::move(positions), floatsOf(bench::childOf<SoNormal>(*node)->vector), {});
    }
  }

private:
  template <typename Field>
  static std::vector<float> floatsOf(const Field& field) {
    const float* values = field.getValues(0)->getValue();
    return {values, values + 3 * static_cast<std::ptrdiff_t>(field.getNum())};
  }

  // As bytes: what Coin hands to OpenGL.
  std::vector<std::uint8_t> colours() const {
    std::vector<std::uint8_t> bytes;
    int component = 0;
    for (const float value : floatsOf(bench::childOf<SoMaterial>(*node)->diffuseColor)) {
      bytes.push_back(static_cast<std::uint8_t>(std::lround(value * 255.0F)));
      if (++component % 3 == 0) bytes.push_back(255);
    }
    return bytes;
  }

  void setSharedTerrain(bench::BareOpenGL& bare) const {
    const bench::Terrain data = bench::terrain(model->mesh.GetNumTriangles());
    std::vector<float> positions;
    std::vector<float> normals;
    std::vector<std::uint32_t> corners;
    for (std::size_t i = 0; i < data.normals.size(); ++i) {
      const float* position = &data.positions[3 * i];
      const auto& [x, y, z] = data.normals[i];
      for (const float value : {position[0], position[2], -position[1]}) positions.push_back(value);
      for (const double value : {x, z, -y}) normals.push_back(static_cast<float>(value));
    }
    for (const auto& triangle : data.triangles) {
      for (const int corner : triangle) corners.push_back(static_cast<std::uint32_t>(corner));
    }
    bare.setMesh(std::move(positions), std::move(normals), std::move(corners));
  }

  bool isCloud;
  bool shares;
  std::unique_ptr<MeshProject> model;
  NodeRef<OpenMeshNode> node = makeNode<OpenMeshNode>();
};

// Milliseconds of the first frame, and of `later` ones where there are some. What the driver takes
// for itself is taken before.
template <typename Side>
void tellAlone(const Subject& subject, Side& side, int later) {
  int frame = 0;
  const auto next = [&] {
    return 1e3 * bench::secondsOf([&] { side.draw(subject.view(frame++)); });
  };
  for (int i = 0; i < 3; ++i) next();
  subject.showIn(side);
  std::cout << "first_ms " << next() << '\n';
  if (later < 1) return;
  next();
  next();
  std::vector<double> steady;
  for (int i = 0; i < later; ++i) steady.push_back(next());
  std::cout << "steady_ms " << bench::medianOf(steady) << '\n';
}

// Both must have drawn the same, or their times say nothing.
void compare(const Picture& ours, const Picture& bare) {
  std::size_t different = 0;
  std::size_t drawn = 0;
  for (std::size_t i = 0; i < ours.bytes.size(); ++i) {
    different += std::abs(ours.bytes[i] - bare.bytes[i]) > 2;
    drawn += ours.bytes[i] != 0;
  }
  if (1000 * different > drawn) {
    throw std::runtime_error("bare OpenGL draws another picture: " + std::to_string(different) +
                             " of " + std::to_string(drawn) + " bytes differ");
  }
}

// Milliseconds of later frames, the two sides in turn.
void tellBoth(const Subject& subject) {
  bench::DenseScene scene;
  bench::BareOpenGL bare;
  subject.showIn(scene);
  subject.showIn(bare);
  compare(scene.render(subject.view(0)), (bare.draw(subject.view(0)), bare.read()));
  std::vector<double> ours;
  std::vector<double> floor;
  for (int frame = 1; frame < 9; ++frame) {
    ours.push_back(bench::secondsOf([&] { scene.draw(subject.view(frame)); }));
    floor.push_back(bench::secondsOf([&] { bare.draw(subject.view(frame)); }));
  }
  std::cout << "ours_ms " << 1e3 * bench::medianOf(ours) << "\nbare_ms "
            << 1e3 * bench::medianOf(floor) << '\n';
}

// Bytes that building and colouring allocate for a point: those for twice as many points less
// those for so many, so that the nodes themselves, of any cloud, do not count.
void tellMemory(int count) {
  std::vector<double> positions;
  std::vector<double> colours;
  for (const int points : {count, 2 * count}) {
    const auto model = MeshProject::ofCloud(points);
    const auto node = makeNode<OpenMeshNode>();
    const double before = bench::allocatedBytes();
    node->SetPointCloudPointMesh(&model->mesh, &model->nodes);
    const double built = bench::allocatedBytes();
    node->ColorPointsWithTexture(1, 2, &model->project);
    positions.push_back(built - before);
    colours.push_back(bench::allocatedBytes() - built);
  }
  std::cout << "position_bytes " << (positions[1] - positions[0]) / count << "\ncolour_bytes "
            << (colours[1] - colours[0]) / count << '\n';
}

// Our side of what the peers do.
class OurCloud : public bench::CloudWork {
protected:
  void prepare() override { model = MeshProject::ofCloud(count()); }
  void build() override {
    node = makeNode<OpenMeshNode>();
    node->SetPointCloudPointMesh(&model->mesh, &model->nodes);
  }
  void colour() override { node->ColorPointsWithTexture(1, 2, &model->project); }
  void drop() override { node.reset(); }

  bool open() override {
    scene.emplace();
    return true;
  }
  void draw(const View& view) override {
    if (node && !shown) {
      scene->add(node.get());
      shown = true;
    }
    scene->draw(view);
  }

private:
  std::unique_ptr<MeshProject> model;
  NodeRef<OpenMeshNode> node;
  std::optional<bench::DenseScene> scene;
  bool shown = false;
};

// 2 when the command line makes no sense.
int run(const std::vector<std::string>& words) {
  const std::string& what = words[0];
  const auto number = [&words](std::size_t word) { return std::atoi(words[word].c_str()); };
  if (what == "memory" && words.size() == 2) {
    tellMemory(number(1));
  } else if (what == "both" && words.size() == 3) {
    tellBoth(Subject(words[1], number(2)));
  } else if (what == "alone" && words.size() == 5) {
    const Subject subject(words[1], number(3));
    if (words[2] == "ours") {
      bench::DenseScene scene;
      tellAlone(subject, scene, number(4));
    } else {
      bench::BareOpenGL bare;
      tellAlone(subject, bare, number(4));
    }
  } else {
    return 2;
  }
  return 0;
}

}  // namespace

int main(int argc, char** argv) {
  if (argc == 3 && std::string_view(argv[1]) == "work") return OurCloud().run(argc - 1, argv + 1);
  int status = 2;
  try {
    if (argc > 1) status = run({argv + 1, argv + argc});
  } catch (const std::exception& problem) {
    std::cerr << problem.what() << '\n';
    return 1;
  }
  if (status == 2) {
    std::cerr << "usage: tarn_bench_dense alone SUBJECT ours|bare COUNT LATER-FRAMES\n"
                 "       tarn_bench_dense both SUBJECT COUNT\n"
                 "       tarn_bench_dense memory COUNT\n"
                 "       tarn_bench_dense work COUNT\n"
                 "SUBJECT is cloud, terrain or shared-terrain.\n";
  }
  return status;
}
