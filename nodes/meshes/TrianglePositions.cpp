#include "nodes/meshes/TrianglePositions.h"

#include "host/classes/VOrdCollect.h"
#include "host/general/LargePages.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>

int TrianglePositions::of(const tarn::VObject* triangle, const tarn::VOrdCollect& triangles) {
  if (const int position = inListRead(triangle);
      position != -1 && triangles.at(position) == triangle) {
    return position;
  }
  const int position = triangles.indexOf(triangle);
  if (position != -1) read(triangles);  // it is not the list that was read before
  return position;
}

void TrianglePositions::read(const tarn::VOrdCollect& triangles) {
  entries.clear();
  if (const auto size = static_cast<std::size_t>(triangles.size()); entries.capacity() < size) {
    entries.reserve(size);
    tarn::makeLargePages(entries.data(), size * sizeof(Entry));
  }
  for (int i = 0; i < triangles.size(); ++i) entries.emplace_back(triangles.at(i), i);
  // Triangles made one after the other are in order already.
  if (!std::is_sorted(entries.begin(), entries.end())) std::sort(entries.begin(), entries.end());
}

int TrianglePositions::inListRead(const tarn::VObject* triangle) const {
  if (entries.empty()) return -1;
  const auto address = [](const tarn::VObject* object) {
    return reinterpret_cast<std::uintptr_t>(object);
  };
  const std::uintptr_t lowest = address(entries.front().first);
  const std::uintptr_t highest = address(entries.back().first);
  if (address(triangle) < lowest || address(triangle) > highest) return -1;
  // Triangles made one after the other lie evenly: this guess is right, and a search in a
  // million entries, most of them in no cache, is saved.
  const double share = highest > lowest ? static_cast<double>(address(triangle) - lowest) /
                                              static_cast<double>(highest - lowest)
                                        : 0.0;
  const auto guess =
      static_cast<std::size_t>(share * static_cast<double>(entries.size() - 1) + 0.5);
  const bool isFirst = guess == 0 || entries[guess - 1].first != triangle;
  if (entries[guess].first == triangle && isFirst) return entries[guess].second;
  const auto found = std::lower_bound(entries.begin(), entries.end(), Entry(triangle, 0));
  return found != entries.end() && found->first == triangle ? found->second : -1;
}
