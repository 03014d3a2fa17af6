#pragma once

#include "host/TarnOIHostExport.h"

namespace tarn {

/// The point symbols: for each kind of point the index of its marker in Coin's
/// marker table (SoMarkerSet). An application may set the members to indices of
/// markers of its own.
class TARN_HOST_EXPORT DisplayBitmaps {
public:
  int controlPoint;  ///< a triangle with its centre
  int secondState;   ///< a square on its corner
  int codedTarget;   ///< a ring around a dot
  int subPixel;      ///< a circle
  int point;         ///< a cross

  /// Every symbol starts as the nearest of Coin's own markers.
  DisplayBitmaps();

  /// Enters the symbols' bitmaps into Coin's marker table, where they are not in it yet,
  /// and sets the members to their indices. Coin's data base must be initialised
  /// (SoDB::init); after SoDB::finish and a new SoDB::init it has to be called again.
  void registerMarkers();
};

/// The symbols that all nodes read.
extern TARN_HOST_EXPORT DisplayBitmaps gSymbols;

}  // namespace tarn
