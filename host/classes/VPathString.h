#pragma once

#include "host/classes/VString.h"

namespace tarn {

extern TARN_HOST_EXPORT VClass VPathStringCls;

/// A file path. Either separator, '/' or '\', is turned into the platform's when
/// the text is set, so that a path printed with "%s\%s" is right on every system.
class TARN_HOST_EXPORT VPathString : public VString {
public:
  VPathString() = default;
  VPathString(const char* text);       // NOLINT(google-explicit-constructor)
  VPathString(std::string_view text);  // NOLINT(google-explicit-constructor)

  /// The folder that holds the file, without a separator at its end: "." for a
  /// bare file name, the root itself for a file in the root.
  VPathString directoryOf() const;

  /// The file's name without folder and without its last extension; a name that
  /// only begins with a dot is all prefix.
  VString prefixOf() const;

  VClass* iam() const override { return &VPathStringCls; }

protected:
  void textChanged() override;
};

}  // namespace tarn
