#pragma once

#include "viewer/layers/SceneLayer.h"

namespace tarn {
class CameraStation;
class ObjectPoint;
}  // namespace tarn

/// The rays between object points and the camera stations that saw them, of those points and
/// stations that are asked for.
class RayLayer : public SceneLayer {
public:
  explicit RayLayer(SceneContext& context);
  ~RayLayer();

  /// Shows the rays from the point to its oriented stations; once, however often asked.
  void add(tarn::ObjectPoint& point);
  /// Shows the rays from the station to the points that it saw; likewise.
  void add(tarn::CameraStation& station);

  /// Whether rays of the object are shown.
  bool shows(tarn::ObjectPoint& point) const;
  bool shows(const tarn::CameraStation& station) const;

  /// Takes all rays away.
  void clear();
};
