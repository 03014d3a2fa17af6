#include "bench/Summary.h"

namespace bench {

void Summary::add(const Row& row, const Result& result) {
  ++counts[result.verdict];
  if (result.verdict != Result::Verdict::Skipped) return;
  skipped.push_back(row.work + ", " + row.size + ": " + result.reason);
}

void Summary::print(std::ostream& out, bool check) const {
  if (check) {
    for (const std::string& row : skipped) out << "NOT CHECKED: " << row << '\n';
  }
  out << count(Result::Verdict::Ok) << " ok, " << count(Result::Verdict::Missed) << " missed, "
      << count(Result::Verdict::Skipped) << " skipped, " << count(Result::Verdict::Failed)
      << " failed";
  if (const int told = count(Result::Verdict::NoTarget)) out << ", " << told << " without a target";
  out << '\n';
}

int Summary::exitStatus(bool check) const {
  return count(Result::Verdict::Failed) > 0 || (check && count(Result::Verdict::Missed) > 0);
}

int Summary::count(Result::Verdict verdict) const {
  const auto found = counts.find(verdict);
  return found == counts.end() ? 0 : found->second;
}

}  // namespace bench
