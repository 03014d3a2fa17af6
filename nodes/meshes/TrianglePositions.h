#pragma once

#include "nodes/TarnOIExport.h"

#include <utility>
#include <vector>

namespace tarn {
class VObject;
class VOrdCollect;
}  // namespace tarn

/// Where triangles stand in a model's list of them. The list is read once, and what it said
/// kept while it holds: a million questions take little more than one reading.
class TARNOI_EXPORT TrianglePositions {
public:
  /// The first position of the triangle in the list, from 0; -1 where it is not listed.
  int of(const tarn::VObject* triangle, const tarn::VOrdCollect& triangles);

  /// Reads the list anew.
  void read(const tarn::VOrdCollect& triangles);
  /// The first position of the triangle in the list when it was read; -1 where it was not there.
  int inListRead(const tarn::VObject* triangle) const;

private:
  using Entry = std::pair<const tarn::VObject*, int>;

  std::vector<Entry> entries;  ///< sorted
};
