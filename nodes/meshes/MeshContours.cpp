#include "nodes/meshes/MeshContours.h"

#include <Inventor/SbColor.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoSeparator.h>

#include "host/general/Preferences.h"
#include "host/model/PointMeshContour.h"
#include "nodes/framework/FieldFill.h"
#include "nodes/framework/Narrowing.h"
#include "nodes/framework/SceneColor.h"
#include "nodes/framework/ViewerFrame.h"

namespace MeshContours {

namespace {

// x and z are narrowed before the offset is taken off, y is not: hosts rely on it.
SbVec3f vertexOf(const double* point) {
  return ViewerFrame::fromModel(
      {Narrowing::narrowed(point[0]), point[1], Narrowing::narrowed(point[2])});
}

}  // namespace

NodeRef<SoSeparator> makeSeparator() {
  auto separator = makeNode<SoSeparator>();
  if (tarn::gPref->GetBoolPreference("ContoursUseFixedColor", 1, "DenseStereo")) {
    auto* material = new SoMaterial;
    separator->addChild(material);
    material->diffuseColor = preferredColor();
  }
  return separator;
}

void append(SoSeparator& separator, const tarn::PointMeshContour& contour) {
  auto coordinates = makeNode<SoCoordinate3>();
  double** const points = contour.GetPoints(1);
  const int count = points ? contour.GetNumberOfPoints() : 0;
  {
    const FieldFill fill(coordinates->point, count > 0 ? count + 1 : 0);
    for (int i = 0; i < count; ++i) fill.values()[i] = vertexOf(points[i]);
    if (count > 0) {
      fill.values()[count] =
          ViewerFrame::directionFromModel({points[0][0], points[0][1], points[0][2]});
    }
  }
  separator.addChild(coordinates.get());
  appendShapes(separator);
}

SbColor preferredColor() {
  return SceneColor::from(tarn::gPref->GetPreference("ContourColor(RRRGGGBBB_0-255)",
                                                     tarn::Colour(0, 128, 128), "DenseStereo"));
}

void appendShapes(SoGroup& node) {
  if (tarn::gPref->GetBoolPreference("IncludePointsInContours", 0, "DenseStereo")) {
    node.addChild(new SoPointSet);
  }
  node.addChild(new SoLineSet);
}

}  // namespace MeshContours
