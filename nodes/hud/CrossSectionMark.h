#pragma once

#include <Inventor/SbVec3f.h>
#include <Inventor/nodes/SoCoordinate3.h>
#include <Inventor/nodes/SoLineSet.h>
#include <Inventor/nodes/SoSwitch.h>

#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"

#include <span>

class SoGroup;

/// The mark that a user draws over a dense surface model: two points of the screen, and
/// lines in the cross-section colour over everything else.
///
/// Points are in normalised device coordinates: -1 to 1 across the viewport, x to the right,
/// y up, z always 0.
///
/// Under the node that shows it stands a switch, hidden at first, over a separator with an
/// SoOrthographicCamera that is left alone (its view volume is just that range), the
/// material, `coordinates` and `lines`.
///
/// Preference, read when it is built: "CrossSectionColor(RRRGGGBBB_0-255)" (section
/// "DenseStereo", 200 10 10).
class TARNOI_EXPORT CrossSectionMark {
public:
  /// Builds the sub-graph and appends it to `hud`.
  void build(SoGroup& hud);

  /// For a copy that Coin made of a node with a mark: takes over what `other` stores, and
  /// the children of `copy` as its own.
  void takeOver(const CrossSectionMark& other, const SoGroup& copy);

  /// Stores the first point; nothing is drawn. `px`, `py` is a pixel, counted from the lower
  /// left of a viewport of `width` times `height` pixels.
  void setFirst(int px, int py, int width, int height);
  bool hasFirst() const { return firstIsSet; }
  void forgetFirst() { firstIsSet = false; }

  /// Stores the second point. With `snap` the line from the first one is turned to the
  /// nearest multiple of 45 degrees. A point equal to the first is moved by 0.0001 in x, so
  /// that a plane can still be formed. Nothing is drawn.
  void setSecond(int px, int py, int width, int height, bool snap);

  const SbVec3f& first() const { return firstPoint; }
  const SbVec3f& second() const { return secondPoint; }

  /// Makes `vertices` those of the mark.
  void setVertices(std::span<const SbVec3f> vertices);
  /// Tells how many of the vertices the one line has.
  void setLineLength(int vertices);

  void show();
  void hide();

private:
  NodeRef<SoSwitch> overlay;
  NodeRef<SoCoordinate3> coordinates;
  NodeRef<SoLineSet> lines;
  SbVec3f firstPoint{0.0F, 0.0F, 0.0F};
  SbVec3f secondPoint{0.0F, 0.0F, 0.0F};
  bool firstIsSet = false;
};
