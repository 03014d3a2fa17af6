#pragma once

#include "host/general/Preferences.h"

#include <ostream>
#include <string>
#include <vector>

/// One question to the preference store, with the kind of value that was asked for: a store
/// answers a flag and a number of the same text differently. Defaults are kept as text:
/// numbers as printed by %.17g, colours as RRRGGGBBB; a null section as "(null)".
struct PreferenceRead {
  enum Kind { eInt, eDouble, eColour, eText, eBool };
  Kind kind;
  std::string key;
  std::string defaultValue;
  std::string section;
  friend bool operator==(const PreferenceRead&, const PreferenceRead&) = default;
  friend void PrintTo(const PreferenceRead& read, std::ostream* out) {
    constexpr const char* kinds[] = {"int", "double", "colour", "text", "bool"};
    *out << "[" << read.section << "] " << kinds[read.kind] << " " << read.key << " default "
         << read.defaultValue;
  }
};

/// A preference store that records what it is asked. Values are set with Set.
class RecordingPreferences : public tarn::Preferences {
public:
  int GetPreference(const char* key, int defaultValue, const char* section) const override;
  double GetPreference(const char* key, double defaultValue, const char* section) const override;
  tarn::Colour GetPreference(const char* key, const tarn::Colour& defaultValue,
                             const char* section) const override;
  tarn::VString GetPreference(const char* key, const char* defaultValue,
                              const char* section) const override;
  int GetBoolPreference(const char* key, int defaultValue, const char* section) const override;

  /// What was asked since the last call, in order.
  std::vector<PreferenceRead> takeReads();

private:
  void record(PreferenceRead::Kind kind, const char* key, std::string defaultValue,
              const char* section) const;
  mutable std::vector<PreferenceRead> reads;
};
