#pragma once

#include <map>
#include <string>
#include <vector>

namespace bench {

/// A program that stands beside tarn_bench and prints figures, one a line: a name and a
/// number ("read_s 1.25"); all other lines are its own affair. It measures what only a fresh
/// process can tell, or what another library does that tarn_bench does not link
/// (bench/peers).
class Companion {
public:
  /// `program` is the name of its target, or a path. `needs` says what building it takes
  /// ("Open3D (package libopen3d-dev)").
  explicit Companion(std::string program, std::string needs = {});

  /// Why it cannot be asked, for Row::skipped; empty when it can: it was not built.
  std::string missing() const;

  /// Its file, for a program that starts it.
  const std::string& file() const { return path; }

  /// Runs it without a shell and waits. `environment` ("NAME=value") is added to ours.
  /// Throws std::runtime_error, with the last line it wrote to standard error, when it
  /// fails or prints no figure.
  std::map<std::string, double> figures(const std::vector<std::string>& arguments,
                                        const std::vector<std::string>& environment = {}) const;

private:
  std::string path;
  std::string name;
  std::string needs;
};

}  // namespace bench
