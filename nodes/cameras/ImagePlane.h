#pragma once

#include "nodes/framework/NodeRef.h"

class SoSeparator;

namespace tarn {
class CameraStation;
class VDictionary;
}  // namespace tarn

/// The photograph of a camera station on a plane in front of its lens, in the axes of the
/// station's symbol (x right, y down, z along the line of sight), 400 times as large and as
/// far away as on the sensor.
namespace ImagePlane {

/// The plane with the photograph as its texture: translation, texture, texture coordinates,
/// shape hints, coordinates, face. The texture shows a copy of the photograph, shrunk by the
/// preference "CamStnImageResampleFactor", that is kept beside it as NAME.sgi.3dvip: made
/// when it is missing, used as it is when not. A photograph that cannot be had leaves the
/// texture empty, without a report.
/// @param dict where the texture enters itself under the copy's path; not owned
NodeRef<SoSeparator> build(const tarn::CameraStation& station, tarn::VDictionary* dict);

/// The line from the projection centre to the plane: point set, coordinates, line set.
NodeRef<SoSeparator> buildCameraLine(const tarn::CameraStation& station);

}  // namespace ImagePlane
