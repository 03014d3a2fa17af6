#pragma once

#include "host/classes/VString.h"
#include "host/general/Point3DDouble.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"

class SoGroup;
class SoTransform;
class TarnOIText2;

/// The label of a point node: a transform at the labelled point and the text, the last two
/// children.
struct TARNOI_EXPORT LabelUpdate {
  NodeRef<SoTransform>& transform;  ///< the node's member; null while there is no label
  NodeRef<TarnOIText2>& text;       ///< likewise
  const char* transformName;        ///< the transform member's name, for the report
  const char* className;            ///< the node's class, for the report

  /// Brings the label of `node` up to date. An empty label takes both children out and
  /// clears the members. Otherwise they are made and appended on first use, the text set,
  /// and the transform moved to the model point. A text without its transform is reported
  /// under `transformName`.
  void apply(SoGroup& node, const tarn::VString& label,
             const tarn::Point3DDouble& modelPoint) const;
};
