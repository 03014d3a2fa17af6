#pragma once

#include "bench/Subject.h"

#include <cstddef>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace bench {

/// Several programs that do the same work, each of which tells several figures of it.
///
/// All of them run once in every round, one after the other, so that a slow minute of the
/// machine is one of all; the rows of the table read their figures from the same rounds. A
/// round runs when a row first needs it. One that cannot run fails its own rows only.
///
///     const auto contest = std::make_shared<Contest>();
///     contest->add("ours", [] { return Companion("ours").figures({}); });
///     row.ours = contest->measure("ours", "build_s");
class Contest : public std::enable_shared_from_this<Contest> {
public:
  using Figures = std::map<std::string, double>;

  /// Names a program and how its figures are had; what goes wrong is thrown.
  void add(const std::string& name, std::function<Figures()> run);

  /// A figure of that program, round after round. The turn that does not count is given the
  /// first round's: each program is a process of its own, which has nothing to warm up.
  /// @param shownAs the measure's name in the table; the program's where it is empty
  Measure measure(const std::string& name, const std::string& figure,
                  const std::string& shownAs = {});

private:
  struct Outcome {
    Figures figures;
    std::string problem;
  };

  double value(std::size_t turn, const std::string& name, const std::string& figure);
  void runRound();

  std::vector<std::pair<std::string, std::function<Figures()>>> programs;
  std::vector<std::map<std::string, Outcome>> rounds;
};

}  // namespace bench
