#pragma once

#include "nodes/framework/NodeRef.h"

class SoSeparator;
struct CloudSection;

/// Shows in the scene what a section cut.
namespace SectionMark {

/// The section's points, each with a dot over it, to be put behind the meshes. They stay in
/// their places when the camera moves. With `overAll` nothing hides them: a photograph that is
/// looked at through its camera stands in front of all points.
NodeRef<SoSeparator> points(const CloudSection& section, bool overAll);

/// The line that was drawn, which lies on the screen and so belongs to one view only. A box
/// around the scene does not hold it.
NodeRef<SoSeparator> line(const CloudSection& section);

}  // namespace SectionMark
