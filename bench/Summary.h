#pragma once

#include "bench/Measurement.h"

#include <map>
#include <ostream>
#include <string>
#include <vector>

namespace bench {

/// What all rows together came to: how many to each verdict, and the exit status.
class Summary {
public:
  void add(const Row& row, const Result& result);
  /// A subject that could not even make its rows.
  void addFailure() { ++counts[Result::Verdict::Failed]; }

  /// Writes the counts. With `check`, rows that were skipped come first, one a line: they
  /// have met no target.
  void print(std::ostream& out, bool check) const;

  /// 1 when something failed, or with `check` a target was missed; what was skipped is no
  /// success, but no failure of ours either.
  int exitStatus(bool check) const;

private:
  int count(Result::Verdict verdict) const;

  std::map<Result::Verdict, int> counts;
  std::vector<std::string> skipped;
};

}  // namespace bench
