#include "tests/support/TarnTest.h"

#include <gtest/gtest-spi.h>

#include "host/general/assertError.h"
#include "host/general/warning.h"
#include "nodes/framework/NodeRef.h"
#include "nodes/framework/TarnOILayerSeparator.h"

#include <memory>

namespace {

// A fixture that holds a node, which reports at its end that it never had a dictionary.
class HoldsANode : public TarnTest {
public:
  HoldsANode() = default;
  using TarnTest::takeAssertions;
  using TarnTest::TearDown;
  void TestBody() override {}
  NodeRef<TarnOILayerSeparator> node;
};

}  // namespace

// No TarnTest itself: there is one set of handlers.
TEST(TarnTestTest, ReportThatWasNotTakenFails) {
  HoldsANode test;
  tarn::assertError("x > 0", "Somewhere", 12);
  EXPECT_NONFATAL_FAILURE(test.TearDown(), "unexpected assertion: Somewhere:12: x > 0");
  tarn::warning("mind the %s", "gap");
  EXPECT_NONFATAL_FAILURE(test.TearDown(), "unexpected warning: mind the gap");
}

TEST(TarnTestTest, ReportThatWasTakenDoesNotFail) {
  HoldsANode test;
  tarn::assertError("x > 0", "Somewhere", 12);
  EXPECT_THAT(test.takeAssertions(),
              ::testing::ElementsAre(IsAssertionAt("x > 0", "Somewhere", 12)));
  test.TearDown();
}

TEST(TarnTestTest, ReportOfANodeThatTheFixtureHeldFails) {
  auto test = std::make_unique<HoldsANode>();
  test->node = makeNode<TarnOILayerSeparator>();
  test->TearDown();
  EXPECT_NONFATAL_FAILURE(test.reset(), "tarnoi_searchDict");
}
