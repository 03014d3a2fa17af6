#include "nodes/meshes/TarnOIPointMeshSeparator.h"

// Above: the class. Here: the colours of a cloud's points.

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMaterialBinding.h>

#include "host/general/Preferences.h"
#include "host/general/warning.h"
#include "host/model/PointMesh.h"
#include "host/model/Project.h"
#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/FieldFill.h"
#include "nodes/framework/HeightRamp.h"
#include "nodes/framework/OneNotification.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/meshes/MeshRows.h"
#include "nodes/meshes/PointColours.h"

#include <algorithm>

namespace {

constexpr const char* sourceFile = "TarnOIPointMeshSeparator";

// The heights of the whole ramp.
struct HeightRange {
  tarn::Point3DDouble minimum;
  tarn::Point3DDouble maximum;
};

HeightRange preferredRange(const tarn::PointMesh& mesh, const tarn::Project* project,
                           tarn::BasicAffine* affine) {
  HeightRange range;
  tarn::Extents extents;
  if (tarn::gPref->GetBoolPreference("UseMeshExtentsForHueRange", 1, "DenseStereo")) {
    if (TARNOI_ASSERT_AT(project, "project", sourceFile, 1298)) {
      project->GetPointMeshExtents(extents, affine);
    }
  } else if (tarn::gPref->GetBoolPreference("UseProjectExtentsForHueRange", 1, "DenseStereo")) {
    if (TARNOI_ASSERT_AT(project, "project", sourceFile, 1306)) {
      extents = project->GetProjectExtents(affine, 1, 1);
    }
  } else {
    mesh.GetBoundingBox(range.minimum, range.maximum, affine, 1);
    return range;
  }
  extents.GetExtents(range.minimum, range.maximum);
  return range;
}

}  // namespace

void TarnOIPointMeshSeparator::ColorPointsWithTexture(int on, int mode, tarn::Project* project) {
  constexpr int byHeight = 2;
  if (mode == byHeight) {
    ColorRange(1, project);  // also with `on` zero: hosts rely on it
    return;
  }
  if (on && isTriangulated()) return;
  if (!on || !mesh() || !mesh()->GetRGBsForPoints()) {
    removeColours();
    return;
  }
  colourPoints([this](SbColor* colours, int count) {
    MeshRows::withColours(
        *mesh(), [colours, count](auto rowOf) { PointColours().copy(rowOf, colours, count); });
  });
}

void TarnOIPointMeshSeparator::ColorRange(int on, tarn::Project* project) {
  if (!on) {
    removeColours();
    return;
  }
  colourPoints([this, project](SbColor* colours, int count) {
    tarn::BasicAffine* affine = project ? project->GetAffineTransform(1) : nullptr;
    const HeightRange range = preferredRange(*mesh(), project, affine);
    const HeightRamp ramp(FalseColour::fromPreferences(), range.minimum.z, range.maximum.z);
    MeshRows::withPositions(*mesh(), [&](auto rowOf) {
      if (!affine) {
        ramp.paint(colours, count, [rowOf](int i) { return rowOf(i)[2]; });
        return;
      }
      ramp.paint(colours, count, [rowOf, affine](int i) {
        const float* const row = rowOf(i);
        tarn::Point3DDouble point(row[0], row[1], row[2]);
        affine->ConvertPoint(point);
        return point.z;
      });
    });
  });
}

void TarnOIPointMeshSeparator::Highlight(SoMaterial* material, int on) {
  highlightOn = on;
  TarnOISeparator::Highlight(material, on);
  subHighlight.chooseBinding(*this);
  if (!colorBinding) return;
  // A highlight behind the points' colours paints the whole cloud.
  const bool perPoint =
      !faceSet && colorMaterial && ChildNodes::last<SoMaterial>(*this) == colorMaterial.get();
  colorBinding->value.setValue(perPoint ? SoMaterialBinding::PER_PART : SoMaterialBinding::OVERALL);
}

bool TarnOIPointMeshSeparator::isTriangulated() const {
  return mesh() && mesh()->GetNumTriangles() != 0;
}

void TarnOIPointMeshSeparator::removeColours() {
  if (!colorMaterial && !colorBinding) return;
  const OneNotification once(*this);
  ChildNodes::removeAndForget(*this, colorMaterial);
  ChildNodes::removeAndForget(*this, colorBinding);
}

// What both kinds of colouring share; `paint` writes the colours of the first points.
template <typename Paint>
void TarnOIPointMeshSeparator::colourPoints(Paint paint) {
  if (!mesh() || isTriangulated()) return;
  const int count = pointPos ? pointPos->point.getNum() : 0;
  const int points = mesh()->GetNumPoints();
  if (tarn::gPref->GetBoolPreference("ShowCountWarnings", 1, nullptr) &&
      (!pointPos || count != points)) {
    // The numbers stand crossed, and a blank at the end: hosts rely on the text.
    tarn::warning(
        "Cannot color point mesh, please report to Vintor Systems.\nPoints %d, colors: %d ", count,
        points);
    return;
  }
  const OneNotification once(*this);
  if (!colorMaterial) colorMaterial = makeNode<SoMaterial>();
  if (!colorBinding) colorBinding = makeNode<SoMaterialBinding>();
  colorBinding->value.setValue(highlightOn ? SoMaterialBinding::OVERALL
                                           : SoMaterialBinding::PER_PART);
  {
    const FieldFill colours(colorMaterial->diffuseColor, count);
    const int coloured = mesh()->GetPoints() ? std::clamp(points, 0, count) : 0;
    paint(colours.values(), coloured);
    std::fill(colours.values() + coloured, colours.values() + count, SbColor(0.0F, 0.0F, 0.0F));
  }
  if (findChild(colorMaterial.get()) == -1) insertChild(colorMaterial.get(), 0);
  if (findChild(colorBinding.get()) == -1) insertChild(colorBinding.get(), 1);
}
