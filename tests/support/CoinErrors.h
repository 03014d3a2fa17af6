#pragma once

#include <string>
#include <vector>

/// What Coin itself reports: errors, warnings and read errors.
namespace CoinErrors {

/// Records from now on instead of printing. Call it after SoDB::init.
void record();

/// What was reported since the last call.
std::vector<std::string> take();

}  // namespace CoinErrors
