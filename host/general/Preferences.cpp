#include "host/general/Preferences.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <fstream>
#include <limits>
#include <optional>

#include "host/general/warning.h"

namespace tarn {

namespace {

std::string_view trimmed(std::string_view text) {
  constexpr std::string_view blanks = " \t\r\n";
  const auto first = text.find_first_not_of(blanks);
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

// Numbers are written with a point whatever the program's locale is.
template <typename Number>
std::optional<Number> numberOf(std::string_view text) {
  Number number{};
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), number);
  if (error != std::errc{} || end != text.data() + text.size()) return std::nullopt;
  return number;
}

std::optional<int> truthOf(std::string_view text) {
  std::string lower(text);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  if (lower == "1" || lower == "true" || lower == "yes" || lower == "on") return 1;
  if (lower == "0" || lower == "false" || lower == "no" || lower == "off") return 0;
  return std::nullopt;
}

std::optional<Colour> colourOf(std::string_view text) {
  if (text.size() != 9) return std::nullopt;
  std::array<std::uint8_t, 3> bytes{};
  for (std::size_t i = 0; i < 3; ++i) {
    const auto component = numberOf<unsigned>(text.substr(3 * i, 3));
    if (!component || *component > 255) return std::nullopt;
    bytes[i] = static_cast<std::uint8_t>(*component);
  }
  return Colour(bytes[0], bytes[1], bytes[2]);
}

// Keys whose numbers make sense in a range only. A resample factor of 0 would
// divide by zero, a negative sphere size would turn a sphere inside out.
struct Range {
  std::string_view key;
  double least;
  double most;
  const char* expected;
};
constexpr double unlimited = std::numeric_limits<double>::max();
constexpr std::array ranges = {
    Range{"CamStnImageResampleFactor", 1.0, 1000.0, "a number from 1 to 1000"},
    Range{"ExagerationSphereSize", 0.0, unlimited, "a number of 0 or more"},
};

const char* expectedUnlessInRange(std::string_view key, double number) {
  for (const Range& range : ranges) {
    if (range.key == key && !(number >= range.least && number <= range.most)) return range.expected;
  }
  return nullptr;
}

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
  store(section ? section : "", key, Value{std::string(trimmed(value)), {}, 0});
}

int Preferences::Read(const char* fileName) {
  std::ifstream file(fileName);
  if (!file) {
    warning("%s: the preference file cannot be read", fileName);
    return 0;
  }
  std::string section;
  std::string text;
  for (int line = 1; std::getline(file, text); ++line) {
    const std::string_view content = trimmed(text);
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
  return 1;
}

const Preferences::Value* Preferences::find(const char* key, const char* section) const {
  const auto found = _values.find({section ? section : "", key});
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
  const char* expected = number ? expectedUnlessInRange(key, *number) : nullptr;
  if (expected) {
    sayRefused(std::string(key).c_str(), value, expected);
    return;
  }
  Value& stored = _values[{std::string(section), std::string(key)}];
  stored = std::move(value);
  _refused.erase(&stored);
}

}  // namespace tarn
