#pragma once

#include "bench/Measurement.h"

#include <ostream>
#include <string>
#include <vector>

namespace bench {

/// The table of one subject's results: work, size, ours, floor or peer, ratio, target,
/// verdict; its columns as wide as what stands in them.
class Table {
public:
  Table();
  void add(const Row& row, const Result& result);
  void print(std::ostream& out) const;

private:
  std::vector<std::vector<std::string>> lines;
};

}  // namespace bench
