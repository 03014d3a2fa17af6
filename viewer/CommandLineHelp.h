#pragma once

/// What `tarnview --help` prints around the list of options.
namespace CommandLineHelp {

extern const char* const description;
extern const char* const examples;

}  // namespace CommandLineHelp
