#pragma once

#include <chrono>
#include <ostream>
#include <string>

/// Says on one line, written over and over, how far long work is. Silent unless it goes to
/// a terminal: a log is no place for it.
class Progress {
public:
  /// Reports to standard error when that is a terminal.
  Progress();
  /// Reports to the stream when `active`.
  Progress(std::ostream& stream, bool active) : stream(stream), active(active) {}
  ~Progress() { clear(); }
  Progress(const Progress&) = delete;
  Progress& operator=(const Progress&) = delete;

  /// A step's name and how much of it is done, 0 to 1. At most ten lines a second are
  /// written.
  void report(const std::string& step, double done);

  /// Takes the line away.
  void clear();

private:
  using Clock = std::chrono::steady_clock;
  std::ostream& stream;
  bool active;
  std::size_t shown = 0;  // characters on the line now
  std::string shownStep;
  Clock::time_point shownAt{};
};
