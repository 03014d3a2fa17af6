#pragma once

#include <Inventor/SbColor.h>
#include <Inventor/nodes/SoMaterial.h>
#include <Inventor/nodes/SoMaterialBinding.h>

#include "host/general/VColor.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"

class SoGroup;

namespace tarn {
class VOrdCollect;
}

/// The two nodes that repaint single points or triangles of a node's shape: a material with a
/// colour for each of them, and a binding that says so.
class TARNOI_EXPORT SubHighlight {
public:
  /// The colour of highlighted parts: preference "SelectionColor" (7, section "Colors").
  static tarn::VColor selectionColour();

  /// Makes the nodes where they are missing, and inserts those that are no children of `node`
  /// yet: the material at `index`, the binding after it.
  void place(SoGroup& node, int index);
  /// Takes the nodes out where they are children, and forgets them.
  void remove(SoGroup& node);

  /// Binds the colours to their parts while they are the last material among the children,
  /// else overall: a highlight of the whole node behind them has one colour, and Coin would
  /// read beyond it. To be called when a material comes or goes; `place` does so.
  void chooseBinding(const SoGroup& node);

  /// Gives the listed ones of `count` colours another; indexes outside and a null list are
  /// passed over.
  static void paint(SbColor* colours, int count, const tarn::VOrdCollect* indexes,
                    const tarn::VColor& colour);

  /// The nodes of `copy`, which was copied from `original` by Coin, that stand where these stand.
  SubHighlight counterpart(const SoGroup& copy, const SoGroup& original) const;

  NodeRef<SoMaterial> material;        ///< null until placed
  NodeRef<SoMaterialBinding> binding;  ///< likewise
};
