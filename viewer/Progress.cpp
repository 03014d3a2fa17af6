#include "viewer/Progress.h"

#include <algorithm>
#include <cmath>
#include <iostream>
#include <unistd.h>

Progress::Progress() : Progress(std::cerr, isatty(STDERR_FILENO) != 0) {}

void Progress::report(const std::string& step, double done) {
  if (!active) return;
  const Clock::time_point now = Clock::now();
  if (step == shownStep && now - shownAt < std::chrono::milliseconds(100)) return;
  const long percent = std::lround(100.0 * std::clamp(done, 0.0, 1.0));
  const std::string line = step + " " + std::to_string(percent) + " %";
  stream << '\r' << line;
  if (line.size() < shown) stream << std::string(shown - line.size(), ' ');
  stream << std::flush;
  shown = std::max(shown, line.size());
  shownStep = step;
  shownAt = now;
}

void Progress::clear() {
  if (shown == 0) return;
  stream << '\r' << std::string(shown, ' ') << '\r' << std::flush;
  shown = 0;
  shownStep.clear();
}
