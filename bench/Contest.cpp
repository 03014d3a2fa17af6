#include "bench/Contest.h"

#include <exception>
#include <stdexcept>
#include <utility>

namespace bench {

void Contest::add(const std::string& name, std::function<Figures()> run) {
  programs.emplace_back(name, std::move(run));
}

Measure Contest::measure(const std::string& name, const std::string& figure,
                         const std::string& shownAs) {
  return figureOf(shownAs.empty() ? name : shownAs,
                  [self = shared_from_this(), name, figure, turn = std::size_t{0}]() mutable {
                    return self->value(turn++, name, figure);
                  });
}

double Contest::value(std::size_t turn, const std::string& name, const std::string& figure) {
  const std::size_t round = turn > 0 ? turn - 1 : 0;
  while (rounds.size() <= round) runRound();
  const Outcome& outcome = rounds[round].at(name);
  if (!outcome.problem.empty()) throw std::runtime_error(outcome.problem);
  const auto found = outcome.figures.find(figure);
  if (found == outcome.figures.end()) throw std::runtime_error(name + " tells no " + figure);
  return found->second;
}

void Contest::runRound() {
  std::map<std::string, Outcome>& round = rounds.emplace_back();
  for (const auto& [name, run] : programs) {
    Outcome& outcome = round[name];
    try {
      outcome.figures = run();
    } catch (const std::exception& problem) {
      outcome.problem = problem.what();
    }
  }
}

}  // namespace bench
