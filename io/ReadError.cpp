#include "io/ReadError.h"

namespace tarn {

namespace {
std::string foundExpected(const std::string& found, const std::string& expected) {
  return "found " + found + ", expected " + expected;
}
}  // namespace

ReadError ReadError::atLine(const std::string& file, long line, const std::string& found,
                            const std::string& expected) {
  return ReadError(file + ":" + std::to_string(line) + ": " + foundExpected(found, expected));
}

ReadError ReadError::atByte(const std::string& file, long long byte, const std::string& found,
                            const std::string& expected) {
  return ReadError(file + ": at byte " + std::to_string(byte) + ": " +
                   foundExpected(found, expected));
}

ReadError ReadError::inFile(const std::string& file, const std::string& found,
                            const std::string& expected) {
  return ReadError(file + ": " + foundExpected(found, expected));
}

ReadError::~ReadError() = default;

}  // namespace tarn
