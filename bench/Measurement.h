#pragma once

#include "bench/Subject.h"

#include <string>

namespace bench {

/// What came out of a row.
struct Result {
  enum class Verdict { Ok, Missed, NoTarget, Skipped, Failed };

  double ours = 0;     ///< median, in seconds or in the row's unit
  double against = 0;  ///< likewise; 0 without another side
  double ratio = 0;    ///< of the two medians; 0 without another side
  Verdict verdict = Verdict::Ok;
  std::string reason;  ///< why it was skipped or failed

  /// How it is printed: "ok", "MISSED", "no target", "skipped: ...", "FAILED: ...".
  std::string verdictText() const;
};

/// Measures both sides of the row in turn, `repetitions` times each (the row's own number
/// takes precedence), after one turn that does not count: it warms the caches and finds
/// how many passes make a time long enough to be measured.
Result measure(const Row& row, int repetitions);

}  // namespace bench
