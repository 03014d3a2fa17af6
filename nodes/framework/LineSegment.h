#pragma once

#include <Inventor/SbVec3f.h>

#include "host/general/Point3DDouble.h"
#include "nodes/TarnOIExport.h"
#include "nodes/framework/NodeRef.h"

#include <array>

class SoCoordinate3;
class SoGroup;
class SoLineSet;

/// A straight segment as nodes show it: a coordinate node with its two ends and a line set of
/// two vertices.
namespace LineSegment {

/// Both ends, in the model frame.
using Ends = std::array<tarn::Point3DDouble, 2>;

/// A line set of one line with two vertices.
TARNOI_EXPORT NodeRef<SoLineSet> makeLineSet();

/// Appends a coordinate node and its line set to `node`. Returns the coordinate node.
TARNOI_EXPORT SoCoordinate3* append(SoGroup& node);

/// The coordinate node that a setter writes into: in a node with children the first of them
/// that is an SoCoordinate3; a node without children gets one, with its line set. Where
/// there are children, but none of that type, that is reported under the node's class and
/// the line, and null returned.
TARNOI_EXPORT SoCoordinate3* findOrAppend(SoGroup& node, const char* className, int line);

/// Writes the ends, brought into the viewer frame, as the first two coordinates.
TARNOI_EXPORT void place(SoCoordinate3& coordinates, const Ends& ends);
/// The same of ends that are in the viewer frame already.
TARNOI_EXPORT void place(SoCoordinate3& coordinates, const std::array<SbVec3f, 2>& shown);

}  // namespace LineSegment
