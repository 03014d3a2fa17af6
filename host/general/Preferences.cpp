#include "host/general/Preferences.h"

#include "host/general/warning.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <optional>

namespace tarn {

namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Not strtod: that reads "0.5" as 0 where the locale's decimal sign is a comma.
template <typename Number>
std::optional<Number> numberOf(std::string_view text) {
  if (text.size() > 1 && text.front() == '+' && text[1] != '-') text.remove_prefix(1);
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<int> truthOf(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(), [](char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  });
  if (lower == "1" || lower == "true" || lower == "yes" || lower == "on") return 1;
  if (lower == "0" || lower == "false" || lower == "no" || lower == "off") return 0;
  return std::nullopt;
}

std::optional<Colour> colourOf(std::string_view text) {
  if (text.size() > 9 || text.find_first_not_of("0123456789") != std::string_view::npos) {
    return std::nullopt;
  }
  const auto digits = numberOf<unsigned>(text);
  if (!digits) return std::nullopt;
  const unsigned red = *digits / 1'000'000U;
  const unsigned green = *digits / 1'000U % 1'000U;
  const unsigned blue = *digits % 1'000U;
  if (red > 255U || green > 255U || blue > 255U) return std::nullopt;
  return Colour(static_cast<std::uint8_t>(red), static_cast<std::uint8_t>(green),
                static_cast<std::uint8_t>(blue));
}

// Keys whose numbers make sense in a range only. A resample factor of 0 would
// divide by zero, a negative sphere size would turn a sphere inside out. An empty key
// stands for all keys of the section, an empty section for any.
struct Range {
  std::string_view section;
  std::string_view key;
  double least;
  double most;
  const char* expected;
};
constexpr double unlimited = std::numeric_limits<double>::max();
constexpr std::array ranges = {
    Range{"", "CamStnImageResampleFactor", 1.0, 1000.0, "a number from 1 to 1000"},
    Range{"", "ExagerationSphereSize", 0.0, unlimited, "a number of 0 or more"},
    Range{"ShapeViewer", "VertexRadius", 0.0, unlimited, "a number of 0 or more"},
    Range{"CSSymbol", "", 0.0, 1.0, "a number from 0 to 1"},
    // A margin of the size divided by it.
    Range{"GroundPlane", "GroundPlaneMultiplier", 0.001, 1e6, "a number from 0.001 to 1000000"},
    Range{"Colors", "GroundPlaneTransparency", 0.0, 1.0, "a number from 0 to 1"},
    Range{"Colors", "GroundPlaneTransparencyType", 0.0, 9.0, "a number from 0 to 9"},
};

const char* expectedUnlessInRange(std::string_view section, std::string_view key, double number) {
  for (const Range& range : ranges) {
    if (!range.section.empty() && range.section != section) continue;
    if (!range.key.empty() && range.key != key) continue;
    if (!(number >= range.least && number <= range.most)) return range.expected;
  }
  return nullptr;
}

constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";

Preferences defaultStore;

}  // namespace

Preferences* gPref = &defaultStore;

Preferences::~Preferences() = default;

int Preferences::GetPreference(const char* key, int defaultValue, const char* section) const {
  const Value* value = find(key, section);
  if (!value) return defaultValue;
  if (const auto number = numberOf<int>(value->text)) return *number;
  refuse(key, *value, "a whole number");
  return defaultValue;
}

double Preferences::GetPreference(const char* key, double defaultValue, const char* section) const {
  const Value* value = find(key, section);
  if (!value) return defaultValue;
  const auto number = numberOf<double>(value->text);
  if (number && std::isfinite(*number)) return *number;
  refuse(key, *value, "a number");
  return defaultValue;
}

Colour Preferences::GetPreference(const char* key, const Colour& defaultValue,
                                  const char* section) const {
  const Value* value = find(key, section);
  if (!value) return defaultValue;
  if (const auto colour = colourOf(value->text)) return *colour;
  refuse(key, *value, "nine digits RRRGGGBBB, each component 000 to 255");
  return defaultValue;
}

VString Preferences::GetPreference(const char* key, const char* defaultValue,
                                   const char* section) const {
  const Value* value = find(key, section);
  return value ? VString(value->text) : VString(defaultValue);
}

int Preferences::GetBoolPreference(const char* key, int defaultValue, const char* section) const {
  const Value* value = find(key, section);
  if (!value) return defaultValue;
  if (const auto truth = truthOf(value->text)) return *truth;
  refuse(key, *value, "1 or 0, true or false, yes or no, on or off");
  return defaultValue;
}

void Preferences::Set(const char* key, std::string_view value, const char* section) {
  if (!key) return;
  store(section ? section : "", key, Value{std::string(trimmed(value)), {}, 0});
}

int Preferences::Read(const char* fileName) {
  if (!fileName) return 0;
  std::ifstream file(fileName);
  // A folder can be opened, but not read.
  if (!file || (file.peek() == std::ifstream::traits_type::eof() && file.bad())) {
    warning("%s: the preference file cannot be read", fileName);
    return 0;
  }
  std::string section;
  std::string text;
  for (int line = 1; std::getline(file, text); ++line) {
    std::string_view content = text;
    if (line == 1 && content.starts_with(byteOrderMark)) content.remove_prefix(3);
    content = trimmed(content);
    if (content.empty() || content.front() == ';' || content.front() == '#') continue;
    if (content.front() == '[' && content.back() == ']' && content.size() > 2) {
      section = trimmed(content.substr(1, content.size() - 2));
      continue;
    }
    const auto equals = content.find('=');
    if (equals == std::string_view::npos || equals == 0) {
      warning("%s:%d: found \"%s\", expected [section] or key = value", fileName, line,
              std::string(content).c_str());
      continue;
    }
    store(section, trimmed(content.substr(0, equals)),
          Value{std::string(trimmed(content.substr(equals + 1))), fileName, line});
  }
  if (file.bad()) {
    warning("%s: the preference file could not be read to its end", fileName);
    return 0;
  }
  return 1;
}

const Preferences::Value* Preferences::find(const char* key, const char* section) const {
  if (!key) return nullptr;
  const auto found =
      _values.find(std::pair<std::string_view, std::string_view>(key, section ? section : ""));
  return found == _values.end() ? nullptr : &found->second;
}

void Preferences::refuse(const char* key, const Value& value, const char* expected) const {
  if (_refused.insert(&value).second) sayRefused(key, value, expected);
}

void Preferences::sayRefused(const char* key, const Value& value, const char* expected) {
  if (value.file.empty()) {
    warning("preference %s: found \"%s\", expected %s; the default is used", key,
            value.text.c_str(), expected);
  } else {
    warning("%s:%d: preference %s: found \"%s\", expected %s; the default is used",
            value.file.c_str(), value.line, key, value.text.c_str(), expected);
  }
}

void Preferences::store(std::string_view section, std::string_view key, Value value) {
  const auto number = numberOf<double>(value.text);
  const char* expected = number ? expectedUnlessInRange(section, key, *number) : nullptr;
  std::pair<std::string, std::string> place(key, section);
  if (expected) {
    sayRefused(place.first.c_str(), value, expected);
    // The default is used, as the warning says, not a value that was there before.
    if (const auto earlier = _values.find(place); earlier != _values.end()) {
      _refused.erase(&earlier->second);
      _values.erase(earlier);
    }
    return;
  }
  Value& stored = _values[std::move(place)];
  stored = std::move(value);
  _refused.erase(&stored);
}

}  // namespace tarn
