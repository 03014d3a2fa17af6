#include "host/general/DisplayBitmaps.h"

#include <array>

#include <Inventor/SbVec2s.h>
#include <Inventor/nodes/SoMarkerSet.h>

namespace tarn {

namespace {

constexpr short symbolSize = 9;
using Picture = std::array<const char*, symbolSize>;

constexpr Picture controlPointPicture = {
    "    x    ",
    "   x x   ",
    "   x x   ",
    "  x   x  ",
    "  x x x  ",
    " x     x ",
    " x     x ",
    "x       x",
    "xxxxxxxxx"};
constexpr Picture secondStatePicture = {
    "    x    ",
    "   x x   ",
    "  x   x  ",
    " x     x ",
    "x   x   x",
    " x     x ",
    "  x   x  ",
    "   x x   ",
    "    x    "};
constexpr Picture codedTargetPicture = {
    "  xxxxx  ",
    " x     x ",
    "x       x",
    "x   x   x",
    "x  xxx  x",
    "x   x   x",
    "x       x",
    " x     x ",
    "  xxxxx  "};
constexpr Picture subPixelPicture = {
    "         ",
    "   xxx   ",
    "  x   x  ",
    " x     x ",
    " x     x ",
    " x     x ",
    "  x   x  ",
    "   xxx   ",
    "         "};
constexpr Picture pointPicture = {
    "         ",
    "    x    ",
    "    x    ",
    "    x    ",
    " xxxxxxx ",
    "    x    ",
    "    x    ",
    "    x    ",
    "         "};

// Enters one picture under a new index. Coin takes rows from the bottom up, each
// padded to whole bytes.
int addMarker(const Picture& picture) {
  std::array<unsigned char, 2 * symbolSize> bitmap{};
  for (std::size_t row = 0; row < picture.size(); ++row) {
    for (std::size_t column = 0; column < symbolSize; ++column) {
      if (picture[picture.size() - 1 - row][column] == 'x') {
        bitmap[2 * row + column / 8] = static_cast<unsigned char>(
            bitmap[2 * row + column / 8] | (0x80U >> (column % 8)));
      }
    }
  }
  const int index = SoMarkerSet::getNumDefinedMarkers();
  SoMarkerSet::addMarker(index, SbVec2s(symbolSize, symbolSize), bitmap.data(), FALSE, TRUE);
  return index;
}

}  // namespace

DisplayBitmaps gSymbols;

DisplayBitmaps::DisplayBitmaps()
    : controlPoint(SoMarkerSet::TRIANGLE_LINE_9_9),
      secondState(SoMarkerSet::DIAMOND_LINE_9_9),
      codedTarget(SoMarkerSet::CIRCLE_FILLED_9_9),
      subPixel(SoMarkerSet::CIRCLE_LINE_9_9),
      point(SoMarkerSet::PLUS_9_9) {}

void DisplayBitmaps::registerMarkers() {
  controlPoint = addMarker(controlPointPicture);
  secondState = addMarker(secondStatePicture);
  codedTarget = addMarker(codedTargetPicture);
  subPixel = addMarker(subPixelPicture);
  point = addMarker(pointPicture);
}

}  // namespace tarn
