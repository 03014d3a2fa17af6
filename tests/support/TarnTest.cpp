#include "tests/support/TarnTest.h"

#include <Inventor/errors/SoError.h>

#include "host/general/assertError.h"
#include "host/general/warning.h"
#include "tests/support/CoinErrors.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <utility>

namespace {
std::vector<Assertion> assertions;
std::vector<std::string> warnings;
}  // namespace

TarnTest::TarnTest() : earlierPreferences(std::exchange(tarn::gPref, &preferences)) {
  assertions.clear();
  warnings.clear();
  CoinErrors::take();
  tarn::setAssertHandler([](const char* condition, const char* file, int line) {
    assertions.push_back({condition, file, line});
  });
  tarn::setWarningHandler([](const char* message) { warnings.emplace_back(message); });
  tarn::gThreeDViewOffset = viewOffset;
}

TarnTest::~TarnTest() {
  // The nodes that a derived fixture held are gone by now: what they said at their end counts.
  failOnReports();
  tarn::gThreeDViewOffset = {};
  tarn::setWarningHandler(nullptr);
  tarn::setAssertHandler(nullptr);
  tarn::gPref = earlierPreferences;
}

void TarnTest::TearDown() { failOnReports(); }

void TarnTest::failOnReports() {
  for (const Assertion& assertion : takeAssertions()) {
    ADD_FAILURE() << "unexpected assertion: " << ::testing::PrintToString(assertion);
  }
  for (const std::string& text : takeWarnings()) ADD_FAILURE() << "unexpected warning: " << text;
  for (const std::string& text : takeCoinErrors()) {
    ADD_FAILURE() << "unexpected report of Coin: " << text;
  }
}

std::vector<Assertion> TarnTest::takeAssertions() { return std::exchange(assertions, {}); }

std::vector<std::string> TarnTest::takeWarnings() { return std::exchange(warnings, {}); }

std::vector<std::string> TarnTest::takeCoinErrors() { return CoinErrors::take(); }

const char* dataFolder() { return std::getenv("TARN_DATA"); }

TemporaryFolder::TemporaryFolder() {
  std::string pattern = (std::filesystem::temp_directory_path() / "tarnoi-test-XXXXXX").string();
  if (!mkdtemp(pattern.data())) throw std::runtime_error("no temporary folder can be made");
  folder = pattern;
}

TemporaryFolder::~TemporaryFolder() {
  std::error_code ignored;
  std::filesystem::remove_all(folder, ignored);
}

std::string TemporaryFolder::write(const std::string& name, const std::string& content) const {
  const std::filesystem::path path = std::filesystem::path(folder) / name;
  std::filesystem::create_directories(path.parent_path());
  std::ofstream(path, std::ios::binary) << content;
  return path.string();
}
