#pragma once

#include <Inventor/sensors/SoNodeSensor.h>

/// Counts the changes that a node signals, from its children too: each signal at once, not
/// all of them together as sensors usually do.
class SignalCount {
public:
  explicit SignalCount(SoNode* watched)
      : sensor([](void* counted, SoSensor*) { ++*static_cast<int*>(counted); }, &signals) {
    sensor.setPriority(0);
    sensor.attach(watched);
  }
  SignalCount(const SignalCount&) = delete;
  SignalCount& operator=(const SignalCount&) = delete;

  /// Since it was made.
  int count() const { return signals; }

private:
  int signals = 0;
  SoNodeSensor sensor;
};
