#include "nodes/meshes/TrianglePositions.h"

#include "host/classes/VOrdCollect.h"

#include <algorithm>
#include <cstddef>

int TrianglePositions::of(const tarn::VObject* triangle, const tarn::VOrdCollect& triangles) {
  if (const int position = remembered(triangle, triangles); position != -1) return position;
  const int position = triangles.indexOf(triangle);
  if (position != -1) read(triangles);  // it is not the list that was read before
  return position;
}

int TrianglePositions::remembered(const tarn::VObject* triangle,
                                  const tarn::VOrdCollect& triangles) const {
  const auto found = std::lower_bound(entries.begin(), entries.end(), Entry(triangle, 0));
  if (found == entries.end() || found->first != triangle) return -1;
  return triangles.at(found->second) == triangle ? found->second : -1;
}

void TrianglePositions::read(const tarn::VOrdCollect& triangles) {
  entries.clear();
  entries.reserve(static_cast<std::size_t>(triangles.size()));
  for (int i = 0; i < triangles.size(); ++i) entries.emplace_back(triangles.at(i), i);
  // Triangles made one after the other are in order already.
  if (!std::is_sorted(entries.begin(), entries.end())) std::sort(entries.begin(), entries.end());
}
