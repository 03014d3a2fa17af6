#include "nodes/meshes/TriangleLookups.h"

#include "nodes/framework/ChildNodes.h"

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <unordered_map>

namespace {

// Objects that were noted, or perhaps were: a bit for the hash of each. Most triangles of a
// surface are not among those that are looked for, and a bit that stays in the cache says so in
// a fraction of the time of a look-up. There are 32 bits or more for each, or the share of those
// that are looked up for nothing would grow with their number.
class PerhapsNoted {
public:
  explicit PerhapsNoted(std::size_t objects)
      : digits(static_cast<int>(std::bit_width(32 * objects + 1))),
        bits(std::size_t{1} << digits) {}

  void note(const tarn::VObject* object) { bits[slotOf(object)] = true; }
  bool has(const tarn::VObject* object) const { return bits[slotOf(object)]; }

private:
  std::size_t slotOf(const tarn::VObject* object) const {
    constexpr std::uint64_t golden = 0x9E3779B97F4A7C15;  // 2^64 over the golden ratio
    const std::uint64_t address = reinterpret_cast<std::uintptr_t>(object);
    return static_cast<std::size_t>(address * golden >> (64 - digits));
  }
  int digits;
  std::vector<bool> bits;
};

}  // namespace

const OI_To_Tarn_TriangleLookup* TriangleLookups::find(const SoNode* faceSet) const {
  const auto found = std::ranges::find_if(records, [faceSet](const auto& record) {
    return faceSet && record.faceSet.get() == faceSet;
  });
  return found == records.end() ? nullptr : &*found;
}

std::vector<TriangleLookups::Face> TriangleLookups::firstFacesOf(
    const std::vector<const tarn::VObject*>& triangles) const {
  const std::size_t count = triangles.size();
  PerhapsNoted sought(count);
  std::unordered_map<const tarn::VObject*, std::size_t> places(count);
  std::vector<std::size_t> firstPlaces(count);  // of a triangle that is there several times
  for (std::size_t i = 0; i < count; ++i) {
    sought.note(triangles[i]);
    firstPlaces[i] = places.try_emplace(triangles[i], i).first->second;
  }
  std::vector<Face> faces(count);
  for (const OI_To_Tarn_TriangleLookup& record : records) {
    for (std::size_t i = 0; i < record.triangles.size(); ++i) {
      if (!sought.has(record.triangles[i])) continue;
      const auto found = places.find(record.triangles[i]);
      if (found == places.end() || faces[found->second].faceSet) continue;
      faces[found->second] = {record.faceSet.get(), static_cast<int>(i)};
    }
  }
  for (std::size_t i = 0; i < count; ++i) faces[i] = faces[firstPlaces[i]];
  return faces;
}

TriangleLookups TriangleLookups::counterpart(const SoGroup& copy, const SoGroup& original) const {
  TriangleLookups result = *this;
  for (OI_To_Tarn_TriangleLookup& record : result.records) {
    record.faceSet = ChildNodes::counterpart(copy, original, record.faceSet);
  }
  return result;
}
