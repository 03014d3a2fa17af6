// Measures what this library does against a floor or a peer doing the same work.
#include <CLI/CLI.hpp>

#include "bench/Measurement.h"
#include "bench/Subject.h"
#include "bench/Summary.h"
#include "bench/Table.h"

#include <algorithm>
#include <iostream>
#include <string>
#include <unistd.h>
#include <vector>

namespace {

void list(std::ostream& out) {
  std::size_t width = 0;
  for (const bench::Subject* subject : bench::Subject::all()) {
    width = std::max(width, subject->name.size());
  }
  for (const bench::Subject* subject : bench::Subject::all()) {
    out << subject->name << std::string(width - subject->name.size() + 2, ' ')
        << subject->description << '\n';
  }
}

// Measures and prints one subject.
void run(const bench::Subject& subject, int repetitions, bench::Summary& summary) {
  const bool showProgress = isatty(STDERR_FILENO) != 0;
  const auto progress = [showProgress](const std::string& text) {
    if (showProgress) std::cerr << "\r\033[K" << text << std::flush;
  };
  std::cout << subject.name << ": " << subject.description << '\n' << std::flush;
  progress("preparing " + subject.name);
  std::vector<bench::Row> rows;
  try {
    rows = subject.makeRows();
  } catch (const std::exception& problem) {
    progress("");
    std::cout << "FAILED: " << problem.what() << "\n\n";
    summary.addFailure();
    return;
  }
  bench::Table table;
  for (const bench::Row& row : rows) {
    progress("measuring " + row.work + ", " + row.size);
    const bench::Result result = bench::measure(row, repetitions);
    summary.add(row, result);
    table.add(row, result);
  }
  progress("");
  table.print(std::cout);
  std::cout << '\n' << std::flush;
}

}  // namespace

int main(int argc, char** argv) {
  CLI::App app{
      "Measures this library against a floor (a plain loop, bare calls) or a peer doing the same\n"
      "work. Both sides run in turn; the figures are medians, the ratio is ours to the other, and\n"
      "smaller is better.",
      "tarn_bench"};
  std::vector<std::string> names;
  bool check = false;
  bool listOnly = false;
  int repetitions = 7;
  app.add_option("NAME", names, "subjects to measure (all when none is named; see --list)");
  app.add_flag("--check", check, "exit with 1 when a ratio misses its target");
  app.add_flag("--list", listOnly, "print the subjects, and measure nothing");
  app.add_option("--repetitions", repetitions, "turns of each side")
      ->check(CLI::Range(1, 1000))
      ->capture_default_str();
  try {
    app.parse(argc, argv);
  } catch (const CLI::ParseError& outcome) {
    return app.exit(outcome) == 0 ? 0 : 2;
  }
  if (listOnly) {
    list(std::cout);
    return 0;
  }

  std::vector<const bench::Subject*> subjects;
  const bool everything = names.empty();
  for (const bench::Subject* subject : bench::Subject::all()) {
    if (std::erase(names, subject->name) > 0 || everything) subjects.push_back(subject);
  }
  if (!names.empty()) {  // what is left names no subject
    std::cerr << "tarn_bench: there is no subject \"" << names.front() << "\"; there are:\n";
    list(std::cerr);
    return 2;
  }
#ifndef __OPTIMIZE__
  std::cout << "Built without optimisation: the figures say nothing. Build the release preset.\n\n";
#endif

  bench::Summary summary;
  for (const bench::Subject* subject : subjects) run(*subject, repetitions, summary);
  summary.print(std::cout, check);
  return summary.exitStatus(check);
}
