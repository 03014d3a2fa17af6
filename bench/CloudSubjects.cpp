// Clouds of millions of points: building, colouring and highlighting them, against plain loops
// over the same points into warm memory.
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoMaterial.h>

#include "bench/Companion.h"
#include "bench/DenseFloors.h"
#include "bench/MeshNodes.h"
#include "bench/Subject.h"

#include <cstddef>
#include <functional>
#include <malloc.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

using bench::MeshProject;
using bench::OpenMeshNode;

struct Size {
  int points;
  const char* text;
};
constexpr Size sizes[] = {{1'000'000, "1,000,000 points"},
                          {5'000'000, "5,000,000 points"},
                          {20'000'000, "20,000,000 points"}};

// A cloud, the node that shows it, and the floors' memory, which stays warm.
class Cloud {
public:
  explicit Cloud(int points) : model(MeshProject::ofCloud(points)) {
    for (int i = 0; i < points; i += 10) {
      selected.push_back(i);
      selection.addIndex(i);
    }
    model->mesh.GetBoundingBox(lowest, highest, nullptr, 1);
  }

  // A node without memory of its own: what the last one had goes back to the system.
  void renew() {
    node.reset();
    malloc_trim(0);
    node = makeNode<OpenMeshNode>();
    node->SetSubHighlightColor(255, 0, 0);
  }
  const OpenMeshNode& shown() const { return *node; }
  const std::vector<float>& plain() const { return floor; }

  void build() { node->SetPointCloudPointMesh(&mesh(), &model->nodes); }
  void colourByHeight() { node->ColorPointsWithTexture(1, 2, &model->project); }
  void colourTruly() { node->ColorPointsWithTexture(1, 1, &model->project); }
  void highlight() { node->HighlightSubPoints(&selection); }

  void plainBuild() { bench::plainPositions(mesh().GetPoints(), count(), floor); }
  void plainHeights() {
    bench::plainHeightColours(mesh().GetPoints(), count(), lowest.z, highest.z, floor);
  }
  void routineHeights() {
    bench::routineHeightColours(mesh().GetPoints(), count(), lowest.z, highest.z, floor);
  }
  void plainTrueColours() { bench::plainTrueColours(mesh().GetRGBsForPoints(), count(), floor); }
  void plainHighlight() {
    bench::plainSelection(mesh().GetRGBsForPoints(), count(), selected, {1, 0, 0}, floor);
  }

private:
  tarn::PointMesh& mesh() const { return model->mesh; }
  int count() const { return mesh().GetNumPoints(); }

  std::unique_ptr<MeshProject> model;
  NodeRef<OpenMeshNode> node;
  std::vector<int> selected;  // every tenth point
  tarn::VOrdCollect selection;
  tarn::Point3DDouble lowest;
  tarn::Point3DDouble highest;
  std::vector<float> floor;
};
using SharedCloud = std::shared_ptr<Cloud>;
using Step = std::function<void(Cloud&)>;

// The work of a step of ours and of the plain loop that computes the same.
struct Work {
  std::string first;
  std::string again;
  Step before;  // what the node needs, not counted
  Step ours;
  Step plain;
  std::function<const float*(const OpenMeshNode&)> result;
};

const float* positionsOf(const OpenMeshNode& node) {
  return bench::childOf<SoCoordinate3>(node)->point.getValues(0)->getValue();
}

// Of the first material: there is no other, or it is the one behind the first that counts.
const float* coloursOf(const OpenMeshNode& node) {
  const float* colours = nullptr;
  for (int i = 0; i < node.getNumChildren(); ++i) {
    if (!node.getChild(i)->isOfType(SoMaterial::getClassTypeId())) continue;
    colours = static_cast<SoMaterial*>(node.getChild(i))->diffuseColor.getValues(0)->getValue();
  }
  return colours;
}

