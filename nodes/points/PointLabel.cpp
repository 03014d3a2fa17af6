#include "nodes/points/PointLabel.h"

#include "nodes/framework/ChildNodes.h"
#include "nodes/framework/TarnOIAssert.h"
#include "nodes/framework/ViewerFrame.h"

void PointLabel::update(SoGroup& node, const tarn::VString& label,
                        const tarn::Point3DDouble& modelPoint, const char* transformName,
                        const char* className) {
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

PointLabel PointLabel::counterpart(const SoGroup& copy, const SoGroup& original) const {
  PointLabel result;
  result.transform = ChildNodes::counterpart(copy, original, transform);
  result.text = ChildNodes::counterpart(copy, original, text);
  return result;
}
