#pragma once

#include "tests/support/SourceTree.h"
#include "viewer/Picture.h"

#include <string>

/// Compares drawn pictures with the accepted ones, tests/baselines/NAME.png.
///
/// A picture that is missing there or differs fails the test and is saved as
/// failed-pictures/NAME.png in the build folder, beside NAME-difference.png where the sizes
/// agree. With TARN_ACCEPT_BASELINES=1 in the environment the pictures are written as the
/// new baselines instead: look at them before they are committed.
namespace Baseline {

/// How far a picture may be off, in bytes of 0 to 255 over all colour components. Another
/// renderer draws edges one pixel further: a large maximum with a small mean lets that pass
/// and nothing else. State the reason where a test asks for more than this.
struct Tolerance {
  int maximum = 0;
  double mean = 0.0;
};

/// Fails the current test unless `picture` is the accepted one of that name.
/// @param folder holds the accepted pictures
void expectMatch(const Picture& picture, const std::string& name, const Tolerance& tolerance,
                 const std::string& folder = SourceTree::file("tests/baselines"));

}  // namespace Baseline
