#include "viewer/ProfileFile.h"

#include "host/model/Units.h"
#include "viewer/WholeFile.h"

#include <array>
#include <charconv>

namespace {

void append(std::string& text, double number) {
  constexpr int digits = 12;
  std::array<char, 32> buffer;  // the longest is -1.23456789012e-308
  const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                 std::chars_format::general, digits);
  text.append(buffer.data(), end.ptr);
}

}  // namespace

void ProfileFile::write(const std::string& fileName,
                        const std::vector<tarn::Profile::Point>& profile,
                        const tarn::Units& units) {
  std::string text = "distance,height\n";
  for (const tarn::Profile::Point& point : profile) {
    append(text, units.MetersToUnits(point.distance));
    text += ',';
    append(text, units.MetersToUnits(point.height));
    text += '\n';
  }
  WholeFile::write(fileName, "profile", [&text](std::FILE* file) {
    return std::fwrite(text.data(), 1, text.size(), file) == text.size();
  });
}
