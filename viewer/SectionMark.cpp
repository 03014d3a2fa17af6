#include "viewer/SectionMark.h"

#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoDepthBuffer.h>
#include <Inventor/nodes/SoDrawStyle.h>
#include <Inventor/nodes/SoLightModel.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoPickStyle.h>
#include <Inventor/nodes/SoPointSet.h>
#include <Inventor/nodes/SoResetTransform.h>
#include <Inventor/nodes/SoSeparator.h>

#include "nodes/framework/FieldFill.h"
#include "nodes/framework/TarnOIOverlaySeparator.h"
#include "nodes/framework/ViewerFrame.h"
#include "viewer/CloudCut.h"

NodeRef<SoSeparator> SectionMark::points(const CloudSection& section, bool overAll) {
  NodeRef<SoSeparator> mark = makeNode<SoSeparator>();
  if (overAll) {
    auto* depth = new SoDepthBuffer;
    depth->test = FALSE;
    mark->addChild(depth);
  }
  auto* pick = new SoPickStyle;
  pick->style = SoPickStyle::UNPICKABLE;
  mark->addChild(pick);
  auto* model = new SoLightModel;
  model->model = SoLightModel::BASE_COLOR;
  mark->addChild(model);
  auto* color = new SoMaterial;
  color->diffuseColor = SbColor(1.0F, 0.16F, 0.72F);
  mark->addChild(color);
  auto* style = new SoDrawStyle;
  style->pointSize = 5.0F;
  mark->addChild(style);
  auto* coordinates = new SoCoordinate3;
  {
    const FieldFill fill(coordinates->point, static_cast<int>(section.points.size()));
    SbVec3f* place = fill.values();
    for (const tarn::Point3DDouble& point : section.points)
      *place++ = ViewerFrame::fromModel(point);
  }
  mark->addChild(coordinates);
  mark->addChild(new SoPointSet);
  return mark;
}

NodeRef<SoSeparator> SectionMark::line(const CloudSection& section) {
  NodeRef<SoSeparator> mark(new TarnOIOverlaySeparator(0.0F, 0.0F, 1.0F));
  auto* style = new SoDrawStyle;
  style->lineWidth = 2.0F;
  mark->addChild(style);
  mark->addChild(section.line.get());
  auto* reset = new SoResetTransform;
  reset->whatToReset = SoResetTransform::BBOX;
  mark->addChild(reset);
  return mark;
}
