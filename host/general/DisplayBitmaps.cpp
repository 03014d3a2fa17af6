#include "host/general/DisplayBitmaps.h"

#include <Inventor/SbVec2s.h>
#include <Inventor/nodes/SoMarkerSet.h>

#include <algorithm>
#include <array>

namespace tarn {

namespace {

constexpr short symbolSize = 9;
using Picture = std::array<const char*, symbolSize>;

// One row of pixels a line.
// clang-format off
constexpr Picture controlPointPicture = {
    "    x    ",
    "   x x   ",
    "   x x   ",
    "  x   x  ",
    "  x x x  ",
    " x     x ",
    " x     x ",
    "x       x",
    "xxxxxxxxx",
};
constexpr Picture secondStatePicture = {
    "    x    ",
    "   x x   ",
    "  x   x  ",
    " x     x ",
    "x   x   x",
    " x     x ",
    "  x   x  ",
    "   x x   ",
    "    x    ",
};
constexpr Picture codedTargetPicture = {
    "  xxxxx  ",
    " x     x ",
    "x       x",
    "x   x   x",
    "x  xxx  x",
    "x   x   x",
    "x       x",
    " x     x ",
    "  xxxxx  ",
};
constexpr Picture subPixelPicture = {
    "         ",
    "   xxx   ",
    "  x   x  ",
    " x     x ",
    " x     x ",
    " x     x ",
    "  x   x  ",
    "   xxx   ",
    "         ",
};
constexpr Picture pointPicture = {
    "         ",
    "    x    ",
    "    x    ",
    "    x    ",
    " xxxxxxx ",
    "    x    ",
    "    x    ",
    "    x    ",
    "         ",
};
// clang-format on

// Coin keeps a marker's rows from the bottom up, each padded to whole bytes, the leftmost
// pixel in the highest bit.
using Bitmap = std::array<unsigned char, 2 * symbolSize>;

Bitmap bitmapOf(const Picture& picture) {
  Bitmap bitmap{};
  for (std::size_t row = 0; row < picture.size(); ++row) {
    for (std::size_t column = 0; column < symbolSize; ++column) {
      if (picture[picture.size() - 1 - row][column] != 'x') continue;
      unsigned char& byte = bitmap[2 * row + column / 8];
      byte = static_cast<unsigned char>(byte | (0x80U >> (column % 8)));
    }
  }
  return bitmap;
}

// The index of one picture: that under which it is already known, or a new one.
int markerOf(const Picture& picture) {
  const Bitmap bitmap = bitmapOf(picture);
  const int count = SoMarkerSet::getNumDefinedMarkers();
  for (int index = SoMarkerSet::NUM_MARKERS; index < count; ++index) {
    SbVec2s size;
    const unsigned char* bytes = nullptr;
    SbBool leastBitFirst = FALSE;
    if (SoMarkerSet::getMarker(index, size, bytes, leastBitFirst) && bytes &&
        size == SbVec2s(symbolSize, symbolSize) &&
        std::equal(bitmap.begin(), bitmap.end(), bytes)) {
      return index;
    }
  }
  SoMarkerSet::addMarker(count, SbVec2s(symbolSize, symbolSize), bitmap.data(), FALSE, FALSE);
  return count;
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
  controlPoint = markerOf(controlPointPicture);
  secondState = markerOf(secondStatePicture);
  codedTarget = markerOf(codedTargetPicture);
  subPixel = markerOf(subPixelPicture);
  point = markerOf(pointPicture);
}

}  // namespace tarn
