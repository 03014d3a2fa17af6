#pragma once

class SoGroup;

/// The colour of names in the scene. A node appends its label after its own materials, and
/// the last of them is the point's or the lens's, which may be as dark as the background.
namespace LabelColor {

/// Colours the label of a node that has one, unless that is done.
void add(SoGroup& node);
/// Takes the label's colour out again.
void remove(SoGroup& node);

}  // namespace LabelColor
