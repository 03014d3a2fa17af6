#pragma once

#include "host/model/Profile.h"

#include <string>
#include <vector>

namespace tarn {
class Units;
}  // namespace tarn

/// Writes profiles as tables that every spreadsheet and plotting program reads.
namespace ProfileFile {

/// Writes a line "distance,height" and then a line for each point, in the unit, with a decimal
/// point whatever the language is and with up to 12 digits, more than a cloud's single precision
/// has. The file appears whole or not at all (see WholeFile); throws std::runtime_error when it
/// cannot be written.
void write(const std::string& fileName, const std::vector<tarn::Profile::Point>& profile,
           const tarn::Units& units);

}  // namespace ProfileFile
