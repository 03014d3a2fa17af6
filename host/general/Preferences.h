#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VString.h"
#include "host/general/Colour.h"

#include <map>
#include <set>
#include <string>
#include <string_view>
#include <utility>

namespace tarn {

/// The preference store: values by section and key, from an INI file or set by the
/// application. A null section means the lines ahead of the file's first [section].
/// Nodes ask for a value each time they build or update; nothing is cached there.
///
/// A value that cannot be used (text where a number is expected, a number outside
/// the range that makes sense for its key) is refused with a warning that names
/// the file and the line, once, and the default given in the call is used instead.
/// Numbers are written with a point, whatever the program's locale is.
///
///   Preferences preferences;
///   preferences.Read("tarnview.ini");
///   preferences.Set("UseNewSymbol", "0", "TarnOICamera");
///   gPref = &preferences;
class TARN_HOST_EXPORT Preferences {
public:
  virtual ~Preferences();

  virtual int GetPreference(const char* key, int defaultValue, const char* section = nullptr) const;
  virtual double GetPreference(const char* key, double defaultValue,
                               const char* section = nullptr) const;
  /// Colours are stored as nine decimal digits RRRGGGBBB, each component 0 to 255;
  /// zeros at the front may be missing, as in 44043043.
  virtual Colour GetPreference(const char* key, const Colour& defaultValue,
                               const char* section = nullptr) const;
  virtual VString GetPreference(const char* key, const char* defaultValue,
                                const char* section = nullptr) const;
  /// Non-zero for 1, true, yes or on; 0 for 0, false, no or off.
  virtual int GetBoolPreference(const char* key, int defaultValue,
                                const char* section = nullptr) const;

  /// Sets one value as its text in the file would be.
  void Set(const char* key, std::string_view value, const char* section = nullptr);

  /// Reads an INI file in UTF-8 over the values already there: "[section]", "key = value",
  /// comments after ';' or '#' at a line's start. Of a key that comes twice the later
  /// value holds. A line of another form is refused with a warning that names file and
  /// line, and skipped.
  /// @return non-zero when the file could be read; 0, with a warning, when not.
  int Read(const char* fileName);

private:
  struct Value {
    std::string text;
    std::string file;  // empty when set by the application
    int line = 0;
  };
  const Value* find(const char* key, const char* section) const;
  void refuse(const char* key, const Value& value, const char* expected) const;
  static void sayRefused(const char* key, const Value& value, const char* expected);
  void store(std::string_view section, std::string_view key, Value value);

  // Nodes ask a hundred thousand times: a question must not cost two strings.
  struct ByKeyThenSection {
    using is_transparent = void;
    template <typename A, typename B>
    bool operator()(const A& a, const B& b) const {
      const int order = std::string_view(a.first).compare(std::string_view(b.first));
      return order ? order < 0 : std::string_view(a.second) < std::string_view(b.second);
    }
  };
  std::map<std::pair<std::string, std::string>, Value, ByKeyThenSection> _values;
  mutable std::set<const Value*> _refused;  // each value is refused once, however often it is read
};

/// The store that all nodes read. It points to an empty store, which answers every
/// question with its default, until the application sets its own (not owned).
extern TARN_HOST_EXPORT Preferences* gPref;

}  // namespace tarn
