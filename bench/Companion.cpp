#include "bench/Companion.h"

#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <memory>
#include <set>
#include <spawn.h>
#include <sstream>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>
#include <utility>

namespace bench {

namespace {

// A file without a name, gone with its last user. What a program prints goes there and not
// into a pipe, which it could fill while nobody reads.
using Output = std::unique_ptr<FILE, int (*)(FILE*)>;

Output output() {
  Output file(std::tmpfile(), &std::fclose);
  if (!file) throw std::runtime_error("no temporary file can be made");
  return file;
}

std::string contentOf(const Output& file) {
  std::rewind(file.get());
  std::string content;
  std::array<char, 4096> part{};
  while (const std::size_t length = std::fread(part.data(), 1, part.size(), file.get())) {
    content.append(part.data(), length);
  }
  return content;
}

std::string lastLine(const std::string& text) {
  std::istringstream lines(text);
  std::string last;
  for (std::string line; std::getline(lines, line);) {
    if (!line.empty()) last = line;
  }
  return last;
}

std::vector<char*> pointersTo(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

// Ours, with variables ("NAME=value") added or changed.
std::vector<std::string> environmentWith(std::vector<std::string> all) {
  const std::set<std::string> given = [&all] {
    std::set<std::string> names;
    for (const std::string& variable : all) names.insert(variable.substr(0, variable.find('=')));
    return names;
  }();
  for (char** variable = environ; *variable; ++variable) {
    const std::string text = *variable;
    if (!given.contains(text.substr(0, text.find('=')))) all.push_back(text);
  }
  return all;
}

// Runs the program and waits; whether it ended well.
bool run(std::vector<std::string> arguments, const std::vector<std::string>& environment,
         const Output& printed, const Output& errors) {
  std::vector<std::string> variables = environmentWith(environment);
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, fileno(printed.get()), STDOUT_FILENO);
  posix_spawn_file_actions_adddup2(&actions, fileno(errors.get()), STDERR_FILENO);
  pid_t process = 0;
  const int failed = posix_spawn(&process, arguments[0].c_str(), &actions, nullptr,
                                 pointersTo(arguments).data(), pointersTo(variables).data());
  posix_spawn_file_actions_destroy(&actions);
  if (failed) throw std::runtime_error(arguments[0] + " cannot be started");
  int status = 0;
  return waitpid(process, &status, 0) == process && WIFEXITED(status) && WEXITSTATUS(status) == 0;
}

}  // namespace

Companion::Companion(std::string program, std::string whatItNeeds)
    : name(std::filesystem::path(program).filename()), needs(std::move(whatItNeeds)) {
  const auto folder = std::filesystem::read_symlink("/proc/self/exe").parent_path();
  path = (folder / program).string();
}

std::string Companion::missing() const {
  if (access(path.c_str(), X_OK) == 0) return {};
  return name + " was not built" + (needs.empty() ? "" : ": it needs " + needs);
}

std::map<std::string, double> Companion::figures(
    const std::vector<std::string>& arguments, const std::vector<std::string>& environment) const {
  std::vector<std::string> all{path};
  all.insert(all.end(), arguments.begin(), arguments.end());
  const Output printed = output();
  const Output errors = output();
  const bool ended = run(all, environment, printed, errors);

  std::map<std::string, double> figures;
  std::istringstream lines(contentOf(printed));
  for (std::string line; std::getline(lines, line);) {
    std::istringstream words(line);
    std::string figure;
    double value = 0;
    if (words >> figure >> value && words.eof()) figures[figure] = value;
  }
  if (!ended || figures.empty()) {
    const std::string why = lastLine(contentOf(errors));
    throw std::runtime_error(name + (ended ? " printed no figure" : " failed") +
                             (why.empty() ? "" : ": " + why));
  }
  return figures;
}

}  // namespace bench
