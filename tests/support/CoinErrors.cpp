#include "tests/support/CoinErrors.h"

#include <Inventor/errors/SoDebugError.h>
#include <Inventor/errors/SoMemoryError.h>
#include <Inventor/errors/SoReadError.h>

#include <utility>

namespace {
std::vector<std::string> reports;

void keep(const SoError* error, void*) {
  reports.emplace_back(error->getDebugString().getString());
}
}  // namespace

void CoinErrors::record() {
  SoError::setHandlerCallback(&keep, nullptr);
  SoDebugError::setHandlerCallback(&keep, nullptr);
  SoReadError::setHandlerCallback(&keep, nullptr);
  SoMemoryError::setHandlerCallback(&keep, nullptr);
}

std::vector<std::string> CoinErrors::take() { return std::exchange(reports, {}); }
