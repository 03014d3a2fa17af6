#include "host/model/PointTriples.h"

#include "tests/support/TarnTest.h"

#include <algorithm>
#include <utility>

using tarn::PointTriples;

class PointTriplesTest : public TarnTest {
protected:
  PointTriples<float> triples;
};

TEST_F(PointTriplesTest, HasNoRowsBeforeAnythingIsAllocated) {
  EXPECT_EQ(triples.count(), 0);
  EXPECT_EQ(triples.rows(), nullptr);
  EXPECT_TRUE(triples.numbers().empty());
}

TEST_F(PointTriplesTest, NoPointsHaveRowsAllTheSame) {
  triples.allocate(0);
  EXPECT_EQ(triples.count(), 0);
  EXPECT_NE(triples.rows(), nullptr);
  triples.allocate(-5);
  EXPECT_EQ(triples.count(), 0);
}

TEST_F(PointTriplesTest, EachRowPointsToItsThreeNumbers) {
  triples.allocate(3);
  ASSERT_EQ(triples.numbers().size(), 9U);
  for (int i = 0; i < 3; ++i) EXPECT_EQ(triples.rows()[i], triples.numbers().data() + 3 * i);
}

TEST_F(PointTriplesTest, TruncatingKeepsTheFirstPointsAndNeverGrows) {
  triples.allocate(3);
  std::ranges::fill(triples.numbers(), 2.5F);
  triples.truncate(2);
  EXPECT_EQ(triples.count(), 2);
  EXPECT_EQ(triples.numbers().size(), 6U);
  EXPECT_EQ(triples.rows()[1][2], 2.5F);
  for (const int refused : {2, 3, -1}) {
    triples.truncate(refused);
    EXPECT_EQ(triples.count(), 2);
  }
}

TEST_F(PointTriplesTest, AMoveLeavesTheRowsWhereTheyAre) {
  triples.allocate(2);
  float** const rows = triples.rows();
  float* const second = rows[1];
  const PointTriples<float> moved = std::move(triples);
  EXPECT_EQ(moved.rows(), rows);
  EXPECT_EQ(moved.rows()[1], second);
}

TEST_F(PointTriplesTest, ClearingForgetsAll) {
  triples.allocate(2);
  triples.clear();
  EXPECT_EQ(triples.count(), 0);
  EXPECT_EQ(triples.rows(), nullptr);
}
