#pragma once

#include <Inventor/nodes/SoTransform.h>

#include "host/classes/VString.h"
#include "host/general/Point3DDouble.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOIText2.h"

/// The label of a point node: a transform at the labelled point and the text, the last two
/// children while there is a label. An empty one stands for no label; assigning it forgets
/// the children of a node that dropped them.
class TARNOI_EXPORT PointLabel {
public:
  /// Brings the label of `node`, whose member this is, up to date. An empty `label` takes
  /// both children out and forgets them. Otherwise they are made and appended on first use,
  /// the text set, and the transform moved to the model point.
  /// @param transformName what a text without its transform is reported as
  /// @param className the node's class, for the report
  void update(SoGroup& node, const tarn::VString& label, const tarn::Point3DDouble& modelPoint,
              const char* transformName, const char* className);

  /// The label of `copy`, which Coin copied from `original`, whose label this is.
  PointLabel counterpart(const SoGroup& copy, const SoGroup& original) const;

private:
  NodeRef<SoTransform> transform;
  NodeRef<TarnOIText2> text;
};
