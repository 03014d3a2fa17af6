#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <vector>

class ProjectScene;

/// The program tarnview without its `main`: what a call does, and how it ends.
class Tarnview {
public:
  /// Opens a window on the scene and returns when it is closed; returns the exit status,
  /// and writes what is wrong to `errors`.
  using WindowOpener = int (*)(const std::string& title, ProjectScene& scene, bool labels,
                               std::ostream& errors);
  /// Whether a window can be opened, and readies the toolkit; else says why not.
  using WindowPreparer = bool (*)(std::ostream& errors);

  struct Window {
    WindowPreparer prepare = nullptr;
    WindowOpener open = nullptr;
  };

  /// Carries out a call. Returns the exit status: 0 done, 1 input refused or output not
  /// written, 2 a wrong call. `arguments` are without the program's name.
  static int run(const std::vector<std::string>& arguments, std::ostream& output,
                 std::ostream& errors, const Window& window);

  /// Writes the problems from the one of index `first` on, ten lines at most and then how
  /// many there are besides.
  static void tellProblems(const std::vector<std::string>& problems, std::size_t first,
                           std::ostream& errors);

  /// Writes the registered classes, one a line: its name, its parent's, what it does.
  static void listNodes(std::ostream& output);
};
