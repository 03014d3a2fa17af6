#pragma once

#include "io/ProgressHandler.h"

namespace tarn {

/// Reports one step to a handler, which may be empty: its begin, its end, and each
/// hundredth in between, however often it is told.
class ReadProgress {
public:
  ReadProgress(const ProgressHandler& handler, const char* step) : _handler(handler), _step(step) {
    report(0.0);
  }

  void at(double done) {
    if (done >= _reported + 0.01) report(done);
  }
  void end() {
    if (_reported < 1.0) report(1.0);
  }

private:
  void report(double done) {
    _reported = done;
    if (_handler) _handler(_step, done);
  }
  const ProgressHandler& _handler;
  const char* _step;
  double _reported = 0.0;
};

}  // namespace tarn
