#include <Inventor/SoDB.h>
#include <Inventor/SoInteraction.h>
#include <gtest/gtest.h>

#include "nodes/TarnOI.h"
#include "tests/support/CoinErrors.h"
#include "viewer/HeadlessContext.h"

int main(int argc, char** argv) {
  ::testing::InitGoogleTest(&argc, argv);
  HeadlessContext::prepareEnvironment();
  SoDB::init();
  SoInteraction::init();
  CoinErrors::record();
  TarnOI::initClasses();
  const int result = RUN_ALL_TESTS();
  // Coin's own shutdown has to work after ours: a crash here fails every test.
  TarnOI::cleanUpClasses();
  SoDB::finish();
  return result;
}
