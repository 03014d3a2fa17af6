#include "tests/support/RecordingPreferences.h"

#include <cstdio>
#include <utility>

namespace {
template <typename... Arguments>
std::string printed(const char* format, Arguments... arguments) {
  char text[64];
  std::snprintf(text, sizeof text, format, arguments...);
  return text;
}
}  // namespace

int RecordingPreferences::GetPreference(const char* key, int defaultValue,
                                        const char* section) const {
  record(PreferenceRead::eInt, key, std::to_string(defaultValue), section);
  return Preferences::GetPreference(key, defaultValue, section);
}

double RecordingPreferences::GetPreference(const char* key, double defaultValue,
                                           const char* section) const {
  record(PreferenceRead::eDouble, key, printed("%.17g", defaultValue), section);
  return Preferences::GetPreference(key, defaultValue, section);
}

tarn::Colour RecordingPreferences::GetPreference(const char* key, const tarn::Colour& defaultValue,
                                                 const char* section) const {
  record(PreferenceRead::eColour, key,
         printed("%03d%03d%03d", defaultValue.red(), defaultValue.green(), defaultValue.blue()),
         section);
  return Preferences::GetPreference(key, defaultValue, section);
}

tarn::VString RecordingPreferences::GetPreference(const char* key, const char* defaultValue,
                                                  const char* section) const {
  record(PreferenceRead::eText, key, defaultValue, section);
  return Preferences::GetPreference(key, defaultValue, section);
}

int RecordingPreferences::GetBoolPreference(const char* key, int defaultValue,
                                            const char* section) const {
  record(PreferenceRead::eBool, key, std::to_string(defaultValue), section);
  return Preferences::GetBoolPreference(key, defaultValue, section);
}

std::vector<PreferenceRead> RecordingPreferences::takeReads() { return std::exchange(reads, {}); }

void RecordingPreferences::record(PreferenceRead::Kind kind, const char* key,
                                  std::string defaultValue, const char* section) const {
  reads.push_back({kind, key, std::move(defaultValue), section ? section : "(null)"});
}
