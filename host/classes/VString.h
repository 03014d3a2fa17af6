#pragma once

#include "host/TarnOIHostExport.h"
#include "host/classes/VObject.h"

#include <string>
#include <string_view>

namespace tarn {

extern TARN_HOST_EXPORT VClass VStringCls;

/// A text in UTF-8. As a dictionary key it stands for its text: two strings of
/// the same text are one key, so the text must not change while it is a key.
class TARN_HOST_EXPORT VString : public VObject {
public:
  VString() = default;
  VString(const char* text);  // NOLINT(google-explicit-constructor): texts are written in place
  VString(std::string_view text);  // NOLINT(google-explicit-constructor)

  const char* text() const { return _text.c_str(); }
  const std::string& str() const { return _text; }
  int length() const { return static_cast<int>(_text.size()); }
  int isEmpty() const { return _text.empty(); }

  /// Replaces the text by a printf format filled with the arguments that follow.
  void prints(const char* format, ...) __attribute__((format(printf, 2, 3)));

  /// The text of a message of the system's own, by its number; empty for a number
  /// that is not known.
  static VString getResource(int id);

  /// Gives message `id` its text (an application's own language, for example).
  static void setResource(int id, std::string_view text);

  VClass* iam() const override { return &VStringCls; }
  std::uint64_t hash() const override;
  int isEqual(const VObject* other) const override;

protected:
  /// Called whenever the text was set as a whole; a path normalises it here.
  virtual void textChanged() {}
  std::string _text;
};

}  // namespace tarn
