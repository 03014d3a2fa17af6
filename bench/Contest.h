#pragma once

#include "bench/Subject.h"

#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace bench {

/// Several programs that do the same work, each of which tells several figures of it.
///
/// All of them run once in every round, one after the other, so that a slow minute of the
/// machine is one of all; the rows of the table read their figures from the same rounds. A
/// round runs when a row first needs it. One that cannot run fails its own rows only.
class Contest {
public:
  using Figures = std::map<std::string, double>;

  /// Names a program and how its figures are had; what goes wrong is thrown.
  void add(const std::string& name, std::function<Figures()> run);

  /// A figure of that program, round after round; for a Measure, whose first turn does not
  /// count and is given the first round's as well. The contest must outlive it.
  std::function<double()> figure(const std::string& name, const std::string& figure);

private:
  struct Outcome {
    Figures figures;
    std::string problem;
  };

  void runRound();

  std::vector<std::pair<std::string, std::function<Figures()>>> programs;
  std::vector<std::map<std::string, Outcome>> rounds;
};

}  // namespace bench
