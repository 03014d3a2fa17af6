#include "nodes/meshes/TrianglePositions.h"

#include "host/classes/VOrdCollect.h"
#include "host/model/Triangle.h"
#include "tests/support/TarnTest.h"

#include <array>

class TrianglePositionsTest : public TarnTest {
protected:
  // Not in the order of their addresses.
  TrianglePositionsTest() {
    for (const int i : {2, 0, 3, 1}) list.add(&triangles[static_cast<std::size_t>(i)]);
  }
  int of(int i) { return positions.of(&triangles[static_cast<std::size_t>(i)], list); }

  std::array<tarn::Triangle, 5> triangles;
  tarn::VOrdCollect list;
  TrianglePositions positions;
};

TEST_F(TrianglePositionsTest, AreThoseInTheList) {
  for (int twice = 0; twice < 2; ++twice) {
    EXPECT_EQ(of(0), 1);
    EXPECT_EQ(of(1), 3);
    EXPECT_EQ(of(2), 0);
    EXPECT_EQ(of(3), 2);
  }
}

TEST_F(TrianglePositionsTest, WhatIsNotListedHasNone) {
  EXPECT_EQ(of(4), -1);
  EXPECT_EQ(positions.of(nullptr, list), -1);
  EXPECT_EQ(of(0), 1);
  EXPECT_EQ(of(4), -1);
}

TEST_F(TrianglePositionsTest, OfSeveralTheFirstCounts) {
  list.add(&triangles[2]);
  EXPECT_EQ(of(0), 1);
  EXPECT_EQ(of(2), 0);
}

TEST_F(TrianglePositionsTest, FollowAListThatIsFilledAnew) {
  EXPECT_EQ(of(0), 1);
  list.clear();
  for (tarn::Triangle& triangle : triangles) list.add(&triangle);
  for (int i = 0; i < 5; ++i) EXPECT_EQ(of(i), i);
  list.clear();
  EXPECT_EQ(of(0), -1);
}

TEST_F(TrianglePositionsTest, AreFoundWhereTrianglesLieUnevenlyAndStandTwice) {
  std::array<tarn::Triangle, 40> many;
  tarn::VOrdCollect uneven;
  for (const std::size_t i : {39, 0, 1, 2, 1, 17, 3, 0, 31}) uneven.add(&many[i]);
  positions.read(uneven);
  EXPECT_EQ(positions.inListRead(&many[39]), 0);
  EXPECT_EQ(positions.inListRead(&many[0]), 1);
  EXPECT_EQ(positions.inListRead(&many[1]), 2);
  EXPECT_EQ(positions.inListRead(&many[2]), 3);
  EXPECT_EQ(positions.inListRead(&many[17]), 5);
  EXPECT_EQ(positions.inListRead(&many[3]), 6);
  EXPECT_EQ(positions.inListRead(&many[31]), 8);
  EXPECT_EQ(positions.inListRead(&many[30]), -1);
  EXPECT_EQ(positions.inListRead(nullptr), -1);
}

TEST_F(TrianglePositionsTest, OfOneTriangleAndOfNone) {
  positions.read(tarn::VOrdCollect());
  EXPECT_EQ(positions.inListRead(&triangles[0]), -1);
  tarn::VOrdCollect one;
  one.add(&triangles[1]);
  one.add(&triangles[1]);
  positions.read(one);
  EXPECT_EQ(positions.inListRead(&triangles[1]), 0);
  EXPECT_EQ(positions.inListRead(&triangles[0]), -1);
}
