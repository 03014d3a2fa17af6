#pragma once

#include <Inventor/nodes/SoDrawStyle.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRegistration.h"

/// A draw style that acts on bounding boxes and ray picks too: model-bound nodes after
/// one whose style is INVISIBLE are neither measured nor picked. A plain SoDrawStyle acts
/// on drawing only.
///
///     auto* style = new TarnOIDrawStyle;
///     style->style = SoDrawStyle::INVISIBLE;
///     layer->insertChild(style, 0);
class TARNOI_EXPORT TarnOIDrawStyle : public SoDrawStyle {
  TARNOI_NODE_HEADER(TarnOIDrawStyle);

public:
  TarnOIDrawStyle();
  TarnOIDrawStyle(const TarnOIDrawStyle& other);
  TarnOIDrawStyle& operator=(const TarnOIDrawStyle& other);

  void getBoundingBox(SoGetBoundingBoxAction* action) override;
  void pick(SoPickAction* action) override;
  void rayPick(SoRayPickAction* action) override;

protected:
  ~TarnOIDrawStyle() override;
};
