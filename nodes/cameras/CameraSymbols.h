#pragma once

#include "nodes/framework/NodeRef.h"

class SoSeparator;

/// The scenes that stand for a camera station.
namespace CameraSymbols {

/// A box with a lens and a viewfinder: the simple symbol of an oriented station. A scene of
/// the caller's own, one unit across.
NodeRef<SoSeparator> readBox();

/// A globe with three rings: the symbol of a station that is not oriented. A scene of the
/// caller's own, one and a half units across.
NodeRef<SoSeparator> readSphere();

/// A camera with body, viewfinder and lens in the colours of the preferences, which are read
/// here. Null when the colours make no readable scene.
NodeRef<SoSeparator> readDetailed();

}  // namespace CameraSymbols
