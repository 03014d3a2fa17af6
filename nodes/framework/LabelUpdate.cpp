#include "nodes/framework/LabelUpdate.h"

#include <Inventor/nodes/SoGroup.h>
#include <Inventor/nodes/SoTransform.h>

#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/TarnOIText2.h"
#include "nodes/framework/ViewerFrame.h"

void LabelUpdate::apply(SoGroup& node, const tarn::VString& label,
                        const tarn::Point3DDouble& modelPoint) const {
  if (label.isEmpty()) {
    if (!text) return;
    ChildNodes::removeAndForget(node, text);
    ChildNodes::removeAndForget(node, transform);
    return;
  }
  const bool first = !text;
  if (first) {
    transform = makeNode<SoTransform>();
    transform->scaleFactor.setValue(5.0F, 1.0F, 1.0F);
    text = makeNode<TarnOIText2>();
  }
  text->string.setValue(label.text());
  if (TARNOI_ASSERT(transform, transformName, className)) {
    transform->translation.setValue(ViewerFrame::fromModel(modelPoint));
  }
  if (first) {
    node.addChild(transform.get());
    node.addChild(text.get());
  }
}
