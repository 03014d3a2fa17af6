#pragma once

#include <Inventor/SbVec3f.h>

#include "host/general/Point3DDouble.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/ViewerFrame.h"

#include <cstddef>
#include <memory>

class SoNormal;

/// Fills a normal node for a list of coordinates of which some have no normal. The node gets as
/// many vectors as reach to the last that was set, and where none was set, none; those between
/// that were not set are no direction.
class TARNOI_EXPORT NormalFill {
public:
  /// @param coordinates how many there are
  NormalFill(SoNormal& node, int coordinates) : node(node), capacity(coordinates) {}

  /// Sets the normal of a coordinate, given in the model; indexes must rise.
  void set(int index, const tarn::Point3DDouble& normal) {
    if (index != count || !vectors) makeRoom(index);
    vectors[static_cast<std::size_t>(index)] = ViewerFrame::directionFromModel(normal);
    count = index + 1;
  }

  /// Gives the vectors of a node the room that Coin's own drawing needs, for all coordinates, also
  /// where the list ends before: a copy made by Coin has none, nor has a node whose coordinates
  /// have become more.
  static void makeRoomFor(SoNormal& node, int coordinates);

  /// Hands the vectors to the node, which signals once; a node that gets none stays as it is.
  void finish();

private:
  void makeRoom(int index);

  SoNormal& node;
  std::unique_ptr<SbVec3f[]> vectors;
  int capacity;
  int count = 0;
};
