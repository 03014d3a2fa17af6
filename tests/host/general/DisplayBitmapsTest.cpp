#include "host/general/DisplayBitmaps.h"

#include <Inventor/SbVec2s.h>
#include <Inventor/SoDB.h>
#include <Inventor/nodes/SoMarkerSet.h>

#include "nodes/TarnOI.h"
#include "tests/support/TarnTest.h"

#include <cstdlib>
#include <set>
#include <string>
#include <vector>

using tarn::gSymbols;
using ::testing::ElementsAre;

namespace {

// A marker's picture, rows from the top down, as Coin will draw it: it keeps rows from
// the bottom up, the leftmost pixel in the highest bit.
std::vector<std::string> pictureOf(int index) {
  SbVec2s size;
  const unsigned char* bytes = nullptr;
  SbBool leastBitFirst = TRUE;
  if (!SoMarkerSet::getMarker(index, size, bytes, leastBitFirst) || !bytes) return {};
  std::vector<std::string> rows;
  const int bytesARow = (size[0] + 7) / 8;
  for (int row = size[1] - 1; row >= 0; --row) {
    std::string text;
    for (int column = 0; column < size[0]; ++column) {
      text += bytes[row * bytesARow + column / 8] & (0x80 >> (column % 8)) ? 'x' : '.';
    }
    rows.push_back(text);
  }
  return rows;
}

std::set<int> indexes() {
  return {gSymbols.controlPoint, gSymbols.secondState, gSymbols.codedTarget, gSymbols.subPixel,
          gSymbols.point};
}

}  // namespace

class DisplayBitmapsTest : public TarnTest {};

TEST_F(DisplayBitmapsTest, FiveSymbolsAreMarkersOfTheirOwn) {
  EXPECT_EQ(indexes().size(), 5U);
  for (const int index : indexes()) {
    EXPECT_GE(index, static_cast<int>(SoMarkerSet::NUM_MARKERS));
    EXPECT_LT(index, SoMarkerSet::getNumDefinedMarkers());
  }
}

TEST_F(DisplayBitmapsTest, TheControlPointIsATriangleOnItsBase) {
  EXPECT_THAT(pictureOf(gSymbols.controlPoint),
              ElementsAre("....x....",  //
                          "...x.x...",  //
                          "...x.x...",  //
                          "..x...x..",  //
                          "..x.x.x..",  //
                          ".x.....x.",  //
                          ".x.....x.",  //
                          "x.......x",  //
                          "xxxxxxxxx"));
}

TEST_F(DisplayBitmapsTest, TheSecondStateIsASquareOnItsCornerWithADot) {
  const auto picture = pictureOf(gSymbols.secondState);
  ASSERT_EQ(picture.size(), 9U);
  EXPECT_EQ(picture[0], "....x....");
  EXPECT_EQ(picture[4], "x...x...x");
  EXPECT_EQ(picture[8], "....x....");
}

TEST_F(DisplayBitmapsTest, TheCodedTargetIsARingAroundADot) {
  const auto picture = pictureOf(gSymbols.codedTarget);
  ASSERT_EQ(picture.size(), 9U);
  EXPECT_EQ(picture[0], "..xxxxx..");
  EXPECT_EQ(picture[4], "x..xxx..x");
}

TEST_F(DisplayBitmapsTest, TheSubPixelPointIsACircle) {
  const auto picture = pictureOf(gSymbols.subPixel);
  ASSERT_EQ(picture.size(), 9U);
  EXPECT_EQ(picture[1], "...xxx...");
  EXPECT_EQ(picture[4], ".x.....x.");
}

TEST_F(DisplayBitmapsTest, ThePointIsACross) {
  const auto picture = pictureOf(gSymbols.point);
  ASSERT_EQ(picture.size(), 9U);
  EXPECT_EQ(picture[1], "....x....");
  EXPECT_EQ(picture[4], ".xxxxxxx.");
}

TEST_F(DisplayBitmapsTest, RegisteringAgainAddsNothing) {
  const tarn::DisplayBitmaps before = gSymbols;
  const int count = SoMarkerSet::getNumDefinedMarkers();
  gSymbols.registerMarkers();
  EXPECT_EQ(SoMarkerSet::getNumDefinedMarkers(), count);
  EXPECT_EQ(gSymbols.controlPoint, before.controlPoint);
  EXPECT_EQ(gSymbols.point, before.point);
}

TEST_F(DisplayBitmapsTest, RegisteringPutsBackWhatAnApplicationReplaced) {
  const int own = gSymbols.point;
  gSymbols.point = SoMarkerSet::STAR_9_9;
  gSymbols.registerMarkers();
  EXPECT_EQ(gSymbols.point, own);
}

TEST_F(DisplayBitmapsTest, UnregisteredSymbolsAreDifferentMarkersOfCoin) {
  const tarn::DisplayBitmaps fresh;
  const std::set<int> all = {fresh.controlPoint, fresh.secondState, fresh.codedTarget,
                             fresh.subPixel, fresh.point};
  EXPECT_EQ(all.size(), 5U);
  EXPECT_LT(*all.rbegin(), static_cast<int>(SoMarkerSet::NUM_MARKERS));
}

TEST_F(DisplayBitmapsTest, TheSymbolsComeBackAfterCoinWasFinishedAndStartedAgain) {
  // In a process of its own: the data base of this one goes on.
  const auto picture = pictureOf(gSymbols.controlPoint);
  EXPECT_EXIT(
      {
        TarnOI::cleanUpClasses();
        SoDB::finish();
        SoDB::init();
        // Somebody else's marker moves the indices.
        const unsigned char bytes[8] = {};
        SoMarkerSet::addMarker(SoMarkerSet::getNumDefinedMarkers(), SbVec2s(8, 8), bytes, FALSE,
                               FALSE);
        gSymbols.registerMarkers();
        const bool whole = indexes().size() == 5 && pictureOf(gSymbols.controlPoint) == picture;
        std::_Exit(whole ? 0 : 1);
      },
      ::testing::ExitedWithCode(0), "");
}
