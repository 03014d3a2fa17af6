#include "bench/Table.h"

#include <algorithm>
#include <cstdio>

namespace bench {

namespace {

std::string number(const char* format, double value) {
  char text[64];
  std::snprintf(text, sizeof text, format, value);
  return text;
}

std::string threeDigits(double value) {
  return number(value >= 99.95 ? "%.0f" : value >= 9.995 ? "%.1f" : "%.2f", value);
}

// A time in the unit that leaves one to three digits before the point.
std::string time(double seconds) {
  if (seconds < 1e-6) return threeDigits(seconds * 1e9) + " ns";
  if (seconds < 1e-3) return threeDigits(seconds * 1e6) + " us";
  if (seconds < 1) return threeDigits(seconds * 1e3) + " ms";
  return threeDigits(seconds) + " s";
}

std::string value(const Measure& measure, double v, const std::string& unit) {
  if (measure.time) return time(v);
  return unit.empty() ? threeDigits(v) : threeDigits(v) + " " + unit;
}

}  // namespace

Table::Table() : lines{{"work", "size", "ours", "floor or peer", "ratio", "target", "verdict"}} {}

void Table::add(const Row& row, const Result& result) {
  const bool measured =
      result.verdict != Result::Verdict::Skipped && result.verdict != Result::Verdict::Failed;
  const std::string none("-");
  std::string ours = none;
  std::string other = row.against ? row.against->name : none;
  std::string ratio = none;
  if (measured) ours = value(row.ours, result.ours, row.unit);
  if (measured && row.against) {
    other.append(1, ' ').append(value(*row.against, result.against, row.unit));
    ratio = number("%.3f", result.ratio);
  }
  std::string target = none;
  if (row.target != noTarget) {
    target = row.against ? number("<= %.3g", row.target)
                         : std::string("<= ").append(value(row.ours, row.target, row.unit));
  }
  lines.push_back({row.work, row.size, ours, other, ratio, target, result.verdictText()});
}

void Table::print(std::ostream& out) const {
  std::vector<std::size_t> widths(lines.front().size());
  for (const auto& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], line[i].size());
  }
  for (const auto& line : lines) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
      text += line[i];
      if (i + 1 < line.size()) text.append(widths[i] - line[i].size() + 2, ' ');
    }
    out << text << '\n';
  }
}

}  // namespace bench
