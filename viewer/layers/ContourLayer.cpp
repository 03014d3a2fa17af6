#include "viewer/layers/ContourLayer.h"

#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoSeparator.h>
#include <Inventor/nodes/SoTranslation.h>

#include "host/model/HeightContours.h"
#include "host/model/HeightLevels.h"
#include "host/model/PlanTriangulation.h"
#include "host/model/Project.h"
#include "io/ReadProgress.h"
#include "nodes/framework/TarnOILayerSeparator.h"
#include "nodes/framework/ViewerFrame.h"
#include "nodes/meshes/TarnOIContourSeparator.h"
#include "viewer/layers/SceneContext.h"

#include <cmath>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace {

// Returns what the user has to know about them; empty where there is nothing.
std::string computeContours(tarn::PointMesh& mesh, const std::vector<double>& levels) {
  mesh.ClearContours();
  if (mesh.GetNumTriangles() > 0) {
    tarn::HeightContours::addTo(mesh, levels);
    return {};
  }
  // Lines through every point of a dense cloud are as rough as its noise.
  tarn::PlanTriangulation::Options options;
  options.mostPoints = ContourLayer::mostPlaces;
  const tarn::PlanTriangulation plan = tarn::PlanTriangulation::of(mesh, options);
  tarn::HeightContours::addTo(mesh, plan.triangles, levels);
  if (plan.usedPoints == plan.places) return {};
  return "the contours of \"" + mesh.GetName().str() + "\" go by " +
         std::to_string(plan.usedPoints) + " of its " + std::to_string(plan.places) +
         " places in plan, evenly thinned";
}

}  // namespace

ContourLayer::ContourLayer(tarn::Project& project, double spacing, double lift,
                           SceneContext& context)
    : SceneLayer("Contours", context) {
  const tarn::VOrdCollect& meshes = project.GetPointMeshes();
  if (meshes.size() == 0) {
    throw std::runtime_error(
        "there is no dense cloud or mesh to draw contours over; --cloud FILE names one");
  }
  auto* raised = new SoTranslation;
  raised->translation = ViewerFrame::directionFromModel({0.0, 0.0, lift});
  separator->addChild(raised);
  auto* color = new SoMaterial;
  color->diffuseColor = SbColor(0.10F, 0.05F, 0.0F);
  separator->addChild(color);
  const auto addWidth = [this](float width) {
    auto* lines = new SoSeparator;
    separator->addChild(lines);
    auto* style = new SoDrawStyle;
    style->lineWidth = width;
    lines->addChild(style);
    return lines;
  };
  thin = addWidth(1.0F);
  wide = addWidth(2.5F);
  tarn::ReadProgress progress(context.progress, "contours");
  for (int i = 0; i < meshes.size(); ++i) {
    auto& mesh = *static_cast<tarn::PointMesh*>(meshes.at(i));
    tarn::Point3DDouble low;
    tarn::Point3DDouble high;
    if (!mesh.GetBoundingBox(low, high, nullptr, /*stored=*/0)) continue;
    if (!((high.z - low.z) / spacing <= mostLevels)) {
      std::ostringstream message;
      message.precision(10);  // heights may be far from 0
      message << "contours every " << spacing << " over heights from " << low.z << " to " << high.z
              << " are more than " << mostLevels << "; a spacing of "
              << (high.z - low.z) / mostLevels << " or more is needed";
      throw std::runtime_error(message.str());
    }
    const std::string note =
        computeContours(mesh, tarn::HeightLevels::bySpacing(low.z, high.z, spacing));
    if (!note.empty()) contourNotes.push_back(note);
    add(mesh, spacing);
    progress.at(static_cast<double>(i + 1) / meshes.size());
  }
}

ContourLayer::~ContourLayer() = default;

void ContourLayer::add(tarn::PointMesh& mesh, double spacing) {
  const tarn::VOrdCollect& contours = mesh.GetContours();
  for (int i = 0; i < contours.size(); ++i) {
    auto* contour = static_cast<tarn::PointMeshContour*>(contours.at(i));
    auto* node = new TarnOIContourSeparator;
    const bool isFifth = std::remainder(std::round(contour->GetHeight() / spacing), 5.0) == 0.0;
    (isFifth ? wide : thin)->addChild(node);
    node->SetContour(contour, &context.objects);
  }
}
