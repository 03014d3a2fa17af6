#include "viewer/layers/MeshLayer.h"

#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMaterialBinding.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoShapeHints.h>

#include "host/model/Project.h"
#include "io/ReadProgress.h"
#include "nodes/framework/HeightRamp.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/meshes/PointColours.h"
#include "nodes/meshes/TarnOIPointMeshSeparator.h"
#include "viewer/layers/SceneContext.h"

#include <algorithm>

namespace {

const SbColor uncoloured(0.80F, 0.78F, 0.72F);

}  // namespace

MeshLayer::MeshLayer(tarn::Project& project, std::optional<Color> color, SceneContext& context)
    : SceneLayer("Point meshes", context), project(project) {
  auto* material = new SoMaterial;
  material->diffuseColor = uncoloured;
  separator->addChild(material);
  auto* style = new SoDrawStyle;
  separator->addChild(style);
  const tarn::VOrdCollect& all = project.GetPointMeshes();
  tarn::ReadProgress progress(context.progress, "point meshes");
  int points = 0;
  for (int i = 0; i < all.size(); ++i) {
    auto& mesh = *static_cast<tarn::PointMesh*>(all.at(i));
    if (mesh.GetNumPoints() == 0) continue;
    meshes.push_back(mesh.GetNumTriangles() > 0 ? addSurface(mesh) : addCloud(mesh));
    points = std::max(points, mesh.GetNumPoints());
    progress.at(static_cast<double>(i) / all.size());
  }
  style->pointSize = pointSize(points);
  setColor(color);
}

MeshLayer::~MeshLayer() = default;

float MeshLayer::pointSize(int points) {
  return points < 20'000 ? 4.0F : points < 200'000 ? 3.0F : points < 2'000'000 ? 2.0F : 1.0F;
}

MeshLayer::Shown MeshLayer::addCloud(tarn::PointMesh& mesh) {
  auto* node = new TarnOIPointMeshSeparator;
  separator->addChild(node);
  node->SetPointCloudPointMesh(&mesh, &context.objects);
  return {&mesh, node, nullptr, nullptr};
}

MeshLayer::Shown MeshLayer::addSurface(tarn::PointMesh& mesh) {
  auto* surroundings = new SoSeparator;
  separator->addChild(surroundings);
  auto* hints = new SoShapeHints;
  // Lit from both sides: which way a scan's triangles turn cannot be relied on.
  hints->vertexOrdering = SoShapeHints::COUNTERCLOCKWISE;
  hints->creaseAngle = 0.8F;
  surroundings->addChild(hints);
  auto* corners = new SoMaterial;
  surroundings->addChild(corners);
  auto* binding = new SoMaterialBinding;
  surroundings->addChild(binding);
  auto* node = new TarnOIPointMeshSeparator;
  surroundings->addChild(node);
  tarn::VOrdCollect group;
  group.add(mesh.GetTriangles());
  tarn::VOrdCollect* groups = &group;
  node->SetTriangulatedPointMeshAndTextures(&mesh, &context.objects, nullptr, nullptr, nullptr,
                                            &groups, nullptr);
  return {&mesh, node, corners, binding};
}

void MeshLayer::setColor(std::optional<Color> color) {
  asked = color;
  colorNotes.clear();
  if (color && project.GetPointMeshes().size() == 0) {
    colorNotes.push_back("there is no dense cloud or mesh to colour; --cloud FILE names one");
  }
  heightsShown = false;
  for (const Shown& shown : meshes) {
    const Color kind = colorOf(*shown.mesh);
    heightsShown = heightsShown || kind == Color::eHeight;
    if (shown.corners) {
      colorSurface(shown, kind);
    } else {
      const int byHeight = 2;
      shown.node->ColorPointsWithTexture(kind != Color::eNone,
                                         kind == Color::eHeight ? byHeight : 1, &project);
    }
  }
}

MeshLayer::Color MeshLayer::colorOf(const tarn::PointMesh& mesh) {
  const bool hasOwn = mesh.GetRGBsForPoints() != nullptr;
  if (!asked) {
    return hasOwn ? Color::eRgb : mesh.GetNumTriangles() > 0 ? Color::eNone : Color::eHeight;
  }
  if (*asked == Color::eRgb && !hasOwn) {
    colorNotes.push_back("\"" + mesh.GetName().str() +
                         "\" has no colours of its own; --color height shows it by height");
    return Color::eNone;
  }
  return *asked;
}

// The node leaves surfaces as they are. Its face set has the corners of triangle t at
// 3 t, 3 t + 1 and 3 t + 2, and so has the material.
void MeshLayer::colorSurface(const Shown& shown, Color color) {
  const tarn::PointMesh& mesh = *shown.mesh;
  SoMFColor& colors = shown.corners->diffuseColor;
  shown.binding->value =
      color == Color::eNone ? SoMaterialBinding::OVERALL : SoMaterialBinding::PER_VERTEX_INDEXED;
  if (color == Color::eNone) {
    colors.setValue(uncoloured);
    return;
  }
  std::vector<SbColor> ofPoints(static_cast<std::size_t>(mesh.GetNumPoints()));
  if (color == Color::eRgb) {
    unsigned char** own = mesh.GetRGBsForPoints();
    PointColours().copy([own](int i) { return own[i]; }, ofPoints.data(), mesh.GetNumPoints());
  } else {
    tarn::Extents extents;
    project.GetPointMeshExtents(extents, nullptr);
    tarn::Point3DDouble low;
    tarn::Point3DDouble high;
    extents.GetExtents(low, high);
    float** points = mesh.GetPoints();
    HeightRamp(FalseColour::fromPreferences(), low.z, high.z)
        .paint(ofPoints.data(), mesh.GetNumPoints(), [points](int i) { return points[i][2]; });
  }
  colors.setNum(3 * mesh.GetNumTriangles());
  SbColor* corner = colors.startEditing();
  tarn::PointMesh::Corners points;
  for (int i = 0; mesh.GetTriangleCorners(i, points); ++i) {
    for (const int point : points) *corner++ = ofPoints[static_cast<std::size_t>(point)];
  }
  colors.finishEditing();
}
