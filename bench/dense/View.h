#pragma once

namespace bench {

/// How all programs of the dense benchmarks look at what they draw: the size of the picture,
/// and a camera that moves a little from frame to frame, so that no frame is the one before.
/// In the viewer frame (Y up).
struct View {
  static constexpr int width = 1600;
  static constexpr int height = 1200;
  static constexpr double verticalAngleDegrees = 45;
  static constexpr double nearDistance = 0.1;
  static constexpr double farDistance = 5.0;

  float x;
  float y;
  float z;
  float downDegrees;  ///< how far it looks down from the horizontal, towards -Z

  /// In front of the cloud, all of it in the picture.
  static View ofCloud(int frame) {
    return {0.5F + 0.001F * static_cast<float>(frame), 0.5F, 1.6F, 0};
  }
  /// Above the front edge of the terrain.
  static View ofTerrain(int frame) {
    return {0.5F + 0.001F * static_cast<float>(frame), 1.4F, 1.1F, 30};
  }
};

}  // namespace bench
