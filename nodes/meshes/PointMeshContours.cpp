#include "nodes/meshes/TarnOIPointMeshSeparator.h"

// Above: the class. Here: the contours under a mesh.

#include <Inventor/nodes/SoSeparator.h>

#include "host/model/PointMesh.h"
#include "nodes/meshes/MeshContours.h"

void TarnOIPointMeshSeparator::AddContour(tarn::PointMeshContour* contour) {
  if (!contour) return;
  if (!contourSeparator) {
    contourSeparator = MeshContours::makeSeparator();
    addChild(contourSeparator.get());
  }
  MeshContours::append(*contourSeparator, *contour);
}

void TarnOIPointMeshSeparator::AddContours() {
  if (!mesh()) return;
  const tarn::VOrdCollect& contours = mesh()->GetContours();
  for (int i = 0; i < contours.size(); ++i) {
    AddContour(static_cast<tarn::PointMeshContour*>(contours.at(i)));
  }
}
