#pragma once

#include "io/TarnOIIOExport.h"

#include <stdexcept>
#include <string>

namespace tarn {

/// Input that a reader refuses. The message names the file, the place in it (a line or a
/// byte), what was found there and what was expected.
class TARN_IO_EXPORT ReadError : public std::runtime_error {
public:
  /// "FILE:LINE: found FOUND, expected EXPECTED"
  static ReadError atLine(const std::string& file, long line, const std::string& found,
                          const std::string& expected);
  /// "FILE: at byte BYTE: found FOUND, expected EXPECTED"
  static ReadError atByte(const std::string& file, long long byte, const std::string& found,
                          const std::string& expected);
  /// "FILE: found FOUND, expected EXPECTED"
  static ReadError inFile(const std::string& file, const std::string& found,
                          const std::string& expected);
  ~ReadError() override;

private:
  explicit ReadError(const std::string& message) : std::runtime_error(message) {}
};

}  // namespace tarn
