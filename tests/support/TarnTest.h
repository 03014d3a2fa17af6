#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "host/general/ThreeDViewOffset.h"
#include "tests/support/RecordingDictionary.h"
#include "tests/support/RecordingPreferences.h"

#include <ostream>
#include <string>
#include <vector>

/// One failed check that was reported.
struct Assertion {
  std::string condition;
  std::string file;
  int line = 0;
  friend void PrintTo(const Assertion& a, std::ostream* out) {
    *out << a.file << ":" << a.line << ": " << a.condition;
  }
};

MATCHER_P2(IsAssertion, condition, file, "") {
  return arg.condition == condition && arg.file == file;
}
MATCHER_P3(IsAssertionAt, condition, file, line, "") {
  return arg.condition == condition && arg.file == file && arg.line == line;
}

/// The fixture of all tests. Assertions, warnings and Coin's own errors are recorded; what
/// a test did not take is a failure of that test, also when it comes from the end of a node
/// that the derived fixture holds. The preference store is `preferences`,
/// which records every read. The view offset has three different components, for a zero
/// offset hides most mistakes.
class TarnTest : public ::testing::Test {
protected:
  TarnTest();
  ~TarnTest() override;
  void TearDown() override;

  /// What was reported since the last call.
  std::vector<Assertion> takeAssertions();
  std::vector<std::string> takeWarnings();
  std::vector<std::string> takeCoinErrors();

  static constexpr tarn::Point3DDouble viewOffset{10.5, -20.25, 30.125};

  RecordingPreferences preferences;
  RecordingDictionary dictionary;

private:
  void failOnReports();

  tarn::Preferences* earlierPreferences;
};

/// The folder of real projects; null when the environment variable TARN_DATA is not set.
const char* dataFolder();

/// Skips the test, by name, when there are no real projects to read.
#define TARN_REQUIRE_DATA() \
  if (!dataFolder()) GTEST_SKIP() << "TARN_DATA is not set"

/// A folder of its own for one test, emptied with it.
class TemporaryFolder {
public:
  TemporaryFolder();
  ~TemporaryFolder();
  TemporaryFolder(const TemporaryFolder&) = delete;
  TemporaryFolder& operator=(const TemporaryFolder&) = delete;

  const std::string& path() const { return folder; }
  /// The path of a file in the folder.
  std::string file(const std::string& name) const { return folder + "/" + name; }
  /// Writes a file into the folder and returns its path.
  std::string write(const std::string& name, const std::string& content) const;

private:
  std::string folder;
};