// The times of both say nothing unless both compute the same.
void compare(const Work& work, Cloud& cloud, const Step& plain) {
  cloud.renew();
  work.before(cloud);
  work.ours(cloud);
  plain(cloud);
  const float* values = work.result(cloud.shown());
  for (std::size_t i = 0; i < cloud.plain().size(); ++i) {
    if (values[i] != cloud.plain()[i]) {
      throw std::runtime_error(work.first + ": value " + std::to_string(i) + " is " +
                               std::to_string(values[i]) + ", and not " +
                               std::to_string(cloud.plain()[i]));
    }
  }
}

// The time of a step on a new node.
bench::Measure firstTime(const Work& work, const SharedCloud& cloud) {
  return {.name = "ours",
          .time =
              [work, cloud](benchmark::State& state) {
                for ([[maybe_unused]] auto _ : state) {
                  state.PauseTiming();
                  cloud->renew();
                  work.before(*cloud);
                  state.ResumeTiming();
                  work.ours(*cloud);
                }
              },
          .figure = {}};
}

// The time of the same step once more.
bench::Measure secondTime(const Work& work, const SharedCloud& cloud) {
  return {.name = "ours",
          .time =
              [work, cloud](benchmark::State& state) {
                cloud->renew();
                work.before(*cloud);
                work.ours(*cloud);
                for ([[maybe_unused]] auto _ : state) work.ours(*cloud);
              },
          .figure = {}};
}

std::vector<bench::Row> rowsOf(const std::vector<Work>& works) {
  std::vector<bench::Row> rows;
  for (const auto& [points, size] : sizes) {
    const auto cloud = std::make_shared<Cloud>(points);
    for (const Work& work : works) {
      compare(work, *cloud, work.plain);
      const bench::Measure plain =
          bench::timeOf("plain loop", [work, cloud] { work.plain(*cloud); });
      rows.push_back({.work = work.first,
                      .size = size,
                      .ours = firstTime(work, cloud),
                      .against = plain,
                      .target = 2.0});
      rows.push_back({.work = work.again,
                      .size = size,
                      .ours = secondTime(work, cloud),
                      .against = plain,
                      .target = 1.15});
    }
  }
  return rows;
}

const bench::Subject build("cloud-build", "building a point cloud", [] {
  return rowsOf({{.first = "build",
                  .again = "build again",
                  .before = [](Cloud&) {},
                  .ours = &Cloud::build,
                  .plain = &Cloud::plainBuild,
                  .result = positionsOf}});
});

const bench::Subject colour("cloud-colour", "colouring the points of a cloud", [] {
  const Work byHeight{.first = "colour by height",
                      .again = "colour by height again",
                      .before = &Cloud::build,
                      .ours = &Cloud::colourByHeight,
                      .plain = &Cloud::plainHeights,
                      .result = coloursOf};
  Cloud cloud(sizes[0].points);
  compare(byHeight, cloud, &Cloud::routineHeights);
  return rowsOf({byHeight,
                 {.first = "colour truly",
                  .again = "colour truly again",
                  .before = &Cloud::build,
                  .ours = &Cloud::colourTruly,
                  .plain = &Cloud::plainTrueColours,
                  .result = coloursOf}});
});

const bench::Subject highlight("cloud-highlight", "highlighting points of a cloud", [] {
  return rowsOf({{.first = "highlight every tenth point",
                  .again = "highlight again",
                  .before = &Cloud::build,
                  .ours = &Cloud::highlight,
                  .plain = &Cloud::plainHighlight,
                  .result = coloursOf}});
});

const bench::Subject memory("cloud-memory", "what a point takes in the scene", [] {
  const auto bytes = [](std::string work, const char* figure) {
    return bench::Row{
        .work = std::move(work),
        .size = "a point",
        .ours = bench::figureOf(
            "ours",
            [figure] {
              return bench::Companion("tarn_bench_dense").figures({"memory", "1048576"}).at(figure);
            }),
        .against = {},
        .target = 12,
        .unit = "bytes",
        .repetitions = 1};
  };
  return std::vector<bench::Row>{bytes("memory for positions", "position_bytes"),
                                 bytes("memory for colours", "colour_bytes")};
});

}  // namespace
